// slotModuleDefaults.cpp - the third pass: default modules in the slots. The walk calls it at its fixed place; it has
// no effect yet.
#include "esi/xmlparsing.h"

void device_slotmodule_defalutset(struct_FilenameDevice* /*file*/) {}
