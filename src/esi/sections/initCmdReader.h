// initCmdReader.h - what a startup command has in common whether a device or a module declares it.
#pragma once

#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "text/utf16Length.h"

#include <array>
#include <cstdint>
#include <string_view>

/// Data of a command: byte count, number and text.
template<typename Command> void storeInitCmdData(Command& to, std::string_view value)
{
    // ODD, KEPT: the count is half the length of the text, so a "#x" mark counts as one byte, and data of more than
    // four bytes keeps its count although the number is 0. One would expect the bytes of the number. Pinned by
    // tst_MailboxSection::data and tst_ModuleInitCmds::data.
    to.DataBytes = static_cast<std::uint16_t>(utf16Length(value) / 2);
    to.Data = toUintFromBytes(value);
    to.strData = numberText(to.Data);
}

/// Children of an `InitCmd` element. A command has one transition; ESI allows several `Transition` elements, and the
/// last one wins. The sub-index is cut to the width of its field, 8 bits in a device and 16 in a module.
/// @tparam ReadIndex  the one row that differs: in a module the index has attributes
template<typename Command, auto ReadIndex>
const std::array initCmdRules{
    child("Transition", storeToken<&Command::Transition>), // of several the last one wins
    child("Index", ReadIndex),
    child("SubIndex", storeUint<&Command::SubIndex>),
    child("Data", storeInitCmdData<Command>),
    child("Comment", storeText<&Command::Comment>),
};
