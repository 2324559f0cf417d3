#include "retrace/moduleRetrace.h"

#include "editing/moduleEdits.h"
#include "editing/slotPlaces.h"
#include "model/deviceType.h"
#include "retrace/moduleFillings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

namespace retrace {

namespace {

// How much speaks for and against a filling.
constexpr int samePdo = 100; ///< a PDO that is in the block
constexpr int sameEntries = 20; ///< and has the same entries
constexpr int sameLinks = 2; ///< and the same links
constexpr int gonePdo = -150; ///< a PDO that is not in the block: all its entries would have been removed
constexpr int sameCommand = 20; ///< a command that is in the block
constexpr int goneCommand = -40; ///< one that is not: it would have been removed or changed
constexpr int sameIdent = 300; ///< what the block presets
constexpr int otherIdent = -300;
constexpr int otherCount = -300; ///< not as many modules as the block presets
constexpr int unexplained = -120; ///< a PDO of the block that no module brings in
constexpr int oneChoice = -1; ///< nothing was done where nothing had to be done

/// What a block shows of the modules in a device.
class ShownModules
{
public:
    ShownModules(const struct_EtherCatDevice& device, const KtlDeviceBlock& block)
        : m_block(block)
    {
        splitPdos(device);
        for (std::size_t position = 0; position < block.coeCommands.size(); ++position)
            m_commands[keyOf(block.coeCommands[position])].push_back(position);
        readFixedIdents(device);
    }

    [[nodiscard]] const std::vector<const KtlPdo*>& outputs() const { return m_outputs; }
    [[nodiscard]] const std::vector<const KtlPdo*>& inputs() const { return m_inputs; }

    /// The first place from a given one on where a command stands; nothing if it stands nowhere there.
    [[nodiscard]] std::optional<std::size_t> placeOf(const struct_KTL_InitCmd& command, std::size_t from) const
    {
        const auto found = m_commands.find(keyOf(command));
        if (found == m_commands.end())
            return std::nullopt;
        const auto place = std::lower_bound(found->second.begin(), found->second.end(), from);
        return place == found->second.end() ? std::nullopt : std::make_optional(*place);
    }

    /// How well a module in a place fits the preset of the block.
    [[nodiscard]] int scoreOf(int place, const std::optional<std::uint32_t>& ident) const
    {
        if (!isPreset(place) || m_hiddenPlaces.count(place) != 0)
            return 0;
        const auto fixed = m_fixedIdents.find(place);
        const std::uint32_t ofFixed = fixed == m_fixedIdents.end() ? 0 : fixed->second;
        const std::uint32_t shown = m_block.preset->records[static_cast<std::size_t>(place)].m_iModuleIdent;
        return ident.value_or(ofFixed) == shown ? sameIdent : otherIdent;
    }

    /// Whether the modules of a place have to be counted: those of all places, where the idents do not tell the number.
    [[nodiscard]] bool isCounted(int place) const { return m_isCountNeeded && isPreset(place); }

    /// How well a number of counted modules fits the preset, which has the low 8 bits of the number.
    [[nodiscard]] int scoreOfCount(std::size_t count) const
    {
        const bool isOther = m_isCountNeeded && m_block.preset.has_value()
                             && static_cast<std::uint8_t>(count) != m_block.preset->head.m_iCountReal;
        return isOther ? otherCount : 0;
    }

private:
    using CommandKey = std::tuple<std::uint16_t, std::uint16_t, std::uint8_t, std::uint16_t, std::uint32_t>;

    [[nodiscard]] bool isPreset(int place) const
    {
        return m_block.preset.has_value() && place >= 0
               && static_cast<std::size_t>(place) < m_block.preset->records.size();
    }

    static CommandKey keyOf(const struct_KTL_InitCmd& command)
    {
        return {command.Transition, command.Index, command.SubIndex, command.DataBytes, command.Data};
    }

    /// The PDOs of modules come behind those of the device, outputs first.
    void splitPdos(const struct_EtherCatDevice& device)
    {
        if (!hasModulePdos(device.m_iDeviceType))
            return;
        struct_EtherCatDevice own;
        own.RxPdo = device.RxPdo;
        own.TxPdo = device.TxPdo;
        own.vSM = device.vSM;
        std::size_t next = 0;
        for (const DeclaredPdo& pdo : exportedPdosOf(own))
            if (next < m_block.pdos.size() && areSamePdo(pdo, m_block.pdos[next]))
                ++next;
        for (; next < m_block.pdos.size() && !m_block.pdos[next].isInput; ++next)
            m_outputs.push_back(&m_block.pdos[next]);
        for (; next < m_block.pdos.size(); ++next)
            m_inputs.push_back(&m_block.pdos[next]);
    }

    /// Default modules that bear the number of their slot where that is none of its places. The preset shows them
    /// instead of what is there, if it is in a slot before theirs; and of several modules in one place only one.
    void readFixedIdents(const struct_EtherCatDevice& device)
    {
        PlaceRange range;
        for (const struct_Slot& slot : device.Slots.vslot) {
            range.first = range.end;
            range.end = static_cast<std::uint16_t>(range.first + slot.Attributes.MaxInstances);
            std::set<int> filled;
            for (const struct_slotmodule& placed : slot.slotmodule) {
                if (!range.holds(placed.Instances))
                    m_fixedIdents[placed.Instances] = placed.module.TypeAttributes.ModuleIdent;
                const bool isHiding = placed.Instances < range.first;
                if (isHiding)
                    m_hiddenPlaces.insert(placed.Instances);
                m_isCountNeeded = m_isCountNeeded || isHiding || !filled.insert(placed.Instances).second;
            }
        }
    }

    const KtlDeviceBlock& m_block;
    std::vector<const KtlPdo*> m_outputs;
    std::vector<const KtlPdo*> m_inputs;
    std::map<CommandKey, std::vector<std::size_t>> m_commands; ///< where each command stands in the block
    std::map<int, std::uint32_t> m_fixedIdents; ///< by their numbers
    std::set<int> m_hiddenPlaces; ///< of which the preset shows such a module
    bool m_isCountNeeded = false; ///< the idents of the preset do not tell how many modules there are
};

/// How far the places that were looked at explain a block.
struct Progress
{
    std::size_t output = 0; ///< the first output PDO of the block that is not explained
    std::size_t input = 0;
    std::size_t command = 0;
    std::size_t count = 0; ///< of modules, where they are counted
    int score = 0;
    std::size_t way = 0; ///< its last choices

    [[nodiscard]] auto key() const { return std::make_tuple(output, input, command, count); }
};

/// Choices that have led to a progress, and the way to what was before.
struct Way
{
    std::size_t before;
    std::vector<choices::ModuleChoice> choices;
};

/// Goes from place to place and keeps the fillings that explain most of a block.
class ModuleSearch
{
public:
    explicit ModuleSearch(const ShownModules& shown)
        : m_shown(shown)
        , m_ways{{0, {}}}
        , m_progress(1)
    {}

    void visit(const FillablePlace& place)
    {
        m_place = place.place;
        // By what is explained: of two ways to the same point one is enough.
        std::map<decltype(Progress().key()), std::pair<Progress, const Filling*>> best;
        for (const Progress& before : m_progress)
            for (const Filling& filling : place.fillings) {
                const Progress after = progressBy(filling, before);
                const auto [found, isNew] = best.try_emplace(after.key(), after, &filling);
                if (!isNew && found->second.first.score < after.score)
                    found->second = {after, &filling};
            }
        keepBest(best);
    }

    /// All choices of the likeliest fillings, the best first.
    [[nodiscard]] std::vector<std::vector<choices::ModuleChoice>> results()
    {
        constexpr std::size_t maxResults = 8;
        for (Progress& progress : m_progress)
            progress.score += m_shown.scoreOfCount(progress.count)
                              + unexplained
                                    * static_cast<int>(m_shown.outputs().size() - progress.output
                                                       + m_shown.inputs().size() - progress.input);
        std::stable_sort(m_progress.begin(), m_progress.end(), isBetter);
        m_progress.resize(std::min(m_progress.size(), maxResults));
        std::vector<std::vector<choices::ModuleChoice>> results;
        for (const Progress& progress : m_progress)
            results.push_back(choicesOf(progress));
        return results;
    }

private:
    static bool isBetter(const Progress& left, const Progress& right) { return left.score > right.score; }

    [[nodiscard]] Progress progressBy(const Filling& filling, Progress progress) const
    {
        addPdos(filling.outputs, m_shown.outputs(), progress.output, progress.score);
        addPdos(filling.inputs, m_shown.inputs(), progress.input, progress.score);
        for (const struct_KTL_InitCmd& command : filling.commands) {
            const std::optional<std::size_t> place = m_shown.placeOf(command, progress.command);
            progress.score += place.has_value() ? sameCommand : goneCommand;
            progress.command = place.has_value() ? *place + 1 : progress.command;
        }
        progress.score += m_shown.scoreOf(m_place, filling.ident);
        progress.count += m_shown.isCounted(m_place) ? filling.count : 0;
        progress.score += oneChoice * static_cast<int>(filling.choices.size());
        return progress;
    }

    static void addPdos(const std::vector<DeclaredPdo>& brought, const std::vector<const KtlPdo*>& shown,
                        std::size_t& next, int& score)
    {
        for (const DeclaredPdo& pdo : brought) {
            if (next >= shown.size() || !areSamePdo(pdo, *shown[next])) {
                score += gonePdo;
                continue;
            }
            score += samePdo + likenessOf(pdo.entries, shown[next]->entries);
            ++next;
        }
    }

    static int likenessOf(const std::vector<struct_KTL_EntryPDOContent>& left,
                          const std::vector<struct_KTL_EntryPDOContent>& right)
    {
        if (!std::equal(left.begin(), left.end(), right.begin(), right.end(), areSameEntry))
            return 0;
        const bool haveSameLinks =
            std::equal(left.begin(), left.end(), right.begin(), right.end(),
                       [](const auto& one, const auto& other) { return one.LinkToData == other.LinkToData; });
        return haveSameLinks ? sameEntries + sameLinks : sameEntries;
    }

    template<typename Best> void keepBest(const Best& best)
    {
        constexpr std::size_t maxKept = 64;
        std::vector<std::pair<Progress, const Filling*>> sorted;
        sorted.reserve(best.size());
        for (const auto& [key, found] : best)
            sorted.push_back(found);
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const auto& left, const auto& right) { return isBetter(left.first, right.first); });
        sorted.resize(std::min(sorted.size(), maxKept));
        m_progress.clear();
        for (auto& [progress, filling] : sorted) {
            if (!filling->choices.empty()) {
                m_ways.push_back({progress.way, filling->choices});
                progress.way = m_ways.size() - 1;
            }
            m_progress.push_back(progress);
        }
    }

    [[nodiscard]] std::vector<choices::ModuleChoice> choicesOf(const Progress& progress) const
    {
        std::vector<choices::ModuleChoice> made;
        for (std::size_t way = progress.way; way != 0; way = m_ways[way].before)
            made.insert(made.begin(), m_ways[way].choices.begin(), m_ways[way].choices.end());
        return made;
    }

    const ShownModules& m_shown;
    std::vector<Way> m_ways; ///< the first one is that of the beginning
    std::vector<Progress> m_progress;
    int m_place = 0; ///< that is looked at
};

} // namespace

std::vector<std::vector<choices::ModuleChoice>>
likelyModules(const struct_EtherCatDevice& device, const std::vector<NamedModule>& modules, const KtlDeviceBlock& block)
{
    if (moduleRefusal(device.m_iDeviceType).has_value() || device.Slots.vslot.empty())
        return {{}};
    const ShownModules shown(device, block);
    ModuleSearch search(shown);
    if (!forEachFillablePlace(device, modules, [&](const FillablePlace& place) { search.visit(place); }))
        return {{}};
    return search.results();
}

} // namespace retrace
