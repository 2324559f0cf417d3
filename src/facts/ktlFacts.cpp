#include "facts/ktlFacts.h"

#include "facts/processData.h"
#include "facts/startupOrder.h"
#include "ktl/format/ktlCodes.h"
#include "model/controlByte.h"

#include <algorithm>
#include <utility>

namespace facts {

namespace {

/// Makes the facts of one device block, item by item: the records of the block are in the order of its items.
class BlockReader
{
public:
    BlockReader(const KtlDeviceBlock& block, std::size_t index)
        : m_block(block)
    {
        m_unit.owner = {OwnerKind::Device, index};
        m_unit.isFromKtl = true;
        m_unit.vendor = block.general.m_iVendor_Id;
        m_unit.product = block.general.m_iProduct_Code;
        m_unit.revision = block.general.m_iRevision_No;
        m_unit.name = nameIn(block);
    }

    void take(const KtlFileItem& item);

    UnitFacts end()
    {
        const std::vector<PdoFacts>& pdos = m_unit.pdos;
        m_unit.hasPlacesOfSyncManagers = std::all_of(pdos.begin(), pdos.end(), [this](const PdoFacts& pdo) {
            return fitsPlaceOfSyncManager(pdo, m_unit.syncManagers);
        });
        m_unit.startupFaults = startupFaultsOf(m_unit);
        addValues();
        return std::move(m_unit);
    }

private:
    /// Calls `add(record, where)` for as many records as the item has, from the next one of the block on.
    template<typename Record, typename Add>
    static void addRecords(const KtlFileItem& item, const std::vector<Record>& records, Add add)
    {
        const KtlItemParts parts = partsOf(layoutOf(item.type), item.bytes);
        for (std::size_t index = 0; index < parts.records && index < records.size(); ++index)
            add(records[index], static_cast<Where>(item.offset + parts.headEnd + index * sizeof(Record)));
    }

    void addPdo(const KtlFileItem& item);
    void addCoe(const KtlFileItem& item);
    static void addCommands(const KtlFileItem& item, const std::vector<struct_KTL_InitCmd>& records,
                            std::vector<CommandFacts>& to);
    void addValues();

    const KtlDeviceBlock& m_block;
    UnitFacts m_unit;
    std::size_t m_pdos = 0; ///< items that have been taken
};

SmAttributes attributesOf(const struct_KTL_SmAttributes& record)
{
    SmAttributes attributes;
    attributes.StartAddress = record.m_iStartAddress;
    attributes.MinSize = record.m_iMinSize;
    attributes.MaxSize = record.m_iMaxSize;
    attributes.DefaultSize = record.m_iDefaultSize;
    attributes.ControlByte = record.ControlByte;
    attributes.Enable = record.Enable;
    return attributes;
}

/// The direction of a sync manager, which the format does not carry, by its control byte.
std::uint8_t directionOf(const struct_KTL_SmAttributes& record)
{
    const bool isWritten = isWrittenByController(record.ControlByte);
    if (hasMode(record.ControlByte, SyncManagerMode::Mailbox))
        return isWritten ? KTL_MBoxOut : KTL_MBoxIn;
    return isWritten ? KTL_Outputs : KTL_Inputs;
}

void BlockReader::take(const KtlFileItem& item)
{
    switch (item.type) {
    case KTL_ITEM_General:
        m_unit.where = static_cast<Where>(item.offset);
        break;
    case KTL_ITEM_FMMU:
        addRecords(item, m_block.fmmus, [&](const struct_KTL_FmmuAttributes& record, Where where) {
            m_unit.fmmus.push_back({where, record.m_iFmmuType, {}, record.m_iSm, record.m_iSu, record.m_iOpOnly != 0});
        });
        break;
    case KTL_ITEM_SM:
        addRecords(item, m_block.syncManagers, [&](const struct_KTL_SmAttributes& record, Where where) {
            SyncManagerFacts& facts = m_unit.syncManagers.emplace_back();
            facts.where = where;
            facts.direction = directionOf(record);
            facts.attributes = attributesOf(record);
            if (carriesProcessData(facts.direction))
                facts.exportedBytes = record.m_iDefaultSize;
        });
        break;
    case KTL_ITEM_DC:
        addRecords(item, m_block.modes, [&](const struct_KTL_DcAttributes& record, Where where) {
            ModeFacts& mode = m_unit.modes.emplace_back();
            mode.where = where;
            mode.assignActivate = record.AssignActivate;
        });
        break;
    case KTL_ITEM_RxPdo:
    case KTL_ITEM_TxPdo:
        addPdo(item);
        break;
    case KTL_ITEM_CoE:
        addCoe(item);
        break;
    case KTL_ITEM_EoE:
        addCommands(item, m_block.eoeCommands, m_unit.eoeCommands);
        break;
    default:
        break;
    }
}

void BlockReader::addPdo(const KtlFileItem& item)
{
    if (m_pdos >= m_block.pdos.size())
        return;
    const KtlPdo& record = m_block.pdos[m_pdos++];
    PdoFacts& pdo = m_unit.pdos.emplace_back();
    pdo.where = static_cast<Where>(item.offset);
    pdo.isInput = record.isInput;
    pdo.index = record.head.IndexAttributes;
    pdo.syncManager = record.head.SM;
    pdo.isFixed = record.head.Fixed != 0;
    pdo.isMandatory = record.head.Mandatory != 0;
    pdo.syncUnit = record.head.SU;
    addRecords(item, record.entries, [&](const struct_KTL_EntryPDOContent& entry, Where where) {
        pdo.entries.push_back({where, entry.Index, false, entry.SubIndex, entry.Bitlen, {}, entry.LinkToData, {}});
        pdo.entries.back().isFixed = entry.m_bFixed != 0;
    });
}

void BlockReader::addCoe(const KtlFileItem& item)
{
    const struct_KTL_COE& coe = m_block.coe;
    m_unit.hasCoe = m_block.general.m_bSdoSupport != 0 || coe.m_bSdoInfo != 0 || coe.m_bPdoAssign != 0
                    || coe.m_bPdoUpload != 0 || coe.m_bPdoConfig != 0; // the item is there without a mailbox too
    m_unit.hasMailboxProtocol = m_unit.hasCoe;
    m_unit.canAssign = coe.m_bPdoAssign != 0;
    m_unit.supportsCompleteAccess = coe.m_bCompleteAccess != 0;
    addCommands(item, m_block.coeCommands, m_unit.commands);
}

void BlockReader::addCommands(const KtlFileItem& item, const std::vector<struct_KTL_InitCmd>& records,
                              std::vector<CommandFacts>& to)
{
    addRecords(item, records, [&](const struct_KTL_InitCmd& record, Where where) {
        CommandFacts& command = to.emplace_back();
        command.where = where;
        command.transition = static_cast<NMTOKEN>(record.Transition);
        command.index = record.Index;
        command.subIndex = record.SubIndex;
        command.isCompleteAccess = record.bIfCA != 0;
        command.bytes = record.DataBytes;
        command.data = record.Data;
    });
}

/// Gives complete accesses their values, which are in one list for all of them.
void BlockReader::addValues()
{
    auto values = valuesOfCommands(m_block.coeCommands, m_block.accessValues);
    if (!values.has_value())
        return;
    for (std::size_t index = 0; index < m_unit.commands.size() && index < values->size(); ++index)
        m_unit.commands[index].values = std::move((*values)[index]);
}

} // namespace

std::string_view nameIn(const KtlDeviceBlock& block)
{
    if (!block.moreInfo.has_value())
        return {};
    const std::string_view text = block.moreInfo->text;
    return text.substr(0, text.find_first_of(std::string_view("\r\n\0", 3)));
}

UnitFacts ktlUnitOf(const KtlDeviceBlock& block, std::size_t index, const KtlWalk& walk, const KtlBlockPlace& place)
{
    BlockReader reader(block, index);
    for (std::size_t item = place.first; item < place.end; ++item)
        reader.take(walk.items[item]);
    return reader.end();
}

KtlFacts ktlFactsOf(const std::vector<unsigned char>& bytes)
{
    KtlFacts facts;
    facts.walk = walkItems(bytes);
    facts.places = readableBlockPlacesOf(facts.walk);
    for (const KtlBlockPlace& place : facts.places) {
        const KtlDeviceBlock& block = facts.blocks.emplace_back(deviceBlockAt(facts.walk, place));
        facts.units.push_back(ktlUnitOf(block, facts.units.size(), facts.walk, place));
    }
    return facts;
}

} // namespace facts
