#include "workbench/rowTexts.h"

#include "editing/linkTexts.h"
#include "esi/xmlCharConversion.h"
#include "model/byteBit.h"
#include "model/pdoAccess.h"
#include "model/startupAccess.h"

namespace {

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

QString indexAndSubIndex(std::uint32_t index, std::uint32_t subIndex)
{
    return xmlGetStringuint(index) + QLatin1Char(':') + QString::number(subIndex);
}

/// "F" for fixed content, "M" for a PDO that must be assigned.
template<typename Attributes> QString flagsOf(const Attributes& attributes)
{
    QString flags = QStringLiteral("");
    if (attributes.Fixed)
        flags += QLatin1Char('F');
    if (attributes.Mandatory)
        flags += QLatin1Char('M');
    return flags;
}

/// @param noSyncManager  cell of a PDO that is on no sync manager
template<typename Pdo> QStringList rowOf(const Pdo& pdo, std::uint32_t index, const QString& noSyncManager)
{
    return {xmlGetStringuint(index),
            twoDecimals(sizeOf(pdo)),
            text(pdo.Name),
            flagsOf(pdo.Attributes),
            pdo.Attributes.SM < 0 ? noSyncManager : QString::number(pdo.Attributes.SM),
            QString::number(pdo.Attributes.SU)};
}

template<typename Entry> QStringList rowOfEntry(const Entry& entry)
{
    return {indexAndSubIndex(indexOf(entry), entry.SubIndex),
            twoDecimals(byteBitForm(bitLengthOf(entry))),
            twoDecimals(entry.Offs),
            text(entry.Name),
            text(entry.DataType),
            linkText(entry.Linkto),
            QString::number(entry.DefaultData)};
}

/// Added as floats, with no carry from the tenths into the bytes, as everywhere.
template<typename Entry> QStringList rowAfter(const Entry& last)
{
    constexpr int decimals = 6;
    const float end = last.Offs + byteBitForm(bitLengthOf(last));
    return {QString(), QString(), QString::number(static_cast<double>(end), 'f', decimals)};
}

/// The index alone, for a command that goes out as a complete access on sub-index 0.
QString completeAccessIndex(std::uint32_t index)
{
    return xmlGetStringuint(index) + QLatin1String(" C 0");
}

/// ODD, KEPT: which commands count as complete accesses is told by their comments, and the EoE list tests them the
/// opposite way: there every command that is no "download pdo" shows as one, whatever the device takes. One would
/// expect the mark of the command to be asked. Pinned by tst_RowTexts::startupIndex.
QString startupIndex(const struct_InitCmd& command, StartupList list, bool completeAccess)
{
    const QString comment = text(command.Comment);
    const bool downloadsPdo = comment.contains(QLatin1String("download pdo"));
    const bool clearsPdo = comment.contains(QLatin1String("clear pdo"));
    const bool isWhole = list == StartupList::DeviceEoe ? !downloadsPdo : (downloadsPdo || clearsPdo) && completeAccess;
    return isWhole ? completeAccessIndex(command.Index) : indexAndSubIndex(command.Index, command.SubIndex);
}

QString startupIndex(const struct_moduleInitCmd& command, StartupList /*list*/, bool /*completeAccess*/)
{
    return indexAndSubIndex(command.indexAttributes.index, command.SubIndex);
}

template<typename Command> QStringList rowOfCommand(const Command& command, StartupList list, bool completeAccess)
{
    const QString transition = xmlGetStringEnumNmtoken(command.Transition);
    return {transition.isNull() ? QStringLiteral("") : transition,
            list == StartupList::DeviceEoe ? QStringLiteral("EOE") : QStringLiteral("COE"),
            startupIndex(command, list, completeAccess),
            xmlGetStringuint(command.DataBytes),
            text(command.strData),
            text(command.Comment),
            xmlGetStringuint(command.bIfCA)};
}

} // namespace

QString twoDecimals(float value)
{
    constexpr int decimals = 2;
    return QString::number(static_cast<double>(value), 'f', decimals);
}

QString bracketed(std::uint32_t index)
{
    return QLatin1Char('(') + xmlGetStringuint(index) + QLatin1Char(')');
}

QStringList fmmuRow(const Struct_Fmmu& fmmu)
{
    return {text(fmmu.m_Name), xmlGetStringuint(fmmu.m_Sm), xmlGetStringuint(fmmu.m_Su),
            xmlGetStringuint(fmmu.m_OpOnly ? 1 : 0)};
}

QStringList smRow(const struct_SM& syncManager)
{
    // Bit 16 is the enable bit of the register word that the controller writes; it is added for the eye only.
    constexpr std::uint32_t shownEnableBit = 65536;
    const SmAttributes& attributes = syncManager.Attributes;
    return {QString::number(syncManager.SM),
            xmlGetStringuint(attributes.StartAddress),
            xmlGetStringuint(static_cast<std::uint32_t>(wholeBytes(syncManager.Length))),
            xmlGetStringuint(attributes.ControlByte + shownEnableBit),
            xmlGetStringuint(attributes.MinSize),
            xmlGetStringuint(attributes.MaxSize),
            xmlGetStringuint(attributes.DefaultSize)};
}

QStringList syncRow(const struct_SM& syncManager)
{
    return {QString::number(syncManager.SM), twoDecimals(syncManager.Length), text(syncManager.Name)};
}

QStringList pdoRow(const struct_PDOList& pdo)
{
    return rowOf(pdo, indexOf(pdo), QString());
}

QStringList pdoRow(const modulePdo& pdo)
{
    return rowOf(pdo, indexOf(pdo), QStringLiteral("")); // an item, so that the whole row takes the colour of modules
}

QStringList declaredModulePdoRow(const modulePdo& pdo)
{
    const int shift = pdo.indexAttributes.DependOnSlot ? pdo.Instances : 0;
    return rowOf(pdo, static_cast<std::uint32_t>(indexOf(pdo) + shift), QString());
}

QStringList entryRow(const struct_EntryPDOContent& entry)
{
    return rowOfEntry(entry);
}

QStringList entryRow(const struct_moduleEntry& entry)
{
    return rowOfEntry(entry);
}

QStringList closingRow(const struct_EntryPDOContent& last)
{
    return rowAfter(last);
}

QStringList closingRow(const struct_moduleEntry& last)
{
    return rowAfter(last);
}

QStringList startupRow(const struct_InitCmd& command, StartupList list, bool completeAccess)
{
    return rowOfCommand(command, list, completeAccess);
}

QStringList startupRow(const struct_moduleInitCmd& command, StartupList list, bool completeAccess)
{
    return rowOfCommand(command, list, completeAccess);
}
