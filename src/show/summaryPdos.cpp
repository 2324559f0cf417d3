#include "editing/linkTexts.h"
#include "model/pdoLink.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <algorithm>

namespace show {

namespace {

std::string withName(std::uint16_t index, std::string_view name)
{
    return hexText(index) + (name.empty() ? "" : " " + std::string(name));
}

std::string pdoHeading(const facts::PdoFacts& pdo, bool isFromKtl)
{
    std::vector<std::string> remarks;
    if (pdo.isFixed)
        remarks.emplace_back("fixed");
    if (pdo.isMandatory)
        remarks.emplace_back("mandatory");
    if (pdo.place >= 0)
        remarks.push_back((isFromKtl ? "place " : "slot ") + std::to_string(pdo.place + 1));
    std::string heading = "PDO " + withName(pdo.index, pdo.name);
    for (const std::string& remark : remarks)
        heading += (&remark == remarks.data() ? " (" : ", ") + remark;
    return heading + (remarks.empty() ? "" : ")");
}

TextRow entryCells(const facts::ImageEntry& mapped)
{
    const facts::EntryFacts& entry = *mapped.entry;
    const std::string place =
        std::to_string(facts::byteOf(mapped.bit)) + '.' + std::to_string(facts::bitInByte(mapped.bit));
    return {place,
            std::to_string(mapped.bits),
            mapped.isGap() ? "gap" : hexText(entry.index) + ':' + std::to_string(entry.subIndex),
            std::string(entry.dataType),
            std::string(entry.name),
            entry.link == KTL_PDO_TYPE_NONE ? std::string() : linkName(entry.link).toStdString()};
}

/// "outputs, sync manager 2: 14 bytes".
std::string imageLabel(const facts::SyncManagerImage& image)
{
    return std::string(image.isInput ? "inputs" : "outputs") + ", sync manager " + std::to_string(image.number) + ": "
           + counted(image.bytes(), "byte");
}

SummaryPart imagePart(const facts::SyncManagerImage& image, bool isFromKtl)
{
    SummaryPart part{imageLabel(image), {}, {"byte.bit", "bits", "object", "type", "name", "link"}, {}};
    auto entry = image.entries.begin();
    for (const facts::PdoFacts* const pdo : image.pdos) {
        part.rows.push_back({pdoHeading(*pdo, isFromKtl), {}});
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
            parts.push_back(imagePart(image, device.unit.isFromKtl));
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
        parts.push_back({"further PDOs", "of preset modules, more than a sync manager can have bits", {}, {}});
    return parts;
}

} // namespace show
