// showStartup.h - startup commands as the controller gets them.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "show/showValue.h"
#include "show/shownDevice.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace show {

/// One startup command of a device block.
struct ShownCommand
{
    std::size_t position = 0; ///< from 1, in the order of the file
    bool isEoe = false;
    struct_KTL_InitCmd record = {};
    const std::vector<std::uint32_t>* values = nullptr; ///< of a complete access; null if they are not known
    const StartupSource* source = nullptr; ///< never null in the result of `commandsOf`
};

/// All commands of a device block in the order of the file: EoE, then CoE.
/// @param device  has to outlive the result
/// @param values  see `valuesOfCommands`; has to outlive the result too
[[nodiscard]] std::vector<ShownCommand>
commandsOf(const ShownDevice& device, const std::optional<std::vector<std::vector<std::uint32_t>>>& values);

/// Commands of one transition.
struct TransitionGroup
{
    std::uint16_t transition;
    std::vector<ShownCommand> commands;
};

/// Commands by transition, in the order in which the file has the first of each; in a group they are in the order of
/// the file.
[[nodiscard]] std::vector<TransitionGroup> groupsByTransition(const std::vector<ShownCommand>& commands);

/// Whether a command writes a number that the file carries. A complete access does not, nor does a value of more than
/// four bytes whose number is 0: it did not fit. Any other number is the value, whatever its length is: that includes
/// a mark before the digits and zeros after the last significant byte.
[[nodiscard]] bool hasNumber(const struct_KTL_InitCmd& record);
[[nodiscard]] bool hasNumber(const struct_KTL_moduleStartupOne& record); ///< as above, of a module block

/// The number that a command writes; null if the file does not carry it.
template<typename Record> [[nodiscard]] Value numberOf(const Record& record)
{
    return hasNumber(record) ? bothForms(record.Data) : Value();
}

/// What a command does, in words, where its object shows that: "0x6040:0, 16 bits"; otherwise empty.
[[nodiscard]] std::string meaningOf(const ShownCommand& command);
[[nodiscard]] std::string meaningOf(const struct_KTL_moduleStartupOne& record); ///< as above, of a module block

/// Members of one command.
[[nodiscard]] Object commandMembers(const ShownCommand& command);

/// Startup commands of a device, see `groupsByTransition`.
/// @param device  has to outlive the result
[[nodiscard]] Value startupGroups(const ShownDevice& device);

} // namespace show
