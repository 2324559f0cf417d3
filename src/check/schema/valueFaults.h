// valueFaults.h - judges the values of a file and collects those that are not what they have to be.
#pragma once

#include "check/finding.h"
#include "check/schema/treeFacts.h"
#include "check/schema/valueKind.h"

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace check {

/// Where a value is.
struct ValuePlace
{
    xml::Element element;
    std::string_view attribute; ///< empty if it is the text of the element
};

/// Judges values in the order of the file.
class ValueFaults
{
public:
    /// What comes from now on is of that device or module, or of the file.
    void turnTo(const Owner& owner);

    /// @param isInTree  whether `text` lasts as long as the tree does
    void judge(const ValueType& type, const ValuePlace& place, std::string_view text, bool isInTree = true);

    /// Hands over what was collected.
    void moveTo(TreeFacts& facts);

private:
    /// A data type, as a PDO entry names it or as a dictionary declares it.
    struct TypeName
    {
        Owner owner;
        std::string_view name;

        bool operator<(const TypeName& other) const;
    };
    struct EntryType
    {
        TypeName type;
        ValueType valueType;
        xml::Element element;
    };

    void add(const ValueFault& fault);
    bool isBaseType(std::string_view name);
    void addUnknownTypes();
    [[nodiscard]] bool hasFile(const Owner& owner) const;
    [[nodiscard]] bool isDeclared(const TypeName& type) const;

    Owner m_owner;
    std::vector<ValueFault> m_faults;
    std::map<std::pair<ValueFaultKind, Owner>, std::size_t> m_counts; ///< found so far
    std::vector<EntryType> m_entryTypes; ///< that are no base types
    std::vector<TypeName> m_declared;
    std::vector<std::string_view> m_declaredAnywhere; ///< names of `m_declared`, sorted
    std::vector<TypeName> m_withFile; ///< without names: whose dictionaries are in other files
    std::string m_lastBaseType; ///< of an entry; many have the same one after the other
    std::deque<std::string> m_kept; ///< names that are not in the tree as they are
};

} // namespace check
