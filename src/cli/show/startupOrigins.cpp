#include "cli/show/startupOrigins.h"

#include "cli/show/choiceRows.h"
#include "esi/derivation/startupCommands.h"

#include <array>

namespace {

constexpr const char* assignment = "PDO assignment";
constexpr const char* mapping = "PDO mapping";
constexpr const char* eoeStart = "EoE";
constexpr const char* unknown = "unknown";

struct IndexRange
{
    std::uint16_t first;
    std::uint16_t last;
    [[nodiscard]] constexpr bool holds(std::uint16_t index) const { return index >= first && index <= last; }
};

constexpr IndexRange assignObjects{0x1C10, 0x1C2F};
constexpr std::array mappingObjects{IndexRange{0x1600, 0x17FF}, IndexRange{0x1A00, 0x1BFF}};

/// Numbers of generated commands in the lists of a device.
struct GeneratedCounts
{
    std::size_t deviceCoe = 0;
    std::size_t deviceEoe = 0;
    std::size_t moduleCoe = 0;
};

/// A device with what startup commands are generated from, and without commands.
struct_EtherCatDevice withoutCommands(const struct_EtherCatDevice& device)
{
    struct_EtherCatDevice bare;
    bare.Mailbox.COE.Attributes = device.Mailbox.COE.Attributes;
    bare.Mailbox.EOE.Attributes = device.Mailbox.EOE.Attributes;
    bare.vSM = device.vSM;
    bare.RxPdo = device.RxPdo;
    bare.TxPdo = device.TxPdo;
    bare.mRxPdo = device.mRxPdo;
    bare.mTxPdo = device.mTxPdo;
    return bare;
}

GeneratedCounts generatedFor(struct_EtherCatDevice bare)
{
    appendDeviceStartup(bare);
    appendModuleStartup(bare, atLoadTime);
    return {bare.Mailbox.COE.InitCmd.vinitcmd.size(), bare.Mailbox.EOE.InitCmd.vinitcmd.size(),
            bare.mMailbox.COE.vinitcmd.size()};
}

template<typename Command> StartupSource sourceOf(const Command& command, const char* origin)
{
    return {origin, command.Comment, command.strData, std::nullopt};
}

/// What the commands of one list come from, one part of the list behind the other.
struct ListPart
{
    std::size_t end; ///< place behind its last command
    const char* origin;
};

template<typename Command, std::size_t Size>
void appendSources(std::vector<StartupSource>& sources, const std::vector<Command>& commands,
                   const std::array<ListPart, Size>& parts)
{
    std::size_t part = 0;
    for (std::size_t index = 0; index < commands.size(); ++index) {
        while (part + 1 < Size && index >= parts[part].end)
            ++part;
        sources.push_back(sourceOf(commands[index], parts[part].origin));
    }
}

/// How many of the commands of a list were there before others were generated.
std::size_t declared(std::size_t all, std::size_t generated)
{
    return all > generated ? all - generated : 0;
}

/// @param coe  tells whether commands of that kind are generated
const char* originByObject(const struct_KTL_InitCmd& command, const struct_KTL_COE& coe)
{
    if (command.Transition != PS)
        return unknown;
    if (coe.m_bPdoAssign != 0 && isAssignObject(command.Index))
        return assignment;
    return coe.m_bPdoConfig != 0 && isMappingObject(command.Index) ? mapping : unknown;
}

} // namespace

const StartupSource& sourceAt(const std::vector<StartupSource>& sources, std::size_t place)
{
    static const StartupSource unknownSource{unknown, std::nullopt, std::nullopt, std::nullopt};
    return place < sources.size() ? sources[place] : unknownSource;
}

bool isAssignObject(std::uint16_t index)
{
    return assignObjects.holds(index);
}

bool isMappingObject(std::uint16_t index)
{
    return mappingObjects.front().holds(index) || mappingObjects.back().holds(index);
}

StartupSources startupSourcesOf(const struct_EtherCatDevice& device)
{
    struct_EtherCatDevice bare = withoutCommands(device);
    const GeneratedCounts all = generatedFor(bare);
    bare.Mailbox.COE.Attributes.PdoConfig = false;
    const GeneratedCounts assigning = generatedFor(std::move(bare));
    const std::vector<struct_InitCmd>& deviceCoe = device.Mailbox.COE.InitCmd.vinitcmd;
    const std::vector<struct_InitCmd>& deviceEoe = device.Mailbox.EOE.InitCmd.vinitcmd;
    const std::vector<struct_moduleInitCmd>& moduleCoe = device.mMailbox.COE.vinitcmd;

    StartupSources sources;
    const std::size_t esiEoe = declared(deviceEoe.size(), all.deviceEoe);
    appendSources(sources.eoe, deviceEoe, std::array{ListPart{esiEoe, "ESI"}, ListPart{deviceEoe.size(), eoeStart}});
    // The device list clears its assign objects before it maps; the module list maps before it assigns.
    const std::size_t esiCoe = declared(deviceCoe.size(), all.deviceCoe);
    appendSources(sources.coe, deviceCoe,
                  std::array{ListPart{esiCoe, "ESI"}, ListPart{esiCoe + assigning.deviceCoe, assignment},
                             ListPart{deviceCoe.size(), mapping}});
    const std::size_t modules = declared(moduleCoe.size(), all.moduleCoe);
    appendSources(sources.coe, moduleCoe,
                  std::array{ListPart{modules, "module"},
                             ListPart{declared(moduleCoe.size(), assigning.moduleCoe), mapping},
                             ListPart{moduleCoe.size(), assignment}});
    setChoiceRows(sources, device, isSameAfterSelection(device));
    return sources;
}

StartupSources startupSourcesOf(const KtlDeviceBlock& block)
{
    StartupSources sources;
    for (const struct_KTL_InitCmd& command : block.eoeCommands)
        sources.eoe.push_back(
            {command.Transition == IP_PS ? eoeStart : unknown, std::nullopt, std::nullopt, std::nullopt});
    for (const struct_KTL_InitCmd& command : block.coeCommands)
        sources.coe.push_back({originByObject(command, block.coe), std::nullopt, std::nullopt, std::nullopt});
    return sources;
}
