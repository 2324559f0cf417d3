// moduleSection.cpp - one element of a run of modules. The walk calls the reader at its fixed place; it has no effect
// yet, so a module is counted but empty.
#include "esi/xmlparsing.h"

void read_device_Module(QDomElement* /*element*/, struct_module* /*module*/) {}
