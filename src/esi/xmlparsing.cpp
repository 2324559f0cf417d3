// xmlparsing.cpp - the fixed front of reading a document.
#include "esi/xmlparsing.h"

#include "esi/esiFile.h"

#include <utility>

bool read_xmldevice(const QString& projectName)
{
    EsiLoadResult result = fileFrom(domDocument, projectName);
    if (result.status != EsiLoadStatus::Loaded)
        return false;
    g_xmlfiledevices.push_back(std::move(result.file));
    return true;
}
