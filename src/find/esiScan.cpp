#include "find/esiScan.h"

#include "esi/xml/xmlLimits.h"
#include "find/documentScan.h"
#include "find/plainScan.h"

namespace find {

namespace {

EsiScan resultOf(DeviceWalk& walk)
{
    EsiScan result;
    result.isEsi = walk.hasVendor();
    result.looksLikeEsi = walk.looksLikeEsi();
    if (result.isEsi)
        result.found = walk.takeFound();
    return result;
}

} // namespace

EsiScan scanEsi(QIODevice& file, Wanted wanted)
{
    if (DeviceWalk walk(wanted); file.size() <= maxXmlFileBytes && scanPlain(file, walk))
        return resultOf(walk);
    file.seek(0);
    DeviceWalk walk(wanted);
    const std::optional<XmlFormatError> fault = scanAsDocument(file, walk);
    EsiScan result = resultOf(walk);
    result.fault = fault;
    return result;
}

} // namespace find
