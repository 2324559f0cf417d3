#include "editing/linkTexts.h"
#include "model/pdoLink.h"
#include "show/busModules.h"
#include "show/cutText.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <algorithm>

namespace show {

namespace {

std::string pdoHeading(const facts::PdoFacts& pdo)
{
    return pdoLabel(pdo.index, pdo.name, pdo.place) + (pdo.isFixed ? ", fixed" : "")
           + (pdo.isMandatory ? ", mandatory" : "");
}

TextRow entryCells(const facts::ImageEntry& mapped)
{
    const facts::EntryFacts& entry = *mapped.entry;
    return {placeText(mapped.bit),
            std::to_string(mapped.bits),
            mapped.isGap() ? "gap" : objectText(entry.index, entry.subIndex),
            cutName(entry.dataType),
            cutName(entry.name),
            entry.link == KTL_PDO_TYPE_NONE ? std::string() : linkName(entry.link).toStdString()};
}

/// "outputs, sync manager 2: 14 bytes".
std::string imageLabel(const facts::SyncManagerImage& image)
{
    return std::string(dataDirection(image.isInput)) + ", sync manager " + std::to_string(image.number) + ": "
           + counted(image.bytes(), "byte");
}

SummaryPart imagePart(const facts::SyncManagerImage& image)
{
    SummaryPart part{imageLabel(image), {}, {"byte.bit", "bits", "object", "type", "name", "link"}, {}};
    auto entry = image.entries.begin();
    for (const facts::PdoFacts* const pdo : image.pdos) {
        part.rows.push_back({pdoHeading(*pdo), {}});
        for (; entry != image.entries.end() && entry->pdo == pdo; ++entry)
            if (entry->bits > 0 || !entry->isGap())
                part.rows.push_back({{}, entryCells(*entry)});
    }
    return part;
}

/// PDOs in one text: the first ones, and how many more there are.
class PdoNames
{
public:
    void add(const facts::PdoFacts& pdo)
    {
        constexpr std::size_t mostNamed = 12;
        if (++m_count <= mostNamed)
            m_names += (m_names.empty() ? "" : ", ") + withName(pdo.index, pdo.name);
        else
            ++m_left;
    }

    void addTo(SummaryParts& parts, const char* label) const
    {
        if (m_count > 0)
            parts.push_back({label, m_names + (m_left == 0 ? "" : " and " + std::to_string(m_left) + " more"), {}, {}});
    }

private:
    std::string m_names;
    std::size_t m_count = 0;
    std::size_t m_left = 0;
};

} // namespace

SummaryParts pdoSection(const SummaryDevice& device)
{
    SummaryParts parts;
    std::vector<const facts::PdoFacts*> placed;
    for (const facts::SyncManagerImage& image : device.image) {
        placed.insert(placed.end(), image.pdos.begin(), image.pdos.end());
        if (!image.pdos.empty())
            parts.push_back(imagePart(image));
    }
    std::sort(placed.begin(), placed.end(), std::less<>());
    PdoNames unassigned;
    PdoNames lost;
    for (const std::vector<facts::PdoFacts>* const pdos : {&device.unit.pdos, &device.preset.pdos})
        for (const facts::PdoFacts& pdo : *pdos)
            if (!std::binary_search(placed.begin(), placed.end(), &pdo, std::less<>()))
                (pdo.syncManager < 0 ? unassigned : lost).add(pdo);
    unassigned.addTo(parts, "PDOs not assigned");
    lost.addTo(parts, "PDOs not placed");
    if (!device.preset.areAll)
        parts.push_back({"further PDOs", "of preset modules, more entries or bits than a device can have", {}, {}});
    const std::string_view onTheBus =
        device.model != nullptr ? busModulesNote(*device.model, device.unit) : busModulesNote(device.carried.block);
    if (!onTheBus.empty())
        parts.push_back({"modules", std::string(onTheBus), {}, {}});
    return parts;
}

} // namespace show
