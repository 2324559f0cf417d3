#include "editing/exportChecks.h"

#include "model/valueTexts.h"

#include <QCoreApplication>

#include <optional>

namespace {

constexpr const char* translationContext = "MainWindow";

/// Whether a slot's step differs from the device's. A step of 0 means that none was declared, and differs from nothing.
bool differs(std::uint32_t slotStep, std::uint32_t deviceStep)
{
    return slotStep != 0 && deviceStep != 0 && slotStep != deviceStep;
}

/// The first slot that differs from the device gives the one warning on increments; the PDO step is looked at first.
std::optional<ExportWarning> incrementWarning(const DeviceSlots& deviceSlots)
{
    for (const struct_Slot& slot : deviceSlots.vslot) {
        if (differs(slot.Attributes.SlotPdoIncrement, deviceSlots.Attributes.SlotPdoIncrement))
            return ExportWarning::SlotPdoIncrement;
        if (differs(slot.Attributes.SlotIndexIncrement, deviceSlots.Attributes.SlotIndexIncrement))
            return ExportWarning::SlotIndexIncrement;
    }
    return std::nullopt;
}

/// ODD, KEPT: the device's own commands count with the low 8 bits of their number, so 256 of them count as none, while
/// those of modules all count. One would expect all commands of both lists. Pinned by
/// tst_ExportChecks::startupCommands.
std::size_t startupTotal(const struct_EtherCatDevice& device)
{
    return static_cast<std::uint8_t>(device.Mailbox.COE.InitCmd.vinitcmd.size()) + device.mMailbox.COE.vinitcmd.size();
}

/// The words of the window for a warning, with %1 for the name of the device.
const char* wordsOf(ExportWarning warning)
{
    switch (warning) {
    case ExportWarning::SyncManagers:
        return "存在设备sm通道大于4个，控制器不支持sm 大于4个以上。请谨慎操作 %1:\n";
    case ExportWarning::SlotPdoIncrement:
        return "存在设备多个slot的SlotPdoIncrement不一致，控制器不支持。请谨慎操作 %1:\n";
    case ExportWarning::SlotIndexIncrement:
        return "存在设备多个slot的SlotIndexIncrement不一致，控制器不支持。请谨慎操作 %1:\n";
    case ExportWarning::StartupCommands:
        break;
    }
    return "设备的startup启动项超过254个。固件必须升级大于20240929 %1:\n";
}

/// Name of a file by its path: what follows the last slash, up to the first dot. A split always gives a part; the
/// two names for a split that gave none are kept, so that a change of the splitting can never propose an empty name.
QString fileStem(const QString& path)
{
    const QStringList folders = path.split(QLatin1Char('/'));
    if (folders.isEmpty())
        return QStringLiteral("ktc_device");
    const QStringList words = folders.last().split(QLatin1Char('.'));
    return words.isEmpty() ? QStringLiteral("xxx_device") : words.first();
}

} // namespace

std::vector<ExportWarning> exportWarningsOf(const struct_EtherCatDevice& device)
{
    std::vector<ExportWarning> warnings;
    if (device.vSM.size() > maxSyncManagers)
        warnings.push_back(ExportWarning::SyncManagers);
    if (const std::optional<ExportWarning> warning = incrementWarning(device.Slots))
        warnings.push_back(*warning);
    if (startupTotal(device) > maxStartupCommands)
        warnings.push_back(ExportWarning::StartupCommands);
    return warnings;
}

QStringList exportWarnings(const struct_EtherCatDevice& device)
{
    QStringList texts;
    for (const ExportWarning warning : exportWarningsOf(device))
        texts +=
            QCoreApplication::translate(translationContext, wordsOf(warning)).arg(QString::fromStdString(device.Name));
    return texts;
}

QString proposedKtlName(const struct_FilenameDevice& file)
{
    return proposedKtlName(QString::fromStdString(file.xmlfilepath), file.Vendor_Id);
}

QString proposedKtlName(const QString& path, std::uint32_t vendorId)
{
    constexpr int maxStemLength = 15;
    constexpr int maxNameLength = 20;
    const QString stem = fileStem(path).left(maxStemLength);
    const QString name = stem + QLatin1Char('-') + hexNumber(vendorId);
    return name.left(maxNameLength);
}
