#include "editing/moduleData.h"

#include "esi/derivation/moduleInSlot.h"
#include "esi/derivation/smLengths.h"
#include "esi/derivation/startupCommands.h"
#include "model/missingSyncManager.h"
#include "model/pdoAccess.h"

void moduleData::renewLists(struct_EtherCatDevice& device)
{
    rebuildModuleLists(device);
}

void moduleData::appendStartup(struct_EtherCatDevice& device)
{
    appendModuleStartup(device, atEditTime);
}

void moduleData::renewLengths(struct_EtherCatDevice& device)
{
    updateProcessDataLengths(device);
}

void renewModuleData(struct_EtherCatDevice& device)
{
    onDevice(device, [&] {
        moduleData::renewLists(device);
        moduleData::appendStartup(device);
        moduleData::renewLengths(device);
    });
}
