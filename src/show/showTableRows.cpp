#include "show/showTableRows.h"

namespace show {

Fields rowOf(const Place& place, const Fields& fields)
{
    Fields row{place.file, place.device, place.deviceName, place.owner};
    row.insert(row.end(), fields.begin(), fields.end());
    return row;
}

std::string numeral(const std::optional<std::int64_t>& number)
{
    return number ? std::to_string(*number) : std::string();
}

std::string yesOrNo(bool isSet)
{
    return isSet ? "yes" : "no";
}

std::string moduleOwner(std::uint32_t ident)
{
    return "module " + hexText(ident);
}

} // namespace show
