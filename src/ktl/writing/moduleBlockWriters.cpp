// moduleBlockWriters.cpp - the module blocks of a file: for each module its identity, entries and startup records.
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"
#include "ktl/writing/moduleCounts.h"
#include "ktl/writing/pdoItemHead.h"
#include "model/deviceType.h"
#include "model/moduleAccess.h"
#include "model/objectAreas.h"
#include "model/pdoAccess.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

/// How the two directions of a module's entries differ.
struct EntryDirection
{
    ModulePdoList struct_module::*pdos;
    enum_KTL_ITEM_TYPE type;
    std::uint16_t lengthMask; ///< bits of an entry's length that the item keeps
};

/// In the order of the file.
/// ODD, KEPT: input entries keep the low 8 bits of their length, output entries the low 16, although the field is the
/// same: an input of 256 bits reads as 0. One would expect 16 bits for both. Pinned by
/// tst_ModuleBlocks::lengthOfAnEntry.
constexpr std::array<EntryDirection, 2> entryDirections{{
    {&struct_module::RxPdo, KTL_ITEM_ModuleRPDOEntryType, 0xFFFF},
    {&struct_module::TxPdo, KTL_ITEM_ModuleTPDOEntryType, 0x00FF},
}};

void writeModuleType(std::FILE* out, const ModuleTypeAttributes& attributes)
{
    struct_KTL_moduleType item{};
    item.m_iItemType = KTL_ITEM_ModuleType;
    item.m_iSize = sizeof item;
    item.TypeAttributes.ModuleIdent = attributes.ModuleIdent;
    item.TypeAttributes.ModulePdoGroup = attributes.ModulePdoGroup;
    item.TypeAttributes.SRA_ParamterSupported = attributes.SRA_ParamterSupported ? 1 : 0;
    ItemWriter(item).writeTo(out);
}

struct_KTL_modulePdoOne entryRecord(const struct_moduleEntry& entry, std::uint16_t lengthMask)
{
    struct_KTL_modulePdoOne record{};
    record.DependOnSlot = entry.indexAttributes.DependOnSlot ? 1 : 0;
    record.index = indexOf(entry);
    record.SubIndex = entry.SubIndex;
    record.BitLen = static_cast<std::uint16_t>(static_cast<std::uint32_t>(bitLengthOf(entry)) & lengthMask);
    record.LinkToData = entry.Linkto;
    return record;
}

/// One item for all PDOs of a direction that are on a sync manager, none if no PDO is.
/// ODD, KEPT: the entries of all these PDOs follow the head of the first one, so where a later PDO begins is lost. One
/// would expect an item per PDO. Pinned by tst_ModuleBlocks::pdosAreMerged.
void writeEntries(std::FILE* out, const EntryDirection& direction, const struct_module& module)
{
    const modulePdo* first = nullptr;
    std::vector<struct_KTL_modulePdoOne> records;
    for (const modulePdo& pdo : (module.*direction.pdos).vpdo) {
        if (pdo.Attributes.SM < 0)
            continue;
        if (first == nullptr)
            first = &pdo;
        for (const struct_moduleEntry& entry : pdo.vEntry)
            records.push_back(entryRecord(entry, direction.lengthMask));
    }
    if (first != nullptr)
        writeListItem(out, pdoItemHead<struct_KTL_moduleEntryType>(direction.type, *first, records.size()), records);
}

/// What the device settles about the startup records of its modules.
struct StartupRules
{
    bool assigns = false; ///< PDOs are assigned to sync managers
    bool configures = false; ///< entries are mapped into PDOs that are not fixed
    bool usesCompleteAccess = false; ///< mappings are sent in one piece, so there are no records for them
    std::vector<std::uint8_t> syncManagers; ///< numbers of those that carry process data, virtual ones too, in order
};

StartupRules startupRulesOf(const struct_EtherCatDevice& device)
{
    const CoeAttributes& flags = device.Mailbox.COE.Attributes;
    StartupRules rules{flags.PdoAssign, flags.PdoConfig, flags.CompleteAccess, {}};
    for (const struct_SM& syncManager : device.vSM)
        if (carriesProcessData(syncManager.Smtype))
            rules.syncManagers.push_back(syncManager.SM);
    return rules;
}

/// Calls `visit` with each output PDO of a module and then with each input PDO.
template<typename Visit> void forEachPdo(const struct_module& module, Visit visit)
{
    for (const EntryDirection& direction : entryDirections)
        for (const modulePdo& pdo : (module.*direction.pdos).vpdo)
            visit(pdo);
}

/// A startup record that the export makes itself; it always moves with the slot.
struct_KTL_moduleStartupOne generatedRecord(std::uint16_t index, std::size_t subIndex, std::uint8_t dataBytes,
                                            std::uint32_t data)
{
    struct_KTL_moduleStartupOne record{};
    record.DependOnSlot = 1;
    record.m_DataBytes = dataBytes;
    record.index = index;
    record.SubIndex = static_cast<std::uint8_t>(subIndex);
    record.Data = data;
    return record;
}

struct_KTL_moduleStartupOne declaredRecord(const struct_moduleInitCmd& command)
{
    struct_KTL_moduleStartupOne record{};
    record.DependOnSlot = command.indexAttributes.DependOnSlot ? 1 : 0;
    record.m_DataBytes = static_cast<std::uint8_t>(command.DataBytes);
    record.index = command.indexAttributes.index;
    record.SubIndex = static_cast<std::uint8_t>(command.SubIndex);
    record.Data = command.Data;
    return record;
}

/// Clears a PDO, maps its entries, and sets their number.
template<typename Take> void takeMapping(const modulePdo& pdo, Take& take)
{
    constexpr std::uint8_t countBytes = 1;
    constexpr std::uint8_t mappingBytes = 4;
    const std::uint16_t index = indexOf(pdo);
    take(generatedRecord(index, 0, countBytes, 0));
    std::size_t subIndex = 0;
    for (const struct_moduleEntry& entry : pdo.vEntry)
        take(generatedRecord(index, ++subIndex, mappingBytes, mappingValueOf(entry)));
    take(generatedRecord(index, 0, countBytes, static_cast<std::uint32_t>(pdo.vEntry.size())));
}

/// ODD, KEPT: every assignment has sub-index 1, also for a second PDO on a sync manager, where one would expect the
/// next one. Pinned by tst_ModuleBlockStartup::secondPdoOnASyncManager.
struct_KTL_moduleStartupOne assignmentRecord(std::uint8_t syncManager, const modulePdo& pdo)
{
    constexpr std::uint8_t assignmentBytes = 2;
    return generatedRecord(assignObjectOf(syncManager), 1, assignmentBytes, indexOf(pdo));
}

/// Number of startup records that the item of a module announces.
/// ODD, KEPT: one would expect those that follow. But mappings count if they are on a sync manager with process data,
/// and follow if they have entries and there is no complete access: an item can announce more or fewer, or be missing.
/// Pinned by tst_ModuleBlockStartup::fewerRecordsThanAnnounced, tst_ModuleBlockStartup::moreRecordsThanAnnounced and
/// tst_ModuleBlockStartup::nothingAnnounced.
std::size_t announcedRecords(const StartupRules& rules, const struct_module& module)
{
    constexpr std::size_t clearAndCount = 2; // around the entries of a mapping
    std::size_t count = module.Mailbox.COE.vinitcmd.size();
    for (const std::uint8_t syncManager : rules.syncManagers)
        forEachPdo(module, [&](const modulePdo& pdo) {
            if (pdo.Attributes.SM != syncManager)
                return;
            if (rules.assigns)
                ++count;
            if (rules.configures && !pdo.Attributes.Fixed)
                count += pdo.vEntry.size() + clearAndCount;
        });
    return count;
}

/// Calls `take` with each startup record of a module, in the order of the file.
template<typename Take> void forEachStartupRecord(const StartupRules& rules, const struct_module& module, Take take)
{
    if (rules.configures && !rules.usesCompleteAccess)
        forEachPdo(module, [&](const modulePdo& pdo) {
            if (!pdo.Attributes.Fixed && !pdo.vEntry.empty())
                takeMapping(pdo, take);
        });
    for (const struct_moduleInitCmd& command : module.Mailbox.COE.vinitcmd)
        take(declaredRecord(command));
    if (rules.assigns)
        for (const std::uint8_t syncManager : rules.syncManagers)
            forEachPdo(module, [&](const modulePdo& pdo) {
                if (pdo.Attributes.SM == syncManager)
                    take(assignmentRecord(syncManager, pdo));
            });
}

/// Whether a module has as many startup records as its item announces, or no item at all.
bool isAsAnnounced(const StartupRules& rules, const struct_module& module)
{
    const std::size_t announced = announcedRecords(rules, module);
    std::size_t following = 0;
    forEachStartupRecord(rules, module, [&](const struct_KTL_moduleStartupOne& /*record*/) { ++following; });
    return announced == 0 || announced == following;
}

void writeStartup(std::FILE* out, const StartupRules& rules, const struct_module& module)
{
    const std::size_t count = announcedRecords(rules, module);
    if (count == 0)
        return;
    constexpr std::size_t headSize = headSizeOf<struct_KTL_moduleInitCmdType, struct_KTL_moduleStartupOne>;
    struct_KTL_moduleInitCmdType head{};
    head.m_iItemType = KTL_ITEM_ModuleCoEInitCmdType;
    head.m_iSize = static_cast<std::uint32_t>(headSize + count * sizeof(struct_KTL_moduleStartupOne));
    head.m_iCount = static_cast<std::uint32_t>(count);
    ItemWriter item(head, headSize);
    forEachStartupRecord(rules, module, [&](const struct_KTL_moduleStartupOne& record) { item.add(record); });
    item.writeTo(out, ItemFill::Nothing);
}

} // namespace

void KTL_write_device_Module(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices)
{
    if (out == nullptr || device == nullptr || filedevices == nullptr)
        return;
    const StartupRules rules = startupRulesOf(*device);
    forEachModule(*filedevices, [&](const struct_module& module) {
        writeModuleType(out, module.TypeAttributes);
        for (const EntryDirection& direction : entryDirections)
            writeEntries(out, direction, module);
        writeStartup(out, rules, module);
    });
}

const struct_module* firstMiscountedModule(const struct_EtherCatDevice& device, const struct_FilenameDevice& file)
{
    if (!hasModuleBlocks(device.m_iDeviceType))
        return nullptr;
    const StartupRules rules = startupRulesOf(device);
    for (const struct_commentmodule& group : file.vcommentmodule)
        for (const struct_module& module : group.vmodule)
            if (!isAsAnnounced(rules, module))
                return &module;
    return nullptr;
}
