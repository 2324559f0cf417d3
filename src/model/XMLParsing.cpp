#include "model/XMLParsing.h"

std::vector<struct_FilenameDevice> g_xmlfiledevices;
QDomDocument domDocument;
