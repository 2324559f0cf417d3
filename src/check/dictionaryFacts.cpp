#include "check/dictionaryFacts.h"

namespace check {

DictionaryFacts::DictionaryFacts(const std::vector<xml::Element>& /*dictionaries*/) {}

LookedUpItem DictionaryFacts::itemAt(std::uint32_t /*index*/, std::uint32_t /*subIndex*/) const
{
    return {LookUp::CannotTell, {}};
}

} // namespace check
