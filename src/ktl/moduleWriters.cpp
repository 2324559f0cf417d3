// moduleWriters.cpp - what depends on modules. The export calls each writer at its fixed place; none has an effect yet,
// and a file without these items stays legal: a reader skips by item size, and no item depends on one of these.
#include "ktl/ktlExport.h"

void KTL_write_device_AddModuleRPdo(std::FILE* /*out*/, struct_EtherCatDevice* /*device*/) {}

void KTL_write_device_AddModuleTPdo(std::FILE* /*out*/, struct_EtherCatDevice* /*device*/) {}

void KTL_write_device_SlotPreConfig(std::FILE* /*out*/, struct_EtherCatDevice* /*device*/) {}

void KTL_write_device_DeviceMoreInfo(std::FILE* /*out*/, struct_EtherCatDevice* /*device*/,
                                     struct_FilenameDevice* /*filedevices*/)
{}

void KTL_write_device_Module(std::FILE* /*out*/, struct_EtherCatDevice* /*device*/,
                             struct_FilenameDevice* /*filedevices*/)
{}
