#include "retrace/moduleRetrace.h"

#include "editing/moduleEdits.h"
#include "retrace/entryAlignment.h"
#include "retrace/moduleFillings.h"
#include "retrace/shownModules.h"
#include "retrace/startupEdits.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

namespace retrace {

namespace {

// How much speaks for and against a filling.
constexpr int samePdo = 100; ///< a PDO that is in the block
constexpr int sameEntries = 40; ///< and has the same entries
constexpr int sameLinks = 2; ///< and the same links
constexpr int editedEntry =
    -2; ///< or not quite the same, for each edit; there are never so many that others count more
constexpr int gonePdo = -70; ///< a PDO that is not in the block: all its entries would have been removed
constexpr int mentionedPdo = 60; ///< a PDO that the commands of the block assign or map
constexpr int sameCommand = 20; ///< a command that is in the block
constexpr int changedCommand = 5; ///< one of the same object with another value
constexpr int goneCommand = -40; ///< one that is not there: it would have been removed, or made another one
constexpr int sameIdent = 300; ///< what the block presets
constexpr int otherIdent = -300;
constexpr int otherCount = -300; ///< not as many modules as the block presets
constexpr int otherLength = -500; ///< of a sync manager
constexpr int unexplainedCommand = -60; ///< of the block, that only a module can have brought in
constexpr int unexplained = -120; ///< a PDO of the block that no module brings in
constexpr int oneChoice = -1; ///< nothing was done where nothing had to be done

/// How far the places that were looked at explain a block.
struct Progress
{
    std::size_t output = 0; ///< the first output PDO of the block that is not explained
    std::size_t input = 0;
    std::size_t command = 0;
    std::size_t goneCommands = 0; ///< at most 2: more need not be told apart
    std::size_t unaddable = 0; ///< commands that were brought in and that no one can add by hand
    std::size_t count = 0; ///< of modules, where they are counted
    std::vector<float> lengths; ///< of the sync managers, with the PDOs that were brought in so far
    int score = 0;
    int outlook = 0; ///< what is known to speak against it later on
    std::size_t way = 0; ///< its last choices

    [[nodiscard]] auto key() const { return std::tie(output, input, command, goneCommands, unaddable, count, lengths); }
};

/// Of two ways to the same point one is enough.
struct ByPoint
{
    bool operator()(const Progress& left, const Progress& right) const { return left.key() < right.key(); }
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
    ModuleSearch(const ShownModules& shown, const SearchWidth& width)
        : m_shown(shown)
        , m_width(width)
        , m_ways{{0, {}}}
        , m_progress(1)
    {
        m_progress.front().lengths = shown.lengths();
    }

    void visit(const FillablePlace& place)
    {
        m_place = place.place;
        std::map<Progress, Reached, ByPoint> best;
        for (const Progress& before : m_progress)
            for (const Filling& filling : place.fillings) {
                const Progress after = progressBy(filling, before);
                const auto [found, isNew] = best.try_emplace(after, Reached{after.score, after.way, &filling});
                if (!isNew && found->second.score < after.score)
                    found->second = {after.score, after.way, &filling};
            }
        keepBest(best, place.fixedAfter);
    }

    /// All choices of the likeliest fillings, the best first.
    [[nodiscard]] std::vector<std::vector<choices::ModuleChoice>> results()
    {
        for (Progress& progress : m_progress) {
            const std::size_t left =
                m_shown.outputs().size() - progress.output + m_shown.inputs().size() - progress.input;
            progress.outlook = 0;
            progress.score += unexplained * static_cast<int>(left);
            if (m_shown.commandsOfModules() > progress.unaddable)
                progress.score +=
                    unexplainedCommand * static_cast<int>(m_shown.commandsOfModules() - progress.unaddable);
            progress.score += m_shown.isOtherCount(progress.count) ? otherCount : 0;
            progress.score += otherLength * static_cast<int>(m_shown.otherLengths(progress.lengths));
        }
        std::stable_sort(m_progress.begin(), m_progress.end(), isBetter);
        m_progress.resize(std::min(m_progress.size(), m_width.results));
        std::vector<std::vector<choices::ModuleChoice>> results;
        for (const Progress& progress : m_progress)
            results.push_back(choicesOf(progress));
        return results;
    }

private:
    /// The best way to a point.
    struct Reached
    {
        int score;
        std::size_t way; ///< before the place
        const Filling* filling; ///< of the place
    };

    static bool isBetter(const Progress& left, const Progress& right)
    {
        return left.score + left.outlook > right.score + right.outlook;
    }

    /// What speaks against a progress already: lengths that grow past those of the block, and PDOs of modules that
    /// cannot be taken out for which none are left in the block.
    [[nodiscard]] int outlookOf(const Progress& progress, const FixedShare& after) const
    {
        const auto missing = [](std::size_t left, std::size_t needed) {
            return static_cast<int>(needed - std::min(left, needed));
        };
        const std::size_t tooLong = m_shown.shorterLengths(progress.lengths, after.lengths);
        return otherLength * static_cast<int>(tooLong)
               + unexplained
                     * (missing(m_shown.outputs().size() - progress.output, after.outputs)
                        + missing(m_shown.inputs().size() - progress.input, after.inputs));
    }

    [[nodiscard]] Progress progressBy(const Filling& filling, Progress progress)
    {
        addPdos(filling.outputs, m_shown.outputs(), progress.output, progress.score);
        addPdos(filling.inputs, m_shown.inputs(), progress.input, progress.score);
        for (const BroughtPdo& pdo : filling.brought) {
            if (pdo.size != 0)
                progress.lengths[static_cast<std::size_t>(pdo.syncManager)] += pdo.size;
            progress.score += m_shown.mentions(pdo) ? mentionedPdo : 0;
        }
        for (const struct_KTL_InitCmd& command : filling.commands) {
            addCommand(m_shown.placeOf(command, progress.command), progress);
            progress.unaddable += canBeAdded(command) ? 0 : 1;
        }
        if (const std::optional<bool> fits = m_shown.isPreset(m_place, filling.ident))
            progress.score += *fits ? sameIdent : otherIdent;
        progress.count += m_shown.isCounted(m_place) ? filling.count : 0;
        progress.score += oneChoice * static_cast<int>(filling.choices.size());
        return progress;
    }

    /// @param found  where a command of a module stands in the block
    static void addCommand(const std::optional<ShownModules::CommandPlace>& found, Progress& progress)
    {
        constexpr std::size_t maxGone = 2;
        if (found.has_value()) {
            progress.score += found->isChanged ? changedCommand : sameCommand;
            progress.command = found->place + 1;
        } else {
            progress.score += goneCommand;
            progress.goneCommands = std::min(progress.goneCommands + 1, maxGone);
        }
    }

    /// Finds PDOs in the block, one after another. One whose entries no one can have edited to those of the block is
    /// not the one that is there.
    void addPdos(const std::vector<DeclaredPdo>& brought, const std::vector<const KtlPdo*>& shown, std::size_t& next,
                 int& score)
    {
        for (const DeclaredPdo& pdo : brought) {
            const bool isShown = next < shown.size() && areSamePdo(pdo, *shown[next]);
            const Cost edits = isShown ? m_entries.costOf(pdo, *shown[next]) : impossible;
            if (edits >= impossible) {
                score += gonePdo;
                continue;
            }
            score += samePdo + likenessOf(pdo, *shown[next], edits);
            ++next;
        }
    }

    static int likenessOf(const DeclaredPdo& pdo, const KtlPdo& shown, Cost edits)
    {
        constexpr Cost maxEdits = 20;
        if (edits > 0)
            return sameEntries + editedEntry * static_cast<int>(std::min(edits, maxEdits));
        const bool haveSameLinks =
            std::equal(pdo.entries.begin(), pdo.entries.end(), shown.entries.begin(), shown.entries.end(),
                       [](const auto& one, const auto& other) { return one.LinkToData == other.LinkToData; });
        return haveSameLinks ? sameEntries + sameLinks : sameEntries;
    }

    void keepBest(const std::map<Progress, Reached, ByPoint>& best, const FixedShare& fixedAfter)
    {
        std::vector<std::pair<Progress, const Filling*>> sorted;
        sorted.reserve(best.size());
        for (const auto& [progress, reached] : best) {
            sorted.emplace_back(progress, reached.filling);
            sorted.back().first.score = reached.score;
            sorted.back().first.way = reached.way;
            sorted.back().first.outlook = outlookOf(progress, fixedAfter);
        }
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const auto& left, const auto& right) { return isBetter(left.first, right.first); });
        sorted.resize(std::min(sorted.size(), m_width.kept));
        m_progress.clear();
        for (auto& [progress, filling] : sorted) {
            if (!filling->choices.empty()) {
                m_ways.push_back({progress.way, filling->choices});
                progress.way = m_ways.size() - 1;
            }
            m_progress.push_back(std::move(progress));
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
    SearchWidth m_width;
    EntryComparison m_entries;
    std::vector<Way> m_ways; ///< the first one is that of the beginning
    std::vector<Progress> m_progress;
    int m_place = 0; ///< that is looked at
};

} // namespace

std::vector<std::vector<choices::ModuleChoice>> likelyModules(const struct_EtherCatDevice& device,
                                                              const std::vector<NamedModule>& modules,
                                                              const KtlDeviceBlock& block, const SearchWidth& width)
{
    if (moduleRefusal(device.m_iDeviceType).has_value() || device.Slots.vslot.empty())
        return {{}};
    const ShownModules shown(device, block);
    ModuleSearch search(shown, width);
    if (!forEachFillablePlace(device, modules, [&](const FillablePlace& place) { search.visit(place); }))
        return {{}};
    std::vector<std::vector<choices::ModuleChoice>> results = search.results();
    results.insert(results.begin(), {}); // what needs no choice comes first
    return results;
}

} // namespace retrace
