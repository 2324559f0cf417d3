// ktlItems.h - a little reader of KTL files and of their text dumps that shares nothing with the product.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

/// Little-endian number of so many bytes at an offset; bytes past the end count as 0.
inline std::uint32_t numberAt(const QByteArray& content, int offset, int width)
{
    std::uint32_t number = 0;
    for (int position = width - 1; position >= 0; --position) {
        const int place = offset + position;
        number = number << 8U | (place < content.size() ? static_cast<unsigned char>(content.at(place)) : 0U);
    }
    return number;
}

/// One item of a KTL file.
struct KtlItem
{
    std::uint32_t type = 0;
    QByteArray content; ///< the whole item, head included

    [[nodiscard]] std::uint32_t u32(int offset) const { return numberAt(content, offset, 4); }
    [[nodiscard]] std::uint32_t u16(int offset) const { return numberAt(content, offset, 2); }
    [[nodiscard]] std::uint32_t u8(int offset) const { return numberAt(content, offset, 1); }
};

/// The items of a file that is a plain sequence of them, from its first byte to its last.
/// @param problem  set to a reason if it is not; the items before it are returned
inline std::vector<KtlItem> itemsOf(const QByteArray& file, QString* problem)
{
    constexpr std::uint32_t headSize = 8;
    std::vector<KtlItem> items;
    int offset = 0;
    while (offset < file.size()) {
        const std::uint32_t size = numberAt(file, offset + 4, 4);
        const auto left = static_cast<std::uint32_t>(file.size() - offset);
        if (size < headSize || size % 4 != 0 || size > left) {
            *problem = QStringLiteral("item at %1 announces %2 bytes, %3 are left").arg(offset).arg(size).arg(left);
            break;
        }
        items.push_back({numberAt(file, offset, 4), file.mid(offset, static_cast<int>(size))});
        offset += static_cast<int>(size);
    }
    return items;
}

/// Types of the items, in their order.
inline QList<std::uint32_t> typesOf(const std::vector<KtlItem>& items)
{
    QList<std::uint32_t> types;
    for (const KtlItem& item : items)
        types.append(item.type);
    return types;
}

/// One item of a text dump.
struct DumpItem
{
    qint64 type = 0;
    qint64 size = 0;
    QString name; ///< what follows the head, blanks included
    std::vector<std::uint32_t> words;
};

/// The words of a second line of an item: "  0x", and then each word with a blank and a tab after it.
inline bool readWords(const QString& line, DumpItem& item)
{
    if (!line.startsWith(QLatin1String("  0x")))
        return false;
    QStringList words = line.mid(4).split(QLatin1String(" \t"));
    if (!words.takeLast().isEmpty()) // the last word too has its blank and tab
        return false;
    for (const QString& word : words) {
        bool isNumber = false;
        item.words.push_back(word.toUInt(&isNumber, 16));
        if (!isNumber || word != QString::number(item.words.back(), 16))
            return false;
    }
    return true;
}

/// The items of a text dump.
/// @param problem  set to a reason if the text is no dump; the items before it are returned
inline std::vector<DumpItem> dumpItemsOf(const QByteArray& dump, QString* problem)
{
    static const QRegularExpression head(QStringLiteral("^ItemHead-dec: (-?\\d+),Len: (-?\\d+)   (.*)$"));
    const QByteArray firstLine = "KTL Version V1.0.28 \n";
    std::vector<DumpItem> items;
    QStringList lines = QString::fromLatin1(dump.mid(firstLine.size())).split(QLatin1String("\r\n"));
    if (!dump.startsWith(firstLine) || lines.size() % 2 != 1 || !lines.takeLast().isEmpty()) {
        *problem = QStringLiteral("first line or last line end is wrong");
        return items;
    }
    for (int line = 0; line < lines.size(); line += 2) {
        const QRegularExpressionMatch match = head.match(lines.at(line));
        DumpItem item{match.captured(1).toLongLong(), match.captured(2).toLongLong(), match.captured(3), {}};
        if (!match.hasMatch() || !readWords(lines.at(line + 1), item)) {
            *problem = QStringLiteral("not as an item should be: %1 / %2").arg(lines.at(line), lines.at(line + 1));
            break;
        }
        items.push_back(item);
    }
    return items;
}
