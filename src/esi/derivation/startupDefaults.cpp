// startupDefaults.cpp - the fourth pass: generated startup commands. The walk calls it at its fixed place; it has no
// effect yet.
#include "esi/xmlparsing.h"

void device_startup_defalutset(struct_FilenameDevice* /*file*/) {}
