#include "facts/slotFacts.h"
#include "show/cutText.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <utility>

namespace show {

namespace {

/// Texts in one, equal ones in a row as one with their number.
class CountedTexts
{
public:
    void add(const std::string& text)
    {
        if (m_count > 0 && text != m_last)
            flush();
        m_last = text;
        ++m_count;
    }

    [[nodiscard]] std::string end()
    {
        if (m_count > 0)
            flush();
        return std::move(m_all);
    }

private:
    void flush()
    {
        m_all += (m_all.empty() ? "" : ", ") + (m_count > 1 ? std::to_string(m_count) + " x " : "") + m_last;
        m_count = 0;
    }

    std::string m_all;
    std::string m_last;
    std::size_t m_count = 0;
};

/// Rows of a table that begin with a number; equal ones in a row become one.
class NumberedRows
{
public:
    void add(TextRow cells)
    {
        ++m_number;
        if (m_first > 0 && cells == m_cells)
            return;
        flush(m_number - 1);
        m_first = m_number;
        m_cells = std::move(cells);
    }

    [[nodiscard]] std::vector<SummaryRow> end()
    {
        flush(m_number);
        return std::move(m_rows);
    }

private:
    void flush(std::size_t last)
    {
        if (m_first == 0)
            return;
        const std::string first = std::to_string(m_first);
        m_rows.push_back({{}, {m_first == last ? first : first + " to " + std::to_string(last)}});
        TextRow& row = m_rows.back().cells;
        row.insert(row.end(), m_cells.begin(), m_cells.end());
    }

    std::size_t m_number = 0; ///< of the last one
    std::size_t m_first = 0; ///< number of the first one that equals the last one; 0 before there is one
    TextRow m_cells; ///< of the last one
    std::vector<SummaryRow> m_rows;
};

std::string roomText(std::uint32_t least, std::uint32_t most)
{
    return least == most ? std::to_string(most) : std::to_string(least) + " to " + std::to_string(most);
}

TextRow slotCells(const struct_Slot& slot)
{
    CountedTexts modules;
    for (const struct_slotmodule& placed : slot.slotmodule)
        modules.add(placed.module.Name.empty() ? hexText(placed.module.TypeAttributes.ModuleIdent)
                                               : cutName(placed.module.Name));
    std::string accepted;
    for (const std::string_view moduleClass : facts::classesOf(slot))
        accepted += (accepted.empty() ? "class " : ", ") + cutName(moduleClass);
    if (!slot.ModuleIdent.empty())
        accepted += (accepted.empty() ? "" : ", ") + counted(slot.ModuleIdent.size(), "ident");
    return {cutName(slot.Name), roomText(slot.Attributes.MinInstances, slot.Attributes.MaxInstances), modules.end(),
            accepted};
}

SummaryParts modelSlots(const DeviceSlots& deviceSlots)
{
    NumberedRows rows;
    for (const struct_Slot& slot : deviceSlots.vslot)
        rows.add(slotCells(slot));
    return {
        {counted(deviceSlots.vslot.size(), "slot"), {}, {"no", "name", "modules", "now in it", "takes"}, rows.end()}};
}

SummaryParts carriedSlots(const KtlDeviceBlock& block)
{
    SummaryParts parts;
    if (block.deviceSlots && !block.deviceSlots->records.empty()) {
        NumberedRows rows;
        for (const struct_KTL_SlotContent& slot : block.deviceSlots->records)
            rows.add({roomText(slot.m_iMinInstances, slot.m_iMaxInstances)});
        parts.push_back({counted(block.deviceSlots->records.size(), "slot"), {}, {"no", "modules"}, rows.end()});
    }
    if (block.preset && !block.preset->records.empty()) {
        NumberedRows rows;
        for (const struct_KTL_Slot_PreModuleIdent& preset : block.preset->records)
            rows.add({preset.m_iModuleIdent == 0 ? "empty" : "module " + hexText(preset.m_iModuleIdent)});
        parts.push_back({"preset modules", {}, TextRow(2), rows.end()});
    }
    return parts;
}

SummaryPart moduleBlocks(const std::vector<KtlModule>& modules)
{
    const auto countedOrNothing = [](std::size_t count, const char* one) {
        return count == 0 ? std::string() : counted(count, one);
    };
    SummaryPart part{"modules", {}, TextRow(3), {}};
    for (const KtlModule& module : modules)
        part.rows.push_back({{},
                             {hexText(module.attributes.ModuleIdent), countedOrNothing(module.pdos.size(), "PDO"),
                              countedOrNothing(module.commands.size(), "startup command")}});
    return part;
}

} // namespace

SummaryParts slotSection(const SummaryDevice& device)
{
    if (device.model != nullptr)
        return device.model->Slots.vslot.empty() ? SummaryParts() : modelSlots(device.model->Slots);
    SummaryParts parts = carriedSlots(device.carried.block);
    if (!device.carried.block.modules.empty())
        parts.push_back(moduleBlocks(device.carried.block.modules));
    return parts;
}

} // namespace show
