// initCmdWriters.cpp - EoE and CoE items: flags and startup commands.
#include "ktl/format/coeCommandCount.h"
#include "ktl/ktlExport.h"
#include "ktl/writing/commandRecord.h"
#include "ktl/writing/itemWriter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

constexpr std::size_t maxAccessBytes = 4096; // what the controller's buffer for complete accesses holds

/// Announced bytes of the complete accesses of one list: a command that would pass the limit is left out of the sum.
template<typename Command> std::size_t announcedAccessBytes(const std::vector<Command>& commands)
{
    std::size_t bytes = 0;
    for (const Command& command : commands)
        if (command.bIfCA != 0 && command.DataBytes + bytes <= maxAccessBytes)
            bytes += command.DataBytes;
    return bytes;
}

/// Adds the records of one list to the item and collects the values of its complete accesses.
/// ODD, KEPT: announced bytes are held against the limit, where one would expect the values, four bytes each. So a
/// block can be longer than announced, and a command past the limit is a complete access without values. Pinned by
/// tst_CompleteAccess::moreValuesThanAnnounced and tst_CompleteAccess::limitIsPassedInOneList.
template<typename Command>
void addCommands(ItemWriter& item, const std::vector<Command>& commands, std::vector<std::uint32_t>& accessValues)
{
    for (const Command& command : commands) {
        item.add(commandRecordOf(command));
        const std::size_t filled = accessValues.size() * sizeof(std::uint32_t);
        if (command.bIfCA == 0 || command.DataBytes + filled > maxAccessBytes)
            continue;
        // Values that do not fit whole into the block are dropped.
        const std::size_t room = (maxAccessBytes - filled) / sizeof(std::uint32_t);
        const auto values = static_cast<std::ptrdiff_t>(std::min(room, command.m_CADataList.size()));
        accessValues.insert(accessValues.end(), command.m_CADataList.begin(), command.m_CADataList.begin() + values);
    }
}

struct_KTL_EOE eoeHead(const DeviceEoe& eoe)
{
    struct_KTL_EOE head{};
    head.m_iItemType = KTL_ITEM_EoE;
    head.m_bIP = eoe.Attributes.IP ? 1 : 0;
    head.m_bMAC = eoe.Attributes.MAC ? 1 : 0;
    // ODD, KEPT: count and size take the low 8 bits of the number of commands, while all records are written. One would
    // expect a size that covers them. Pinned by tst_InitCmdWriters::eoeCount.
    head.m_iInitCmdCount = static_cast<std::uint8_t>(eoe.InitCmd.vinitcmd.size());
    head.m_iSize = static_cast<std::uint32_t>(
        headSizeOf<struct_KTL_EOE, struct_KTL_InitCmd> + head.m_iInitCmdCount * sizeof(struct_KTL_InitCmd));
    return head;
}

void writeEoe(std::FILE* out, const DeviceEoe& eoe)
{
    ItemWriter item(eoeHead(eoe), headSizeOf<struct_KTL_EOE, struct_KTL_InitCmd>);
    for (const struct_InitCmd& command : eoe.InitCmd.vinitcmd)
        item.add(commandRecordOf(command));
    item.writeTo(out);
}

/// @param count        commands of both lists
/// @param accessBytes  announced bytes of the complete accesses of both lists
struct_KTL_COE coeHead(const CoeAttributes& flags, std::size_t count, std::size_t accessBytes)
{
    constexpr std::size_t alignment = 4;
    const std::size_t size =
        headSizeOf<struct_KTL_COE, struct_KTL_InitCmd> + count * sizeof(struct_KTL_InitCmd) + accessBytes;
    struct_KTL_COE head{};
    head.m_iItemType = KTL_ITEM_CoE;
    head.m_iSize = static_cast<std::uint32_t>((size + alignment - 1) / alignment * alignment);
    head.m_bSdoInfo = flags.SdoInfo ? 1 : 0;
    head.m_bPdoAssign = flags.PdoAssign ? 1 : 0;
    head.m_bPdoUpload = flags.PdoUpload ? 1 : 0;
    head.m_bPdoConfig = flags.PdoConfig ? 1 : 0;
    head.m_bSegmentedSdo = flags.SegmentedSdo ? 1 : 0;
    head.m_bCompleteAccess = flags.CompleteAccess ? 1 : 0;
    head.m_bDiagHistory = flags.DiagHistory ? 1 : 0;
    head.m_iInitCmdCount = static_cast<std::uint8_t>(std::min<std::size_t>(count, countFromSize));
    return head;
}

void writeCoe(std::FILE* out, const DeviceCoe& coe, const std::vector<struct_moduleInitCmd>& moduleCommands)
{
    const std::vector<struct_InitCmd>& commands = coe.InitCmd.vinitcmd;
    const struct_KTL_COE head = coeHead(coe.Attributes, commands.size() + moduleCommands.size(),
                                        announcedAccessBytes(commands) + announcedAccessBytes(moduleCommands));
    ItemWriter item(head, headSizeOf<struct_KTL_COE, struct_KTL_InitCmd>);
    std::vector<std::uint32_t> accessValues;
    addCommands(item, commands, accessValues);
    addCommands(item, moduleCommands, accessValues);
    for (const std::uint32_t value : accessValues)
        item.add(value);
    item.writeTo(out);
}

} // namespace

void KTL_write_device_EoEInitCmd(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr)
        writeEoe(out, device->Mailbox.EOE);
}

void KTL_write_device_CoEInitCmd(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out != nullptr && device != nullptr)
        writeCoe(out, device->Mailbox.COE, device->mMailbox.COE.vinitcmd);
}
