#include "check/finding.h"

#include <tuple>

namespace check {

bool isBefore(const Finding& left, const Finding& right)
{
    // Of an ESI file the place counts, which a rule may have given; of a KTL file there is the offset alone.
    return std::tie(left.place.line, left.place.column, left.where)
           < std::tie(right.place.line, right.place.column, right.where);
}

} // namespace check
