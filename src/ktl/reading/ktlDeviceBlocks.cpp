#include "ktl/reading/ktlDeviceBlocks.h"

#include <algorithm>
#include <array>

namespace {

/// One item of a device block, with its parts.
struct BlockItem
{
    const ItemBytes& bytes;
    const KtlItemLayout& layout;
    const KtlItemParts& parts;

    template<typename Head> [[nodiscard]] Head head() const { return bytes.at<Head>(0); }

    /// Appends the records that are there whole.
    template<typename Record> void appendRecords(std::vector<Record>& to) const
    {
        bytes.appendRecords<Record>(to, parts.headEnd, parts.records,
                                    [](const Record& record, std::size_t /*index*/) { return record; });
    }
};

void takeGeneral(KtlDeviceBlock& block, const BlockItem& item)
{
    block.general = item.head<struct_KTL_EtherCatDeviceType>();
}

template<auto Records> void takeRecords(KtlDeviceBlock& block, const BlockItem& item)
{
    item.appendRecords(block.*Records);
}

template<bool IsInput> void takePdo(KtlDeviceBlock& block, const BlockItem& item)
{
    KtlPdo& pdo = block.pdos.emplace_back();
    pdo.isInput = IsInput;
    pdo.head = item.head<struct_KTL_PDOListType>();
    item.appendRecords(pdo.entries);
}

void takeEoe(KtlDeviceBlock& block, const BlockItem& item)
{
    block.eoe = item.head<struct_KTL_EOE>();
    item.appendRecords(block.eoeCommands);
}

void takeCoe(KtlDeviceBlock& block, const BlockItem& item)
{
    block.coe = item.head<struct_KTL_COE>();
    item.appendRecords(block.coeCommands);
    for (std::size_t offset = item.parts.recordsEnd; offset < item.parts.tailEnd; offset += sizeof(std::uint32_t))
        block.accessValues.push_back(item.bytes.at<std::uint32_t>(offset));
}

void takeSlots(KtlDeviceBlock& block, const BlockItem& item)
{
    block.deviceSlots.emplace();
    block.deviceSlots->head = item.head<struct_KTL_Slots>();
    item.appendRecords(block.deviceSlots->records);
}

void takePreset(KtlDeviceBlock& block, const BlockItem& item)
{
    block.preset.emplace();
    block.preset->head = item.head<struct_KTL_Slots_Preconfig>();
    item.appendRecords(block.preset->records);
}

void takeMoreInfo(KtlDeviceBlock& block, const BlockItem& item)
{
    block.moreInfo.emplace();
    block.moreInfo->head = item.head<struct_KTL_DeviceMoreInfo>();
    for (std::size_t offset = item.parts.recordsEnd; offset < item.parts.tailEnd; ++offset)
        block.moreInfo->text.push_back(item.bytes.at<char>(offset));
}

void takeModule(KtlDeviceBlock& block, const BlockItem& item)
{
    block.modules.emplace_back().attributes = item.head<struct_KTL_moduleType>().TypeAttributes;
}

template<bool IsInput> void takeModulePdo(KtlDeviceBlock& block, const BlockItem& item)
{
    if (block.modules.empty())
        return;
    KtlModulePdo& pdo = block.modules.back().pdos.emplace_back();
    pdo.isInput = IsInput;
    pdo.head = item.head<struct_KTL_moduleEntryType>();
    item.appendRecords(pdo.entries);
}

void takeModuleCommands(KtlDeviceBlock& block, const BlockItem& item)
{
    if (!block.modules.empty())
        item.appendRecords(block.modules.back().commands);
}

struct BlockRule
{
    std::uint32_t type;
    void (*take)(KtlDeviceBlock& block, const BlockItem& item);
};

constexpr std::array blockRules{
    BlockRule{KTL_ITEM_General, takeGeneral},
    BlockRule{KTL_ITEM_FMMU, takeRecords<&KtlDeviceBlock::fmmus>},
    BlockRule{KTL_ITEM_SM, takeRecords<&KtlDeviceBlock::syncManagers>},
    BlockRule{KTL_ITEM_DC, takeRecords<&KtlDeviceBlock::modes>},
    BlockRule{KTL_ITEM_RxPdo, takePdo<false>},
    BlockRule{KTL_ITEM_TxPdo, takePdo<true>},
    BlockRule{KTL_ITEM_EoE, takeEoe},
    BlockRule{KTL_ITEM_CoE, takeCoe},
    BlockRule{KTL_ITEM_Slot, takeSlots},
    BlockRule{KTL_ITEM_SlotPreConfig, takePreset},
    BlockRule{KTL_ITEM_DeviceMoreInfo, takeMoreInfo},
    BlockRule{KTL_ITEM_ModuleType, takeModule},
    BlockRule{KTL_ITEM_ModuleRPDOEntryType, takeModulePdo<false>},
    BlockRule{KTL_ITEM_ModuleTPDOEntryType, takeModulePdo<true>},
    BlockRule{KTL_ITEM_ModuleCoEInitCmdType, takeModuleCommands},
};

void takeItem(KtlDeviceBlock& block, const KtlFileItem& item)
{
    const auto* const rule = std::find_if(blockRules.begin(), blockRules.end(),
                                          [&](const BlockRule& candidate) { return candidate.type == item.type; });
    if (rule == blockRules.end())
        return;
    const KtlItemLayout& layout = layoutOf(item.type);
    rule->take(block, {item.bytes, layout, partsOf(layout, item.bytes)});
}

} // namespace

std::vector<KtlBlockPlace> blockPlacesOf(const KtlWalk& walk)
{
    std::vector<KtlBlockPlace> places;
    std::size_t run = 1;
    bool isInBlock = false;
    for (std::size_t index = 0; index < walk.items.size(); ++index) {
        const std::uint32_t type = walk.items[index].type;
        if (type == KTL_ITEM_General) {
            places.push_back({index, index, run});
            isInBlock = true;
        } else if (type == KTL_ITEM_END) {
            ++run;
            isInBlock = false;
        }
        if (isInBlock)
            places.back().end = index + 1;
    }
    return places;
}

std::vector<KtlBlockPlace> readableBlockPlacesOf(const KtlWalk& walk)
{
    std::vector<KtlBlockPlace> places = blockPlacesOf(walk);
    const auto isShort = [&](const KtlBlockPlace& place) {
        return walk.items[place.first].bytes.size() < sizeof(struct_KTL_EtherCatDeviceType);
    };
    places.erase(std::find_if(places.begin(), places.end(), isShort), places.end());
    return places;
}

KtlDeviceBlock deviceBlockAt(const KtlWalk& walk, const KtlBlockPlace& place)
{
    KtlDeviceBlock block;
    block.run = place.run;
    for (std::size_t index = place.first; index < place.end; ++index)
        takeItem(block, walk.items[index]);
    return block;
}

std::optional<std::vector<std::vector<std::uint32_t>>> valuesOfCommands(const std::vector<struct_KTL_InitCmd>& commands,
                                                                        const std::vector<std::uint32_t>& values)
{
    std::vector<std::vector<std::uint32_t>> lists(commands.size());
    std::size_t taken = 0;
    for (std::size_t index = 0; index < commands.size(); ++index) {
        const struct_KTL_InitCmd& command = commands[index];
        if (command.bIfCA == 0)
            continue;
        const std::size_t count = command.DataBytes / sizeof(std::uint32_t);
        if (command.DataBytes % sizeof(std::uint32_t) != 0 || count > values.size() - taken)
            return std::nullopt;
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(taken);
        lists[index].assign(first, first + static_cast<std::ptrdiff_t>(count));
        taken += count;
    }
    return taken == values.size() ? std::make_optional(std::move(lists)) : std::nullopt;
}
