// dictionaryFacts.h - a CoE dictionary of an ESI file as rules see it.
#pragma once

#include "check/finding.h"
#include "esi/xml/tree.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace check {

/// What of an object can be done through the mailbox.
enum class Access : std::uint8_t
{
    Unknown, ///< it is not told
    ReadOnly,
    ReadWrite,
    WriteOnly,
};

/// Into which PDOs an object may be mapped.
enum class Mapping : std::uint8_t
{
    Unknown, ///< it is not told
    None,
    Outputs, ///< "R", RxPdo
    Inputs, ///< "T", TxPdo
    Both,
};

/// An object, or a sub-item of one.
struct ItemFacts
{
    int bits = 0; ///< 0 if it is not known
    std::string_view type; ///< name of the data type
    Access access = Access::Unknown;
    Mapping mapping = Mapping::Unknown;
};

/// How a look-up ended.
enum class LookUp : std::uint8_t
{
    Found,
    NoObject,
    NoSubIndex,
    CannotTell, ///< the dictionary does not say enough about the object: its type is not there
};

/// An item that was looked up.
struct LookedUpItem
{
    LookUp result = LookUp::NoObject;
    ItemFacts item; ///< if it was found
};

/// The dictionary of a device or module.
class DictionaryFacts
{
public:
    /// @param dictionaries  the `Dictionary` elements, which count as one; their tree has to outlive this
    explicit DictionaryFacts(const std::vector<xml::Element>& dictionaries);

    /// An object (sub-index 0 of one that has no sub-items) or a sub-item.
    [[nodiscard]] LookedUpItem itemAt(std::uint32_t index, std::uint32_t subIndex) const;
};

} // namespace check
