#include "facts/processData.h"
#include "model/syncDirection.h"
#include "show/cutText.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <algorithm>
#include <optional>

namespace show {

namespace {

/// Name of a direction; the text of the file for one without a name.
std::string kindText(std::uint8_t direction, std::string_view name)
{
    return direction == KTL_UnknownType && !name.empty() ? cutName(name) : directionName(direction);
}

/// Bytes of process data of the assigned PDOs; nothing where the file does not tell which sync manager they are on.
std::optional<std::int64_t> usedBytes(const facts::SyncManagerFacts& syncManager, const facts::ProcessImage& image)
{
    const auto found = std::find_if(image.begin(), image.end(), [&](const facts::SyncManagerImage& candidate) {
        return candidate.syncManager == &syncManager;
    });
    return found == image.end() ? std::nullopt : std::optional(found->bytes());
}

/// "14 of 64 bytes". Without a limit in the file the length that goes out counts: PDOs of modules need not be part of
/// it, and a wrong one shows, as "3 of 2 bytes".
std::string useText(const facts::SyncManagerFacts& syncManager, const facts::ProcessImage& image)
{
    const SmAttributes& attributes = syncManager.attributes;
    if (isVirtual(syncManager))
        return "virtual";
    if (!carriesProcessData(syncManager.direction))
        return counted(attributes.DefaultSize, "byte");
    const std::optional<std::int64_t> known = usedBytes(syncManager, image);
    const std::int64_t used = known.value_or(syncManager.exportedBytes);
    const std::int64_t room = attributes.MaxSize > 0 ? attributes.MaxSize : syncManager.exportedBytes;
    if (room < 0 || room == used)
        return counted(used, "byte");
    return std::to_string(used) + " of " + counted(room, "byte");
}

std::string fmmuText(const facts::FmmuFacts& fmmu)
{
    std::string text = kindText(fmmu.direction, fmmu.name);
    if (fmmu.syncManager != 0)
        text += " of sync manager " + std::to_string(fmmu.syncManager);
    return text + (fmmu.isForOpOnly ? " in Op only" : "");
}

} // namespace

SummaryParts channelSection(const SummaryDevice& device)
{
    SummaryParts parts;
    SummaryPart table{"sync managers", {}, TextRow(4), {}};
    for (const facts::SyncManagerFacts& syncManager : device.unit.syncManagers)
        table.rows.push_back({{},
                              {std::to_string(table.rows.size()), kindText(syncManager.direction, syncManager.name),
                               hexText(syncManager.attributes.StartAddress), useText(syncManager, device.image)}});
    std::string fmmus;
    for (const facts::FmmuFacts& fmmu : device.unit.fmmus)
        fmmus += (fmmus.empty() ? "" : ", ") + fmmuText(fmmu);
    if (!fmmus.empty())
        parts.push_back({"FMMUs", std::move(fmmus), {}, {}});
    if (!table.rows.empty())
        parts.push_back(std::move(table));
    return parts;
}

} // namespace show
