#include "choices/apply.h"

#include "choices/entryChoices.h"
#include "choices/linkChoices.h"
#include "choices/moduleChoices.h"
#include "choices/startupChoices.h"
#include "choices/syncManagerChoices.h"
#include "choices/words.h"
#include "editing/deviceEdits.h"
#include "editing/deviceLabel.h"
#include "editing/moduleEdits.h"
#include "esi/derivation/rangeErrors.h"
#include "model/deviceType.h"
#include "text/shownText.h"

#include <QDir>

#include <optional>
#include <set>
#include <stdexcept>

namespace choices {

namespace {

/// Finds devices by selectors that mean one each, and each device once.
class NamedDevices
{
public:
    NamedDevices(const DeviceSelectors& selectors, Problems& problems)
        : m_selectors(selectors)
        , m_problems(problems)
    {}

    /// The device that a selector means; nothing if it is not one, or was named before.
    /// @param path   of the selector
    /// @param place  what it is part of, for the message of another one that means the same device
    std::optional<DevicePosition> named(const QString& selector, const QString& path, const QString& place)
    {
        constexpr std::size_t maxCandidates = 5;
        const MeantDevices meant = m_selectors.deviceOf(selector);
        if (!meant.problem.isEmpty()) {
            QStringList words{meant.problem};
            if (m_problems.count() < Problems::maxKept) // the others are not told
                words += m_selectors.candidatesOf(selector, maxCandidates);
            m_problems.add(meant.count == 0 ? ProblemCode::NoDevice : ProblemCode::SeveralDevices, path,
                           words.join(QStringLiteral("; ")));
            return std::nullopt;
        }
        const DevicePosition device = *meant.devices.begin();
        const auto [earlier, isNew] = m_places.insert({device, place});
        if (isNew)
            return device;
        m_problems.add(ProblemCode::DeviceTwice, path,
                       QStringLiteral("%1 is the device of %2 already").arg(shownText(selector), earlier->second));
        return std::nullopt;
    }

    /// The devices found, and where they are named.
    [[nodiscard]] const std::map<DevicePosition, QString>& places() const { return m_places; }

private:
    const DeviceSelectors& m_selectors;
    Problems& m_problems;
    std::map<DevicePosition, QString> m_places;
};

/// The devices to write.
std::set<DevicePosition> exportedBy(const std::vector<QString>& exported, const DeviceSelectors& selectors,
                                    Problems& problems)
{
    NamedDevices devices(selectors, problems);
    std::set<DevicePosition> positions;
    for (std::size_t number = 0; number < exported.size(); ++number) {
        const QString path = QStringLiteral("export[%1]").arg(number);
        if (const std::optional<DevicePosition> device = devices.named(exported[number], path, path))
            positions.insert(*device);
    }
    return positions;
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
        , m_loaded(typeAndAxesOf(device))
    {}

    void run(DeviceClicks& clicks)
    {
        try {
            if (m_choices.isClicked)
                clicks.select(m_device);
            if (m_choices.takesModuleList.has_value())
                setTakesModuleList(m_device, *m_choices.takesModuleList);
            const bool isChanged = m_choices.deviceType.has_value() && chooseType(clicks, *m_choices.deviceType);
            if (!m_choices.lastType.has_value())
                chooseAxes();
            chooseModes();
            chooseIndexes();
            chooseModulesAndRows(isChanged && m_choices.isClicked);
        } catch (const std::out_of_range& error) {
            m_problems.add(ProblemCode::SyncManager, m_choices.path,
                           QDir::toNativeSeparators(inputPathOf(m_file)) + QStringLiteral(": ")
                               + rangeErrorText(error));
        }
        if (m_choices.lastType.has_value()) {
            chooseLastType(clicks, *m_choices.lastType);
            chooseAxes();
        }
    }

    /// Whether the window would advise to let the coupler take its list of modules by itself.
    [[nodiscard]] bool isAdvised() const { return m_isAdvised; }

private:
    [[nodiscard]] QString pathOf(const char* key) const
    {
        return m_choices.path + QLatin1Char('.') + QLatin1String(key);
    }

    void refuse(const char* key, const QString& text) { m_problems.add(ProblemCode::Setting, pathOf(key), text); }

    /// @return  whether the device has another type then
    bool chooseType(DeviceClicks& clicks, std::uint16_t type)
    {
        const bool isChanged = m_choices.isClicked ? clicks.chooseType(m_device, type) : m_device.m_iDeviceType != type;
        if (!m_choices.isClicked)
            setDeviceType(m_device, type);
        m_isAdvised = isChanged && isModuleListAdvised(m_device, ModulePreset::ChosenType);
        return isChanged;
    }

    void chooseLastType(DeviceClicks& clicks, std::uint16_t type)
    {
        const bool isChanged = m_device.m_iDeviceType != type;
        if (m_choices.isClicked)
            clicks.chooseTypeOnly(m_device, type);
        else
            setDeviceType(m_device, type);
        m_isAdvised = m_isAdvised || (isChanged && isModuleListAdvised(m_device, ModulePreset::ChosenType));
    }

    void chooseAxes()
    {
        if (!m_choices.driveAxes.has_value() || chooseDriveAxes(m_device, *m_choices.driveAxes, m_loaded))
            return;
        QStringList taken;
        for (const std::uint16_t axes : axesOfClicks(m_device, m_loaded))
            taken += QString::number(axes);
        refuse("driveAxes", QStringLiteral("a device of the type %1 takes only %2 here, only %3 takes any number of "
                                           "axes; leave the key out")
                                .arg(deviceTypeName(m_device.m_iDeviceType), taken.join(QStringLiteral(" or ")),
                                     deviceTypeName(KTL_DEVICE_TYPE_MultiDriver)));
    }

    void chooseModes()
    {
        const std::vector<ModeName>& modes = m_choices.dcModes;
        for (std::size_t number = 0; number < modes.size(); ++number)
            chooseMode(modes[number], modes.size() == 1 ? QByteArray("dcMode")
                                                        : "dcMode[" + QByteArray::number(qulonglong{number}) + ']');
    }

    /// @param key  of the choice
    void chooseMode(const ModeName& mode, const QByteArray& key)
    {
        const std::optional<std::size_t> position =
            mode.position.has_value() ? std::make_optional<std::size_t>(*mode.position) : modeNamed(mode.name, key);
        if (position.has_value() && !chooseOperationMode(m_device, *position))
            refuse(key, QStringLiteral("there is no mode %1, the device has %2")
                            .arg(QString::number(*position), QString::number(m_device.vopmode.size())));
    }

    /// Position of the only mode with that name or description; tells if it is not one.
    std::optional<std::size_t> modeNamed(const QString& text, const QByteArray& key)
    {
        const std::vector<std::size_t> positions = modesNamed(m_device.vopmode, text);
        if (positions.size() == 1)
            return positions.front();
        refuse(key, positions.empty() ? QStringLiteral("%1 is no mode of the device").arg(shownText(text))
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

    /// @param isTypeChanged  whether a change of type has made the rows again
    void chooseModulesAndRows(bool isTypeChanged)
    {
        const std::size_t before = m_problems.count();
        makeModuleLinks(m_choices.moduleLinks, m_modules, m_problems);
        const ModuleChanges changes = makeModuleChoices(m_choices, m_device, m_modules, m_problems);
        m_isAdvised = m_isAdvised || (changes.havePutIn && isModuleListAdvised(m_device, ModulePreset::PutInModule));
        if (m_problems.count() == before) // the rows of the lists follow from the modules
            chooseRows(changes.haveMovedRows || isTypeChanged);
    }

    /// @param haveMoved  whether the rows are no longer those of a template
    void chooseRows(bool haveMoved)
    {
        makeSyncManagerChoices(m_choices, m_device, m_problems);
        const std::size_t before = m_problems.count();
        makeLinks(m_choices.links, m_device, m_problems);
        makeEntryChoices(m_choices, m_device, m_problems);
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
    TypeAndAxes m_loaded;
    bool m_isAdvised = false;
};

} // namespace

bool makeDeviceChoices(const DeviceChoices& choices, struct_FilenameDevice& file, struct_EtherCatDevice& device,
                       const ModuleLookUp& modules, DeviceClicks& clicks, Problems& problems)
{
    DeviceEditing editing(file, device, modules, choices, problems);
    editing.run(clicks);
    return editing.isAdvised();
}

MadeChoices makeChoices(const FileChoices& choices, std::vector<struct_FilenameDevice>& files,
                        const DeviceSelectors& selectors, Problems& problems)
{
    MadeChoices made;
    if (choices.exported.has_value())
        made.exported = exportedBy(*choices.exported, selectors, problems);
    NamedDevices devices(selectors, problems);
    DeviceClicks clicks;
    std::map<std::size_t, ModuleLookUp> modules; // of the files that have been chosen from
    for (const DeviceChoices& ofDevice : choices.devices) {
        const std::optional<DevicePosition> position =
            devices.named(ofDevice.device, ofDevice.path + QStringLiteral(".device"), ofDevice.path);
        if (!position.has_value())
            continue;
        struct_FilenameDevice& file = files[position->first];
        const ModuleLookUp& ofFile = modules.try_emplace(position->first, file).first->second;
        if (makeDeviceChoices(ofDevice, file, file.device[position->second], ofFile, clicks, problems))
            made.couplers.push_back(*position);
    }
    made.chosen = devices.places();
    return made;
}

} // namespace choices
