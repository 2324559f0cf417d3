// startupDefaults.cpp - the fourth pass: generated startup commands.
#include "esi/derivation/startupCommands.h"
#include "esi/xmlparsing.h"

void device_startup_defalutset(struct_FilenameDevice* file)
{
    if (file == nullptr)
        return;
    for (struct_EtherCatDevice& device : file->device) {
        appendDeviceStartup(device);
        appendModuleStartup(device, atLoadTime);
    }
}
