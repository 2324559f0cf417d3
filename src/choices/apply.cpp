#include "choices/apply.h"

#include "choices/linkChoices.h"
#include "choices/moduleChoices.h"
#include "choices/startupChoices.h"
#include "choices/words.h"
#include "editing/deviceEdits.h"
#include "editing/deviceLabel.h"
#include "editing/moduleEdits.h"
#include "esi/derivation/rangeErrors.h"
#include "model/deviceType.h"
#include "text/shownText.h"

#include <QDir>

#include <optional>
#include <stdexcept>

namespace choices {

namespace {

/// The one device that a choice names; nothing if it is not one, or was named before.
std::optional<DevicePosition> deviceOf(const DeviceChoices& choices, const DeviceSelectors& selectors,
                                       MadeChoices& made, Problems& problems)
{
    constexpr std::size_t maxCandidates = 5;
    const QString path = choices.path + QStringLiteral(".device");
    const MeantDevices meant = selectors.deviceOf(choices.device);
    if (!meant.problem.isEmpty()) {
        QStringList words{meant.problem};
        if (problems.count() < Problems::maxKept) // the others are not told
            words += selectors.candidatesOf(choices.device, maxCandidates);
        problems.add(meant.count == 0 ? ProblemCode::NoDevice : ProblemCode::SeveralDevices, path,
                     words.join(QStringLiteral("; ")));
        return std::nullopt;
    }
    const DevicePosition device = *meant.devices.begin();
    const auto [earlier, isNew] = made.chosen.insert({device, choices.path});
    if (isNew)
        return device;
    problems.add(ProblemCode::DeviceTwice, path,
                 QStringLiteral("%1 is the device of %2 already").arg(shownText(choices.device), earlier->second));
    return std::nullopt;
}

/// Makes the choices of one device, in the order of the tabs.
class DeviceEditing
{
public:
    /// @param modules  of the device's file
    DeviceEditing(struct_FilenameDevice& file, struct_EtherCatDevice& device, const ModuleLookUp& modules,
                  const DeviceChoices& choices, Problems& problems)
        : m_file(file)
        , m_device(device)
        , m_modules(modules)
        , m_choices(choices)
        , m_problems(problems)
    {}

    void run(DeviceClicks& clicks)
    {
        ModuleChanges changes;
        try {
            clicks.select(m_device);
            const bool isChanged =
                m_choices.deviceType.has_value() && clicks.chooseType(m_device, *m_choices.deviceType);
            chooseAxes();
            chooseMode();
            chooseIndexes();
            const std::size_t before = m_problems.count();
            makeModuleLinks(m_choices.moduleLinks, m_modules, m_problems);
            changes = makeModuleChoices(m_choices, m_device, m_modules, m_problems);
            m_isAdvised = (isChanged && isModuleListAdvised(m_device, ModulePreset::ChosenType))
                          || (changes.havePutIn && isModuleListAdvised(m_device, ModulePreset::PutInModule));
            if (m_problems.count() != before)
                return; // the rows of the lists follow from the modules
            changes.haveMovedRows = changes.haveMovedRows || isChanged;
        } catch (const std::out_of_range& error) {
            m_problems.add(ProblemCode::SyncManager, m_choices.path,
                           QDir::toNativeSeparators(inputPathOf(m_file)) + QStringLiteral(": ")
                               + rangeErrorText(error));
            return;
        }
        chooseRows(changes.haveMovedRows);
    }

    /// Whether the window would advise to let the coupler take its list of modules by itself.
    [[nodiscard]] bool isAdvised() const { return m_isAdvised; }

private:
    [[nodiscard]] QString pathOf(const char* key) const
    {
        return m_choices.path + QLatin1Char('.') + QLatin1String(key);
    }

    void refuse(const char* key, const QString& text) { m_problems.add(ProblemCode::Setting, pathOf(key), text); }

    void chooseAxes()
    {
        if (!m_choices.driveAxes.has_value() || *m_choices.driveAxes == m_device.m_iDriveAxies)
            return;
        if (m_device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
            setDriveAxes(m_device, *m_choices.driveAxes);
        else
            refuse("driveAxes",
                   QStringLiteral("a device of the type %1 has no axes to set, only %2 has; leave the key out")
                       .arg(deviceTypeName(m_device.m_iDeviceType), deviceTypeName(KTL_DEVICE_TYPE_MultiDriver)));
    }

    void chooseMode()
    {
        std::optional<std::size_t> position;
        if (m_choices.dcModePosition.has_value())
            position = *m_choices.dcModePosition;
        if (m_choices.dcModeName.has_value())
            position = modeNamed(*m_choices.dcModeName);
        if (position.has_value() && !chooseOperationMode(m_device, *position))
            refuse("dcMode", QStringLiteral("there is no mode %1, the device has %2")
                                 .arg(QString::number(*position), QString::number(m_device.vopmode.size())));
    }

    /// Position of the only mode with that name or description; tells if it is not one.
    std::optional<std::size_t> modeNamed(const QString& text)
    {
        const std::vector<std::size_t> positions = modesNamed(m_device.vopmode, text);
        if (positions.size() == 1)
            return positions.front();
        refuse("dcMode", positions.empty() ? QStringLiteral("%1 is no mode of the device").arg(shownText(text))
                                           : QStringLiteral("%1 modes are %2; their numbers tell them apart")
                                                 .arg(QString::number(positions.size()), shownText(text)));
        return std::nullopt;
    }

    void chooseIndexes()
    {
        const std::uint16_t configuration = m_choices.configIndex.value_or(m_device.configindex);
        const std::uint16_t detection = m_choices.detectIndex.value_or(m_device.detectindex);
        if (takesModuleIndexes(m_device.m_iDeviceType)) {
            setModuleIndexes(m_device, configuration, detection);
            return;
        }
        const QString words = QStringLiteral("a device of the type %1 has no module indexes; leave the key out")
                                  .arg(deviceTypeName(m_device.m_iDeviceType));
        if (configuration != m_device.configindex)
            refuse("configIndex", words);
        if (detection != m_device.detectindex)
            refuse("detectIndex", words);
    }

    /// @param haveMoved  whether the rows are no longer those of a template
    void chooseRows(bool haveMoved)
    {
        const std::size_t before = m_problems.count();
        makeLinks(m_choices.links, m_device, m_problems);
        makeStartupChoices(m_choices, m_device, m_problems);
        if (haveMoved)
            m_problems.explain(before, {ProblemCode::Check, ProblemCode::Row},
                               QStringLiteral(" (deviceType or modules have moved the rows: leave out the lines of a "
                                              "template that are not edited)"));
    }

    struct_FilenameDevice& m_file;
    struct_EtherCatDevice& m_device;
    const ModuleLookUp& m_modules;
    const DeviceChoices& m_choices;
    Problems& m_problems;
    bool m_isAdvised = false;
};

} // namespace

MadeChoices makeChoices(const std::vector<DeviceChoices>& choices, std::vector<struct_FilenameDevice>& files,
                        const DeviceSelectors& selectors, Problems& problems)
{
    MadeChoices made;
    DeviceClicks clicks;
    std::map<std::size_t, ModuleLookUp> modules; // of the files that have been chosen from
    for (const DeviceChoices& ofDevice : choices) {
        const std::optional<DevicePosition> position = deviceOf(ofDevice, selectors, made, problems);
        if (!position.has_value())
            continue;
        struct_FilenameDevice& file = files[position->first];
        const ModuleLookUp& ofFile = modules.try_emplace(position->first, file).first->second;
        DeviceEditing editing(file, file.device[position->second], ofFile, ofDevice, problems);
        editing.run(clicks);
        if (editing.isAdvised())
            made.couplers.push_back(*position);
    }
    return made;
}

} // namespace choices
