#include "show/startupOrigins.h"

#include "esi/derivation/startupCommands.h"
#include "model/objectAreas.h"
#include "show/choiceRows.h"

#include <array>
#include <utility>

namespace show {

namespace {

constexpr const char* assignment = "PDO assignment";
constexpr const char* mapping = "PDO mapping";
constexpr const char* eoeStart = "EoE";
constexpr const char* unknown = "unknown";

/// Numbers of generated commands in the lists of a device.
struct GeneratedCounts
{
    std::size_t deviceCoe = 0;
    std::size_t deviceEoe = 0;
    std::size_t moduleCoe = 0;
};

/// A device with what startup commands are generated from, and without commands. It borrows the PDOs of the other
/// device as long as it lives: they can be too big for a copy.
class DeviceWithoutCommands
{
public:
    explicit DeviceWithoutCommands(struct_EtherCatDevice& lender)
        : m_lender(lender)
    {
        m_bare.Mailbox.COE.Attributes = lender.Mailbox.COE.Attributes;
        m_bare.Mailbox.EOE.Attributes = lender.Mailbox.EOE.Attributes;
        m_bare.vSM = lender.vSM;
        swapPdos();
    }
    ~DeviceWithoutCommands() { swapPdos(); }
    DeviceWithoutCommands(const DeviceWithoutCommands&) = delete;
    DeviceWithoutCommands& operator=(const DeviceWithoutCommands&) = delete;
    DeviceWithoutCommands(DeviceWithoutCommands&&) = delete;
    DeviceWithoutCommands& operator=(DeviceWithoutCommands&&) = delete;

    /// @param mapsPdos  whether commands that map PDOs count
    [[nodiscard]] GeneratedCounts generatedCounts(bool mapsPdos)
    {
        CoeAttributes& coe = m_bare.Mailbox.COE.Attributes;
        coe.PdoConfig = mapsPdos && m_lender.Mailbox.COE.Attributes.PdoConfig;
        appendDeviceStartup(m_bare);
        appendModuleStartup(m_bare, atLoadTime);
        return {taken(m_bare.Mailbox.COE.InitCmd.vinitcmd), taken(m_bare.Mailbox.EOE.InitCmd.vinitcmd),
                taken(m_bare.mMailbox.COE.vinitcmd)};
    }

private:
    /// Number of commands of a list, which is empty afterwards.
    template<typename Command> static std::size_t taken(std::vector<Command>& commands)
    {
        return std::exchange(commands, {}).size();
    }

    void swapPdos() noexcept
    {
        m_bare.RxPdo.vpdo.swap(m_lender.RxPdo.vpdo);
        m_bare.TxPdo.vpdo.swap(m_lender.TxPdo.vpdo);
        m_bare.mRxPdo.mpdo.swap(m_lender.mRxPdo.mpdo);
        m_bare.mTxPdo.mpdo.swap(m_lender.mTxPdo.mpdo);
    }

    struct_EtherCatDevice& m_lender;
    struct_EtherCatDevice m_bare;
};

template<typename Command> StartupSource sourceOf(const Command& command, const char* origin)
{
    return {origin, std::string_view(command.Comment), std::string_view(command.strData), std::nullopt};
}

/// One part of a list of commands, whose commands all come from the same place.
struct ListPart
{
    std::size_t end; ///< place after its last command
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

/// @param coe  says whether commands of that kind are generated
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

StartupSources startupSourcesOf(struct_EtherCatDevice& device)
{
    const bool isSame = isSameAfterSelection(device);
    DeviceWithoutCommands bare(device);
    const GeneratedCounts all = bare.generatedCounts(true);
    const GeneratedCounts assigning = bare.generatedCounts(false);
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
    setChoiceRows(sources, device, isSame);
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

} // namespace show
