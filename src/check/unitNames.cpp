#include "check/unitNames.h"

#include <string>

namespace check {

std::vector<UnitName> unitNamesOf(const std::vector<UnitFacts>& units)
{
    std::vector<UnitName> names;
    names.reserve(units.size());
    for (const UnitFacts& unit : units) {
        UnitName& name = names.emplace_back();
        name.owner = unit.owner;
        name.where = unit.where;
        name.vendor = unit.vendor;
        name.product = unit.product;
        name.revision = unit.revision;
        name.name = std::string(unit.name);
        name.type = std::string(unit.type);
    }
    return names;
}

} // namespace check
