#include "find/selection.h"

namespace find {

void Selection::learn(const Found& found, bool isNewPlace)
{
    m_known[productOf(found)][found.revision] += isNewPlace ? 1 : 0;
}

bool Selection::takes(const Found& found) const
{
    const auto product = m_known.find(productOf(found));
    if (product == m_known.end())
        return false;
    const Revisions& revisions = product->second;
    if (m_takesLatest && revisions.rbegin()->first != found.revision)
        return false;
    return !m_takesDuplicates || revisions.at(found.revision) > 1;
}

} // namespace find
