#include "show/cutText.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <algorithm>
#include <set>
#include <utility>

namespace show {

namespace {

/// The times of a SYNC signal: "SYNC 0: cycle 1 ms, shift 50 us"; empty where there are none.
std::string signalText(const char* signal, std::int32_t cycle, std::int32_t shift)
{
    if (cycle == 0 && shift == 0)
        return {};
    const std::string cycleText = cycle == 0 ? std::string() : "cycle " + timeText(cycle);
    const std::string shiftText = shift == 0 ? std::string() : "shift " + timeText(shift);
    return std::string(signal) + ": " + cycleText + (cycleText.empty() || shiftText.empty() ? "" : ", ") + shiftText;
}

/// The rows of a mode: its assign-activate word is in the first one, with its description or the first of its times.
void addMode(SummaryPart& part, const facts::ModeFacts& mode)
{
    TextRow head{part.rows.empty() ? "chosen" : "", cutName(mode.name), hexText(mode.assignActivate), {}};
    std::vector<std::string> texts{cutName(mode.description),
                                   signalText("SYNC 0", mode.cycleTimeSync0, mode.shiftTimeSync0),
                                   signalText("SYNC 1", mode.cycleTimeSync1, mode.shiftTimeSync1)};
    texts.erase(std::remove(texts.begin(), texts.end(), std::string()), texts.end());
    if (texts.empty())
        texts.emplace_back();
    for (const std::string& text : texts) {
        head.back() = text;
        part.rows.push_back({{}, std::exchange(head, TextRow(head.size()))});
    }
}

/// The bits of each assign-activate word in words, once.
SummaryPart wordsPart(const std::vector<facts::ModeFacts>& modes)
{
    SummaryPart part{"assign-activate words", {}, TextRow(2), {}};
    std::set<std::uint32_t> told{0}; // there is nothing to tell of it
    for (const facts::ModeFacts& mode : modes)
        if (told.insert(mode.assignActivate).second)
            part.rows.push_back(
                {{}, {hexText(mode.assignActivate), wordsOf(KtlMeaning::AssignActivate, mode.assignActivate)}});
    return part;
}

} // namespace

SummaryParts clockSection(const SummaryDevice& device)
{
    const std::vector<facts::ModeFacts>& modes = device.unit.modes;
    if (modes.empty())
        return {};
    SummaryPart part{"DC modes", {}, TextRow(4), {}};
    for (const facts::ModeFacts& mode : modes)
        addMode(part, mode);
    SummaryParts parts{std::move(part)};
    if (SummaryPart words = wordsPart(modes); !words.rows.empty())
        parts.push_back(std::move(words));
    return parts;
}

} // namespace show
