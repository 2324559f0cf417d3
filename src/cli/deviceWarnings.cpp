#include "cli/deviceWarnings.h"

#include "cli/deviceLabel.h"
#include "editing/exportChecks.h"

namespace {

struct WarningText
{
    WarningCode code;
    QString text;
};

WarningText textOf(ExportWarning warning, const struct_EtherCatDevice& device)
{
    switch (warning) {
    case ExportWarning::SyncManagers:
        return {WarningCode::SyncManagers, QStringLiteral("%1 sync managers, the controller handles %2")
                                               .arg(device.vSM.size())
                                               .arg(maxSyncManagers)};
    case ExportWarning::SlotPdoIncrement:
        return {WarningCode::SlotPdoIncrement,
                QStringLiteral("slots with another SlotPdoIncrement than the device, the controller handles one")};
    case ExportWarning::SlotIndexIncrement:
        return {WarningCode::SlotIndexIncrement,
                QStringLiteral("slots with another SlotIndexIncrement than the device, the controller handles one")};
    case ExportWarning::StartupCommands:
        break;
    }
    return {WarningCode::StartupCommands,
            QStringLiteral("%1 startup commands, more than %2 need firmware later than 20240929")
                .arg(startupTotal(device))
                .arg(maxStartupCommands)};
}

} // namespace

void warnOfDevice(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::size_t number,
                  Messages& messages)
{
    for (const ExportWarning warning : exportWarningsOf(device)) {
        const WarningText told = textOf(warning, device);
        messages.warning(QString::fromStdString(file.xmlfilepath), told.code,
                         deviceLabel(file, device, number) + QStringLiteral(": ") + told.text);
    }
}
