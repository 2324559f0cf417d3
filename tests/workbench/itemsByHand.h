// itemsByHand.h - the items of a KTL file as a test writes them down, and how a written file differs from them.
#pragma once

#include "ktl/ktlBytes.h"
#include "ktl/ktlItems.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QString>

#include <cstdint>

/// The builders put numbers where the format wants them and count what is countable; they share nothing with the
/// product, and each value is given by the test.
namespace byHand {

constexpr std::uint32_t deviceOutputs = 40003; ///< type of the item of an Rx PDO
constexpr std::uint32_t deviceInputs = 40004; ///< type of the item of a Tx PDO
constexpr std::uint32_t moduleOutputs = 40103; ///< type of the item of the Rx PDOs of a module
constexpr std::uint32_t moduleInputs = 40102; ///< type of the item of the Tx PDOs of a module
constexpr std::uint32_t moreInfo = 40016; ///< type of the item with the names, the date and the time

constexpr std::uint32_t preopToSafeop = 2; ///< transition PS
constexpr std::uint32_t initToSafeop = 3; ///< transitions IP and PS in one command
constexpr std::uint32_t safeopToOp = 6; ///< transition SO

inline QByteArray oneByte(std::uint32_t value)
{
    return QByteArray(1, static_cast<char>(value));
}

/// Type and size of an item, then its content.
inline QByteArray item(std::uint32_t type, const QByteArray& content)
{
    return le32(type) + le32(8 + static_cast<std::uint32_t>(content.size())) + content;
}

inline std::uint32_t countOf(const QByteArrayList& records)
{
    return static_cast<std::uint32_t>(records.size());
}

/// An item that is a count and that many records.
inline QByteArray listItem(std::uint32_t type, const QByteArrayList& records)
{
    return item(type, le32(countOf(records)) + records.join());
}

struct Identity
{
    std::uint32_t vendor;
    std::uint32_t product;
    std::uint32_t revision;
    std::uint32_t serial = 0;
};

/// @param slotPositions  0 but for the types 3 and 5, like `modules`
inline QByteArray general(const Identity& identity, std::uint32_t deviceType, bool sdoInfo, std::uint32_t driveAxes,
                          std::uint32_t slotPositions = 0, std::uint32_t modules = 0)
{
    return item(40000, le32(identity.vendor) + le32(identity.product) + le32(identity.revision) + le32(identity.serial)
                           + le16(deviceType) + le16(sdoInfo ? 1 : 0) + le16(slotPositions) + zeros(18)
                           + le16(driveAxes) + le16(modules));
}

inline QByteArray fmmu(std::uint32_t type, bool opOnly = false, std::uint32_t syncManager = 0)
{
    return oneByte(opOnly ? 1 : 0) + oneByte(syncManager) + oneByte(0) + oneByte(type) + zeros(4);
}

inline QByteArray fmmus(const QByteArrayList& records)
{
    return listItem(40014, records);
}

inline QByteArray syncManager(std::uint32_t start, std::uint32_t minSize, std::uint32_t maxSize, std::uint32_t size,
                              std::uint32_t control, std::uint32_t enable)
{
    return le16(start) + le16(minSize) + le16(maxSize) + le16(size) + le32(control) + le32(enable);
}

inline QByteArray syncManagers(const QByteArrayList& records)
{
    return listItem(40001, records);
}

/// The modes in their order, the chosen one first: all that is written of them is what they activate.
inline QByteArray operationModes(const QList<std::uint32_t>& assignActivate)
{
    QByteArrayList records;
    for (const std::uint32_t activate : assignActivate)
        records.append(zeros(24) + le32(activate));
    return listItem(40002, records);
}

struct PdoHead
{
    std::uint32_t index;
    int syncManager; ///< -1 if there is none
    bool fixed = false;
    bool mandatory = false;
    int syncUnit = 0;
};

inline QByteArray pdoItem(std::uint32_t type, const PdoHead& head, const QByteArrayList& entries)
{
    return item(type, oneByte(head.fixed ? 1 : 0) + oneByte(head.mandatory ? 1 : 0) + zeros(2)
                          + le32(static_cast<std::uint32_t>(head.syncManager))
                          + le32(static_cast<std::uint32_t>(head.syncUnit)) + le16(head.index) + zeros(2)
                          + le32(countOf(entries)) + entries.join());
}

/// An entry of a PDO of the device, or of a module that is written as one of its PDOs.
inline QByteArray entry(std::uint32_t index, std::uint32_t subIndex, std::uint32_t bits, int link = 0)
{
    return zeros(2) + le16(index) + le32(subIndex) + le32(bits) + zeros(4) + le32(static_cast<std::uint32_t>(link));
}

/// An entry that fills a gap.
inline QByteArray gap(std::uint32_t bits, int link = 0)
{
    return entry(0, 0, bits, link);
}

inline QByteArray command(std::uint32_t transition, std::uint32_t index, std::uint32_t subIndex, std::uint32_t bytes,
                          std::uint32_t data)
{
    return le16(transition) + le16(index) + oneByte(subIndex) + zeros(1) + le16(bytes) + le32(data);
}

/// A command without complete access between pre-operational and safe-operational, as nearly all are.
inline QByteArray command(std::uint32_t index, std::uint32_t subIndex, std::uint32_t bytes, std::uint32_t data)
{
    return command(preopToSafeop, index, subIndex, bytes, data);
}

/// Clears a PDO, maps its entries from subindex 1 on, and counts them.
inline QByteArrayList mapping(std::uint32_t pdo, const QList<std::uint32_t>& entries)
{
    QByteArrayList commands{command(pdo, 0, 1, 0)};
    for (const std::uint32_t mapped : entries)
        commands.append(command(pdo, static_cast<std::uint32_t>(commands.size()), 4, mapped));
    commands.append(command(pdo, 0, 1, static_cast<std::uint32_t>(entries.size())));
    return commands;
}

/// Assigns PDOs from subindex 1 on, and counts them.
inline QByteArrayList assignment(std::uint32_t object, const QList<std::uint32_t>& pdos)
{
    QByteArrayList commands;
    for (const std::uint32_t pdo : pdos)
        commands.append(command(object, static_cast<std::uint32_t>(commands.size()) + 1, 2, pdo));
    commands.append(command(object, 0, 1, static_cast<std::uint32_t>(pdos.size())));
    return commands;
}

inline QByteArray eoe(bool ip, bool mac, const QByteArrayList& commands)
{
    return item(40005,
                oneByte(ip ? 1 : 0) + oneByte(mac ? 1 : 0) + zeros(1) + oneByte(countOf(commands)) + commands.join());
}

/// @param flags  seven bytes in hexadecimal: SdoInfo, PdoAssign, PdoUpload, PdoConfig, SegmentedSdo, CompleteAccess,
///               DiagHistory
/// @param commands  at most 254, none of them of complete access
inline QByteArray coe(const char* flags, const QByteArrayList& commands)
{
    return item(40006, bytes(flags) + oneByte(countOf(commands)) + commands.join());
}

/// What a device without mailbox has all the same.
inline QByteArray noMailbox()
{
    return eoe(false, false, {}) + coe("00 00 00 00 00 00 00", {});
}

inline QByteArray slot(std::uint32_t minInstances, std::uint32_t maxInstances, std::uint32_t indexIncrement,
                       std::uint32_t pdoIncrement)
{
    return le32(minInstances) + le32(maxInstances) + le32(indexIncrement) + le32(pdoIncrement) + zeros(108);
}

struct SlotsHead
{
    bool downloadsIdents;
    std::uint32_t pdoIncrement;
    std::uint32_t indexIncrement;
};

/// @param records  at most 255
inline QByteArray slotItem(const SlotsHead& head, const QByteArrayList& records)
{
    const QByteArray count = le16(countOf(records));
    return item(40007, count + oneByte(head.downloadsIdents ? 1 : 0) + zeros(1) + le16(head.pdoIncrement)
                           + le16(head.indexIncrement) + count + zeros(2) + records.join());
}

/// @param occupied  how many modules are in the positions
/// @param idents    of each position, 0 where it is empty
inline QByteArray slotPreset(std::uint32_t occupied, const QList<std::uint32_t>& idents)
{
    QByteArray records;
    for (const std::uint32_t ident : idents)
        records += le32(ident) + zeros(4);
    return item(40015, le32(static_cast<std::uint32_t>(idents.size())) + le32(occupied) + records);
}

/// Date and time are left 0; `differenceFrom` puts the clock's in. Text and fill bytes together: the remainder of the
/// text's length by 4 is added to it, and the item is then filled up to a multiple of 4.
/// @param names  of the device and of all modules of the file, together at most 990 bytes
inline QByteArray moreInfoItem(const QByteArrayList& names)
{
    constexpr int zerosAfter[] = {0, 3, 2, 5}; // 1 + 1 + 2 to fill; 2 + 2 and nothing to fill; 3 + 3 + 2 to fill
    const QByteArray text = names.join('\n');
    return item(moreInfo, zeros(8) + le32(0x10028) + zeros(4) + text + zeros(zerosAfter[text.size() % 4]));
}

inline QByteArray module(std::uint32_t ident, int pdoGroup = 0, bool sraSupported = false)
{
    return item(40013,
                le32(ident) + le32(static_cast<std::uint32_t>(pdoGroup)) + oneByte(sraSupported ? 1 : 0) + zeros(3));
}

/// An entry in the block of a module.
inline QByteArray moduleEntry(bool dependsOnSlot, std::uint32_t index, std::uint32_t subIndex, std::uint32_t bits,
                              int link = 0)
{
    return oneByte(dependsOnSlot ? 1 : 0) + zeros(1) + le16(index) + le16(subIndex) + le16(bits)
           + le32(static_cast<std::uint32_t>(link));
}

inline QByteArray moduleCommand(bool dependsOnSlot, std::uint32_t index, std::uint32_t subIndex, std::uint32_t bytes,
                                std::uint32_t data)
{
    return oneByte(dependsOnSlot ? 1 : 0) + zeros(2) + oneByte(bytes) + le16(index) + zeros(4) + oneByte(subIndex)
           + zeros(1) + le32(data);
}

inline QByteArray moduleStartup(const QByteArrayList& commands)
{
    return listItem(40104, commands);
}

inline QByteArray end()
{
    return item(0, zeros(4));
}

/// Date and time as the format holds them.
inline QByteArray clockBytes(const QDateTime& moment)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    return le32(static_cast<std::uint32_t>(date.year() * 10000 + date.month() * 100 + date.day()))
           + le32(static_cast<std::uint32_t>(time.hour() * 10000 + time.minute() * 100 + time.second()));
}

/// When an export ran.
struct ClockSpan
{
    QDateTime before;
    QDateTime after;

    /// True if date and time are those of a second of the export.
    [[nodiscard]] bool holds(const QByteArray& dateAndTime) const
    {
        for (QDateTime moment = before; moment <= after.addMSecs(999); moment = moment.addSecs(1))
            if (clockBytes(moment) == dateAndTime)
                return true;
        return false;
    }
};

/// Empty if a file holds just these items in this order and nothing else, down to the last byte. What a file announces
/// plays no part in that.
/// @param span  when the file was written
inline QString differenceFrom(const QByteArrayList& expected, const QByteArray& file, const ClockSpan& span)
{
    constexpr int clockAt = 8;
    constexpr int clockSize = 8;
    int offset = 0;
    for (int number = 0; number < expected.size(); ++number) {
        QByteArray wanted = expected.at(number);
        const QByteArray found = file.mid(offset, wanted.size());
        const QByteArray clock = found.mid(clockAt, clockSize);
        if (numberAt(wanted, 0, 4) == moreInfo) {
            if (!span.holds(clock))
                return QStringLiteral("item %1 has not the time of the export").arg(number);
            wanted.replace(clockAt, clockSize, clock);
        }
        for (int place = 0; place < wanted.size(); ++place)
            if (place >= found.size() || found.at(place) != wanted.at(place))
                return QStringLiteral("item %1 of type %2 differs at byte %3:\nwanted %4\nfound  %5")
                    .arg(number)
                    .arg(numberAt(wanted, 0, 4))
                    .arg(place)
                    .arg(QLatin1String(wanted.toHex(' ')), QLatin1String(found.toHex(' ')));
        offset += wanted.size();
    }
    return offset == file.size() ? QString()
                                 : QStringLiteral("%1 bytes follow the last item").arg(file.size() - offset);
}

} // namespace byHand
