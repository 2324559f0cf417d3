#include "cli/deviceWarnings.h"

#include "cli/inputFile.h"
#include "editing/deviceLabel.h"
#include "editing/exportChecks.h"
#include "editing/lostValues.h"
#include "model/deviceType.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <cstddef>

namespace cli {

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
        return {
            WarningCode::SyncManagers,
            QStringLiteral("%1 sync managers, the controller handles %2").arg(device.vSM.size()).arg(maxSyncManagers)};
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
                .arg(device.Mailbox.COE.InitCmd.vinitcmd.size() + device.mMailbox.COE.vinitcmd.size())
                .arg(maxStartupCommands)};
}

/// One device and what is warned of in it.
class WarnedDevice
{
public:
    /// All must outlive this.
    WarnedDevice(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::size_t number,
                 Messages& messages)
        : m_file(file)
        , m_device(device)
        , m_number(number)
        , m_messages(messages)
    {}

    [[nodiscard]] const struct_EtherCatDevice& device() const { return m_device; }

    void warn(const WarningText& told) const
    {
        m_messages.warning(inputPathOf(m_file), told.code,
                           deviceLabel(m_file, m_device, m_number) + QStringLiteral(": ") + told.text);
    }

private:
    const struct_FilenameDevice& m_file;
    const struct_EtherCatDevice& m_device;
    std::size_t m_number;
    Messages& m_messages;
};

/// The object of a command, its comment and the length of its value.
QString textOf(const LostValue& value)
{
    QString text = QStringLiteral("%1:%2").arg(hexNumber(value.index)).arg(value.subIndex);
    if (!value.comment.empty())
        text += QLatin1Char(' ') + shownText(QString::fromStdString(value.comment));
    return text + QStringLiteral(", %1 bytes").arg(value.dataBytes);
}

/// @param ofModules  what is lost in the module blocks of the file
void warnOfLost(const WarnedDevice& warned, const LostValues& ofModules)
{
    const LostValues ofDevice = lostValuesOf(warned.device());
    const std::size_t inBlocks = hasModuleBlocks(warned.device().m_iDeviceType) ? ofModules.count : 0;
    QStringList counts;
    if (ofDevice.count > 0)
        counts += QStringLiteral("%1 of the device").arg(ofDevice.count);
    if (inBlocks > 0)
        counts += QStringLiteral("%1 of the modules in its file").arg(inBlocks);
    if (counts.isEmpty())
        return;
    const LostValue& first = ofDevice.first.has_value() ? *ofDevice.first : *ofModules.first;
    warned.warn({WarningCode::StartupData,
                 QStringLiteral("startup commands with a value that the format does not carry: %1; the first is %2")
                     .arg(counts.join(QStringLiteral(", ")), textOf(first))});
}

/// Calls `visit(position, warned, ofModules)` for each device.
template<typename Visit>
void forEachDevice(const std::vector<struct_FilenameDevice>& files, Messages& messages, Visit visit)
{
    std::size_t number = 0;
    for (std::size_t index = 0; index < files.size(); ++index) {
        const struct_FilenameDevice& file = files[index];
        const LostValues ofModules = lostModuleValuesOf(file); // once for all of its devices
        for (std::size_t place = 0; place < file.device.size(); ++place)
            visit(choices::DevicePosition(index, place), WarnedDevice(file, file.device[place], ++number, messages),
                  ofModules);
    }
}

} // namespace

void warnOfDevices(const std::vector<struct_FilenameDevice>& files, const std::set<choices::DevicePosition>& devices,
                   Messages& messages)
{
    forEachDevice(
        files, messages,
        [&](const choices::DevicePosition& position, const WarnedDevice& warned, const LostValues& ofModules) {
            if (devices.count(position) == 0)
                return;
            for (const ExportWarning warning : exportWarningsOf(warned.device()))
                warned.warn(textOf(warning, warned.device()));
            warnOfLost(warned, ofModules);
        });
}

void warnOfLostValues(const std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    forEachDevice(files, messages,
                  [](const choices::DevicePosition&, const WarnedDevice& warned, const LostValues& ofModules) {
                      warnOfLost(warned, ofModules);
                  });
}

} // namespace cli
