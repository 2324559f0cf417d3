#include "choices/moduleChoices.h"

#include "choices/words.h"
#include "editing/moduleData.h"
#include "editing/moduleEdits.h"
#include "editing/slotPlaces.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <algorithm>
#include <cstddef>
#include <map>

namespace choices {

namespace {

/// Why a type has no modules to put in; `moduleRefusal` says which of the types those are.
QString typeWords(ModuleRefusal refusal, std::uint16_t type)
{
    const QString reason = refusal == ModuleRefusal::TypeFindsModules ? QStringLiteral("finds its modules at power-on")
                                                                      : QStringLiteral("has no modules");
    return QStringLiteral("a device of the type %1 %2; leave the list out, or set a deviceType that takes modules by "
                          "hand (%3)")
        .arg(deviceTypeName(type), reason, typesThatTakeModules().join(QStringLiteral(", ")));
}

/// The idents that a slot names, the first ones of many.
QString identsOf(const struct_Slot& slot)
{
    constexpr std::size_t maxShown = 8;
    QStringList idents;
    for (std::size_t position = 0; position < std::min(slot.ModuleIdent.size(), maxShown); ++position)
        idents += hexNumber(slot.ModuleIdent[position].ModuleIdent);
    const QString shown = idents.join(QStringLiteral(", "));
    return slot.ModuleIdent.size() <= maxShown
               ? shown
               : QStringLiteral("%1 and %2 more").arg(shown, QString::number(slot.ModuleIdent.size() - maxShown));
}

QString misfitWords(const struct_module& module, std::uint32_t place, const struct_Slot& slot)
{
    return QStringLiteral("%1 does not fit place %2, slot %3 takes %4")
        .arg(moduleLabel(module), QString::number(place), shownText(QString::fromStdString(slot.Name)), identsOf(slot));
}

/// How many modules stand at a place.
std::ptrdiff_t countAt(const struct_Slot& slot, int place)
{
    return std::count_if(slot.slotmodule.begin(), slot.slotmodule.end(),
                         [place](const struct_slotmodule& placed) { return placed.Instances == place; });
}

/// How often a place is named.
struct FilledPlace
{
    std::ptrdiff_t count = 0;
    std::ptrdiff_t most = 0;
};

/// Makes one choice.
class ModulePlacing
{
public:
    ModulePlacing(struct_EtherCatDevice& device, const ModuleLookUp& modules, Problems& problems)
        : m_device(device)
        , m_modules(modules)
        , m_problems(problems)
    {}

    void make(const ModuleChoice& choice)
    {
        const QString path = choice.path + QStringLiteral(".place");
        const struct_Slot* const slot = slotAt(m_device.Slots, static_cast<int>(choice.place));
        if (slot == nullptr)
            m_problems.add(ProblemCode::ModulePlace, path,
                           QStringLiteral("the device has no place %1").arg(choice.place));
        else if (!mayFill(choice.place, *slot))
            m_problems.add(ProblemCode::ModulePlace, path, fillWords(choice.place));
        else if (choice.module.has_value())
            put(choice, *slot);
        else
            take(choice, *slot);
    }

    [[nodiscard]] const ModuleChanges& changes() const { return m_changes; }

private:
    /// Whether a place may be named once more. It may be as often as modules stood in it before the first choice, since
    /// a slot can have several default modules at one place; and once in any case.
    bool mayFill(std::uint32_t place, const struct_Slot& slot)
    {
        const auto [found, isNew] = m_places.try_emplace(place);
        FilledPlace& filled = found->second;
        if (isNew)
            filled.most = std::max(countAt(slot, static_cast<int>(place)), std::ptrdiff_t{1});
        return ++filled.count <= filled.most;
    }

    [[nodiscard]] QString fillWords(std::uint32_t place) const
    {
        const std::ptrdiff_t most = m_places.at(place).most;
        return most == 1 ? QStringLiteral("place %1 is filled twice").arg(place)
                         : QStringLiteral("place %1 is filled more often than %2 times, it has so many modules")
                               .arg(QString::number(place), QString::number(most));
    }

    void take(const ModuleChoice& choice, const struct_Slot& slot)
    {
        const int place = static_cast<int>(choice.place);
        m_changes.haveMovedRows = m_changes.haveMovedRows || countAt(slot, place) > 0;
        removeModule(m_device, place);
    }

    void put(const ModuleChoice& choice, const struct_Slot& slot)
    {
        const int place = static_cast<int>(choice.place);
        const bool isThere = standsAt(slot, place, *choice.module);
        const FoundModule found = m_modules.named(*choice.module);
        if (isThere && found.module == nullptr)
            return; // one of several of that ident or name; it stays
        const QString path = choice.path + QLatin1Char('.') + found.key;
        if (found.module == nullptr) {
            m_problems.add(found.code, path, found.problem);
        } else if (insertModule(m_device, place, *found.module).has_value()) {
            m_problems.add(ProblemCode::ModulePlace, path, misfitWords(*found.module, choice.place, slot));
        } else if (!isThere) {
            m_changes.havePutIn = true;
            m_changes.haveMovedRows = true;
        }
    }

    /// Whether the module that would be replaced is the named one already. Which of several of that ident or name it
    /// is does not show: where a row tells them apart, it is another one.
    [[nodiscard]] bool standsAt(const struct_Slot& slot, int place, const ModuleName& name) const
    {
        const auto first = std::find_if(slot.slotmodule.begin(), slot.slotmodule.end(),
                                        [place](const struct_slotmodule& placed) { return placed.Instances == place; });
        if (first == slot.slotmodule.end() || !isNamed(first->module, name))
            return false;
        return !name.row.has_value() || m_modules.named({name.ident, name.name}).module != nullptr;
    }

    struct_EtherCatDevice& m_device;
    const ModuleLookUp& m_modules;
    Problems& m_problems;
    std::map<std::uint32_t, FilledPlace> m_places;
    ModuleChanges m_changes;
};

} // namespace

ModuleChanges makeModuleChoices(const DeviceChoices& choices, struct_EtherCatDevice& device,
                                const ModuleLookUp& modules, Problems& problems)
{
    if (choices.modules.empty())
        return {};
    if (const std::optional<ModuleRefusal> refusal = moduleRefusal(device.m_iDeviceType)) {
        problems.add(ProblemCode::ModuleType, choices.path + QStringLiteral(".modules"),
                     typeWords(*refusal, device.m_iDeviceType));
        return {};
    }
    ModulePlacing placing(device, modules, problems);
    for (const ModuleChoice& choice : choices.modules)
        placing.make(choice);
    renewModuleData(device);
    return placing.changes();
}

} // namespace choices
