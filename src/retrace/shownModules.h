// shownModules.h - what a device block shows of the modules that were in the device.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"
#include "retrace/moduleFillings.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace retrace {

/// What a block shows of modules: PDOs that are not the device's own, commands, lengths of sync managers, and of a
/// coupler with preset modules their idents.
class ShownModules
{
public:
    /// @param device  with its type and settings
    /// @param block   has to outlive this
    /// @throws MissingSyncManager if the device lacks one that a PDO names
    ShownModules(const struct_EtherCatDevice& device, const KtlDeviceBlock& block);

    /// The PDOs that modules have brought in.
    [[nodiscard]] const std::vector<const KtlPdo*>& outputs() const { return m_outputs; }
    [[nodiscard]] const std::vector<const KtlPdo*>& inputs() const { return m_inputs; }

    /// Where a command stands.
    struct CommandPlace
    {
        std::size_t place = 0; ///< among the commands of the block
        bool isChanged = false; ///< with another value
    };

    /// The first place from a given one on where a command stands, or else one of the same object; nothing if neither
    /// stands there.
    [[nodiscard]] std::optional<CommandPlace> placeOf(const struct_KTL_InitCmd& command, std::size_t from) const;

    /// Whether a command assigns or maps a PDO.
    [[nodiscard]] bool mentions(const BroughtPdo& pdo) const;

    /// Whether the block presets a module in a place.
    /// @param ident  of the module; nothing for none
    /// @return  nothing if the block says nothing of the place
    [[nodiscard]] std::optional<bool> isPreset(int place, const std::optional<std::uint32_t>& ident) const;

    /// Whether the modules of a place have to be counted: those of all places, where the idents do not tell the number.
    [[nodiscard]] bool isCounted(int place) const { return m_isCountNeeded && isInPreset(place); }

    /// Whether the block presets another number of modules than were counted; it has the low 8 bits of the number.
    [[nodiscard]] bool isOtherCount(std::size_t counted) const;

    /// Lengths of the sync managers without modules.
    [[nodiscard]] const std::vector<float>& lengths() const { return m_lengths; }

    /// How many sync managers for process data have other lengths in the block.
    [[nodiscard]] std::size_t otherLengths(const std::vector<float>& lengths) const;

    /// How many sync managers for process data are shorter in the block.
    /// @param more  that is added to each length
    [[nodiscard]] std::size_t shorterLengths(const std::vector<float>& lengths, const std::vector<float>& more) const;

    /// How many commands of the block come from modules and nowhere else: they cannot be added by hand, and the device
    /// has fewer of them.
    [[nodiscard]] std::size_t commandsOfModules() const { return m_commandsOfModules; }

private:
    using CommandKey = std::tuple<std::uint16_t, std::uint16_t, std::uint8_t, std::uint16_t, std::uint32_t>;
    using ObjectKey = std::tuple<std::uint16_t, std::uint16_t, std::uint8_t>; ///< with the transition in front

    [[nodiscard]] bool isInPreset(int place) const;
    static CommandKey keyOf(const struct_KTL_InitCmd& command);
    static ObjectKey objectOf(const struct_KTL_InitCmd& command);
    void readPdos(const struct_EtherCatDevice& device);
    void readCommands(const struct_EtherCatDevice& device);
    void readFixedIdents(const struct_EtherCatDevice& device);
    void readLengths(const struct_EtherCatDevice& device);

    const KtlDeviceBlock& m_block;
    std::vector<const KtlPdo*> m_outputs;
    std::vector<const KtlPdo*> m_inputs;
    std::map<CommandKey, std::vector<std::size_t>> m_commands; ///< where each command stands in the block
    std::map<ObjectKey, std::vector<std::size_t>> m_commandObjects; ///< where commands of each object stand
    std::set<std::uint16_t> m_commandIndexes;
    std::size_t m_commandsOfModules = 0;
    std::set<std::pair<std::uint16_t, std::uint32_t>> m_assigned; ///< assign object and PDO
    std::map<int, std::uint32_t> m_fixedIdents; ///< of default modules that stay, by their numbers
    std::set<int> m_hiddenPlaces; ///< of which the preset shows such a module
    bool m_isCountNeeded = false; ///< the idents of the preset do not tell how many modules there are
    std::vector<float> m_lengths;
    std::vector<std::optional<std::uint16_t>>
        m_shownLengths; ///< by sync manager; nothing for mailboxes and virtual ones
};

} // namespace retrace
