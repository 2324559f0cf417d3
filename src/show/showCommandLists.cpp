#include "show/showCommandLists.h"

#include "model/startupAccess.h"
#include "show/showWords.h"

namespace show {

namespace {

/// What commands of devices and of modules have in common.
template<typename Command> Object commonCommandMembers(const Command& command)
{
    const auto valueOf = [](unsigned int value) { return hexadecimal(value); };
    return {{"transition", decimal(command.Transition)},
            {"transitionName", text(tokenName(command.Transition))},
            {"index", hexadecimal(indexOf(command))},
            {"subIndex", decimal(command.SubIndex)},
            {"completeAccess", decimal(command.bIfCA)},
            {"dataBytes", decimal(command.DataBytes)},
            {"data", bothForms(command.Data)},
            {"values", listOf(command.m_CADataList, valueOf)},
            {"text", text(command.strData)},
            {"comment", text(command.Comment)}};
}

Object moduleCommandMembers(const struct_moduleInitCmd& command)
{
    const ModuleInitCmdIndex& index = command.indexAttributes;
    return with(commonCommandMembers(command), {{"dependOnSlot", flag(index.DependOnSlot)},
                                                {"dependOnSlotGroup", flag(index.DependOnSlotGroup)},
                                                {"adaptAutomatically", flag(index.AdaptAutomatically)},
                                                {"instances", decimal(command.Instances)}});
}

} // namespace

Value commandList(const std::vector<struct_InitCmd>& commands)
{
    return listOf(commands, commonCommandMembers<struct_InitCmd>);
}

Value commandList(const std::vector<struct_moduleInitCmd>& commands)
{
    return listOf(commands, moduleCommandMembers);
}

} // namespace show
