#include "show/showWords.h"
#include "show/summarySections.h"

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

std::string assignActivateText(std::uint32_t assignActivate)
{
    const std::string bits = wordsOf(KtlMeaning::AssignActivate, assignActivate);
    return "assign-activate " + hexText(assignActivate) + (bits.empty() ? "" : " (" + bits + ')');
}

} // namespace

SummaryParts clockSection(const SummaryDevice& device)
{
    const std::vector<facts::ModeFacts>& modes = device.unit.modes;
    if (modes.empty())
        return {};
    SummaryPart part{"DC modes", {}, TextRow(3), {}};
    for (std::size_t index = 0; index < modes.size(); ++index) {
        const facts::ModeFacts& mode = modes[index];
        std::string mark = index == 0 ? "chosen" : "";
        std::string name(mode.name);
        const bool hasText = device.model != nullptr && index < device.model->vopmode.size();
        for (const std::string& text :
             {hasText ? device.model->vopmode[index].Desc : std::string(), assignActivateText(mode.assignActivate),
              signalText("SYNC 0", mode.cycleTimeSync0, mode.shiftTimeSync0),
              signalText("SYNC 1", mode.cycleTimeSync1, mode.shiftTimeSync1)})
            if (!text.empty())
                part.rows.push_back({{}, {std::exchange(mark, {}), std::exchange(name, {}), text}});
    }
    return {std::move(part)};
}

} // namespace show
