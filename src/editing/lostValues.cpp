#include "editing/lostValues.h"

#include "model/carriedValue.h"
#include "model/moduleAccess.h"
#include "model/startupAccess.h"

#include <vector>

namespace {

/// Adds what is lost of one list. Values of complete accesses are not in the record, and have room elsewhere.
template<typename Command> void addLost(LostValues& to, const std::vector<Command>& commands)
{
    for (const Command& command : commands) {
        if (command.bIfCA != 0 || isCarried(command.DataBytes, command.Data))
            continue;
        if (++to.count == 1)
            to.first = LostValue{indexOf(command), command.SubIndex, command.DataBytes, command.Comment};
    }
}

} // namespace

LostValues lostValuesOf(const struct_EtherCatDevice& device)
{
    LostValues lost;
    addLost(lost, device.Mailbox.COE.InitCmd.vinitcmd);
    addLost(lost, device.mMailbox.COE.vinitcmd);
    return lost;
}

LostValues lostModuleValuesOf(const struct_FilenameDevice& file)
{
    LostValues lost;
    forEachModule(file, [&](const struct_module& module) { addLost(lost, module.Mailbox.COE.vinitcmd); });
    return lost;
}
