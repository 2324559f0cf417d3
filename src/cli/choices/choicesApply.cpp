#include "cli/choices/choicesApply.h"

#include "cli/choices/choicesOfLists.h"
#include "cli/choices/choicesWords.h"
#include "cli/choices/moduleLookUp.h"
#include "cli/deviceSelectors.h"
#include "cli/inputFile.h"
#include "cli/messages.h"
#include "editing/deviceEdits.h"
#include "editing/deviceTypeTexts.h"
#include "editing/moduleEdits.h"
#include "editing/slotPlaces.h"
#include "model/deviceType.h"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

namespace {

using ChosenDevices = std::map<DevicePosition, QString>; // the place in the choices file of each

/// The one device that a choice names; nothing if it is not one, or was named before.
std::optional<DevicePosition> deviceOf(const DeviceChoices& choices, const DeviceSelectors& selectors,
                                       ChosenDevices& chosen, Problems& problems)
{
    constexpr std::size_t maxCandidates = 5;
    const QString path = choices.path + QStringLiteral(".device");
    const MeantDevices meant = selectors.deviceOf(choices.device);
    if (!meant.problem.isEmpty()) {
        QStringList words{meant.problem};
        if (problems.count() < Messages::maxListed) // the others are not told
            words += selectors.candidatesOf(choices.device, maxCandidates);
        problems.add(path, words.join(QStringLiteral("; ")));
        return std::nullopt;
    }
    const DevicePosition device = *meant.devices.begin();
    const auto [place, isNew] = chosen.insert({device, choices.path});
    if (isNew)
        return device;
    problems.add(path, QStringLiteral("%1 is the device of %2 already").arg(quoted(choices.device), place->second));
    return std::nullopt;
}

/// Makes the choices of one device, in the order of the tabs.
class DeviceEditing
{
public:
    DeviceEditing(struct_FilenameDevice& file, struct_EtherCatDevice& device, const DeviceChoices& choices,
                  Problems& problems)
        : m_file(file)
        , m_device(device)
        , m_choices(choices)
        , m_problems(problems)
    {}

    void run(DeviceClicks& clicks)
    {
        try {
            clicks.select(m_device);
            if (m_choices.deviceType.has_value())
                chooseType(clicks);
            chooseAxes();
            chooseMode();
            chooseIndexes();
            const std::size_t before = m_problems.count();
            makeModuleLinks(m_choices.moduleLinks, m_file, m_problems);
            chooseModules();
            if (m_problems.count() != before)
                return; // the rows of the lists follow from the modules
        } catch (const std::out_of_range& error) {
            m_problems.add(m_choices.path, shownName(QString::fromStdString(m_file.xmlfilepath)) + QStringLiteral(": ")
                                               + rangeErrorText(error));
            return;
        }
        makeLinks(m_choices.links, m_device, m_problems);
        makeStartupChoices(m_choices, m_device, m_problems);
    }

    /// What the window would warn of, each text once.
    [[nodiscard]] const std::set<QString>& warnings() const { return m_warnings; }

private:
    [[nodiscard]] QString pathOf(const char* key) const
    {
        return m_choices.path + QLatin1Char('.') + QLatin1String(key);
    }

    void warnOfModuleList()
    {
        if (m_device.Slots.Attributes.DownloadModuleIdentList)
            m_warnings.insert(moduleListAdvice(m_device));
    }

    void chooseType(DeviceClicks& clicks)
    {
        if (clicks.chooseType(m_device, *m_choices.deviceType)
            && m_device.m_iDeviceType == KTL_DEVICE_TYPE_ManualIOBlock)
            warnOfModuleList();
    }

    void chooseAxes()
    {
        if (!m_choices.driveAxes.has_value())
            return;
        if (m_device.m_iDeviceType == KTL_DEVICE_TYPE_MultiDriver)
            setDriveAxes(m_device, *m_choices.driveAxes);
        else
            m_problems.add(
                pathOf("driveAxes"),
                QStringLiteral("a device of the type %1 has no axes to set, only %2 has")
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
            m_problems.add(pathOf("dcMode"),
                           QStringLiteral("there is no mode %1, the device has %2")
                               .arg(QString::number(*position), QString::number(m_device.vopmode.size())));
    }

    /// Position of the only mode with that name or description; tells if it is not one.
    std::optional<std::size_t> modeNamed(const QString& text)
    {
        const std::vector<std::size_t> positions = modesNamed(m_device.vopmode, text);
        if (positions.size() == 1)
            return positions.front();
        m_problems.add(pathOf("dcMode"), positions.empty()
                                             ? QStringLiteral("%1 is no mode of the device").arg(quoted(text))
                                             : QStringLiteral("%1 modes are %2; their numbers tell them apart")
                                                   .arg(QString::number(positions.size()), quoted(text)));
        return std::nullopt;
    }

    void chooseIndexes()
    {
        if (takesModuleIndexes(m_device.m_iDeviceType)) {
            setModuleIndexes(m_device, m_choices.configIndex.value_or(m_device.configindex),
                             m_choices.detectIndex.value_or(m_device.detectindex));
            return;
        }
        const auto refuse = [this](const char* key) {
            m_problems.add(pathOf(key), QStringLiteral("a device of the type %1 has no module indexes")
                                            .arg(deviceTypeName(m_device.m_iDeviceType)));
        };
        if (m_choices.configIndex.has_value())
            refuse("configIndex");
        if (m_choices.detectIndex.has_value())
            refuse("detectIndex");
    }

    void chooseModules()
    {
        if (m_choices.modules.empty())
            return;
        const QString refusal = moduleRefusal(m_device.m_iDeviceType);
        if (!refusal.isEmpty()) {
            m_problems.add(pathOf("modules"), refusal);
            return;
        }
        std::set<std::uint32_t> places;
        for (const ModuleChoice& choice : m_choices.modules) {
            const struct_Slot* const slot = slotAt(m_device.Slots, static_cast<int>(choice.place));
            if (slot == nullptr)
                m_problems.add(choice.path + QStringLiteral(".place"),
                               QStringLiteral("the device has no place %1").arg(choice.place));
            else if (!places.insert(choice.place).second)
                m_problems.add(choice.path + QStringLiteral(".place"),
                               QStringLiteral("place %1 is filled twice").arg(choice.place));
            else
                chooseModule(choice, *slot);
        }
        renewModuleData(m_device);
    }

    void chooseModule(const ModuleChoice& choice, const struct_Slot& slot)
    {
        const int place = static_cast<int>(choice.place);
        if (!choice.module.has_value()) {
            removeModule(m_device, place);
            return;
        }
        const bool standsThere =
            std::any_of(slot.slotmodule.begin(), slot.slotmodule.end(), [&](const struct_slotmodule& standing) {
                return standing.Instances == place && isNamed(standing.module, *choice.module);
            });
        const FoundModule found = moduleNamed(m_file, *choice.module);
        if (standsThere && found.module == nullptr)
            return; // one of several of that ident or name; it stays
        const QString refusal = found.module == nullptr ? found.problem : insertModule(m_device, place, *found.module);
        if (!refusal.isEmpty())
            m_problems.add(choice.path + QStringLiteral(".module"), refusal);
        if (!standsThere)
            warnOfModuleList();
    }

    struct_FilenameDevice& m_file;
    struct_EtherCatDevice& m_device;
    const DeviceChoices& m_choices;
    Problems& m_problems;
    std::set<QString> m_warnings;
};

} // namespace

std::vector<ChoiceWarning> makeChoices(const std::vector<DeviceChoices>& choices,
                                       std::vector<struct_FilenameDevice>& files, Problems& problems)
{
    std::vector<ChoiceWarning> warnings;
    DeviceClicks clicks;
    ChosenDevices chosen;
    const DeviceSelectors selectors(files);
    for (const DeviceChoices& ofDevice : choices) {
        const std::optional<DevicePosition> position = deviceOf(ofDevice, selectors, chosen, problems);
        if (!position.has_value())
            continue;
        struct_FilenameDevice& file = files[position->first];
        DeviceEditing editing(file, file.device[position->second], ofDevice, problems);
        editing.run(clicks);
        for (const QString& warning : editing.warnings())
            warnings.push_back({QString::fromStdString(file.xmlfilepath), warning});
    }
    return warnings;
}
