#include "retrace/moduleRetrace.h"

#include "editing/moduleEdits.h"
#include "retrace/entryAlignment.h"
#include "retrace/moduleFillings.h"
#include "retrace/shownModules.h"

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
constexpr int goneCommand = -40; ///< one that is not: it would have been removed or changed
constexpr int sameIdent = 300; ///< what the block presets
constexpr int otherIdent = -300;
constexpr int otherCount = -300; ///< not as many modules as the block presets
constexpr int otherLength = -500; ///< of a sync manager
constexpr int unexplained = -120; ///< a PDO of the block that no module brings in
constexpr int oneChoice = -1; ///< nothing was done where nothing had to be done

/// How far the places that were looked at explain a block.
struct Progress
{
    std::size_t output = 0; ///< the first output PDO of the block that is not explained
    std::size_t input = 0;
    std::size_t command = 0;
    std::size_t count = 0; ///< of modules, where they are counted
    std::vector<float> lengths; ///< of the sync managers, with the PDOs that were brought in so far
    int score = 0;
    std::size_t way = 0; ///< its last choices

    [[nodiscard]] auto key() const { return std::tie(output, input, command, count, lengths); }
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
    explicit ModuleSearch(const ShownModules& shown)
        : m_shown(shown)
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
        keepBest(best);
    }

    /// All choices of the likeliest fillings, the best first.
    [[nodiscard]] std::vector<std::vector<choices::ModuleChoice>> results()
    {
        constexpr std::size_t maxResults = 32;
        for (Progress& progress : m_progress) {
            const std::size_t left =
                m_shown.outputs().size() - progress.output + m_shown.inputs().size() - progress.input;
            progress.score += unexplained * static_cast<int>(left);
            progress.score += m_shown.isOtherCount(progress.count) ? otherCount : 0;
            progress.score += otherLength * static_cast<int>(m_shown.otherLengths(progress.lengths));
        }
        std::stable_sort(m_progress.begin(), m_progress.end(), isBetter);
        m_progress.resize(std::min(m_progress.size(), maxResults));
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

    static bool isBetter(const Progress& left, const Progress& right) { return left.score > right.score; }

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
            const std::optional<std::size_t> place = m_shown.placeOf(command, progress.command);
            progress.score += place.has_value() ? sameCommand : goneCommand;
            progress.command = place.has_value() ? *place + 1 : progress.command;
        }
        if (const std::optional<bool> fits = m_shown.isPreset(m_place, filling.ident))
            progress.score += *fits ? sameIdent : otherIdent;
        progress.count += m_shown.isCounted(m_place) ? filling.count : 0;
        progress.score += oneChoice * static_cast<int>(filling.choices.size());
        return progress;
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

    void keepBest(const std::map<Progress, Reached, ByPoint>& best)
    {
        constexpr std::size_t maxKept = 64;
        std::vector<std::pair<Progress, const Filling*>> sorted;
        sorted.reserve(best.size());
        for (const auto& [progress, reached] : best) {
            sorted.emplace_back(progress, reached.filling);
            sorted.back().first.score = reached.score;
            sorted.back().first.way = reached.way;
        }
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const auto& left, const auto& right) { return isBetter(left.first, right.first); });
        sorted.resize(std::min(sorted.size(), maxKept));
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
    EntryComparison m_entries;
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
