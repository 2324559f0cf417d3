// startupDefaults.cpp - the fourth pass: generated startup commands.
#include "esi/derivation/startupCommands.h"
#include "esi/xmlparsing.h"
#include "model/missingSyncManager.h"

void device_startup_defalutset(struct_FilenameDevice* file)
{
    if (file == nullptr)
        return;
    for (struct_EtherCatDevice& device : file->device)
        onDevice(device, [&] {
            appendDeviceStartup(device);
            appendModuleStartup(device, atLoadTime);
        });
}
