#include "show/showPdos.h"

#include "model/pdoAccess.h"
#include "show/showWords.h"

namespace show {

namespace {

/// What entries of devices and of modules have in common.
template<typename Entry> Object commonEntryMembers(const Entry& entry)
{
    return {{"index", hexadecimal(indexOf(entry))},
            {"subIndex", decimal(entry.SubIndex)},
            {"bitLength", decimal(bitLengthOf(entry))},
            {"offset", fraction(entry.Offs)},
            {"name", text(entry.Name)},
            {"dataType", text(entry.DataType)},
            {"link", decimal(entry.Linkto)},
            {"linkName", text(linkWords(entry.Linkto))},
            {"defaultData", decimal(entry.DefaultData)}};
}

Object entryMembers(const struct_EntryPDOContent& entry)
{
    return with(commonEntryMembers(entry), {{"fixed", flag(entry.Attributes.Fixed)}});
}

Object entryMembers(const struct_moduleEntry& entry)
{
    return with(commonEntryMembers(entry), {{"dependOnSlot", flag(entry.indexAttributes.DependOnSlot)},
                                            {"dependOnSlotGroup", flag(entry.indexAttributes.m_DependOnSlotGroup)},
                                            {"comment", text(entry.Comment)}});
}

/// What PDOs of devices and of modules have in common.
template<typename Pdo> Object commonPdoMembers(const Pdo& pdo)
{
    return {{"index", hexadecimal(indexOf(pdo))},
            {"name", text(pdo.Name)},
            {"fixed", flag(pdo.Attributes.Fixed)},
            {"mandatory", flag(pdo.Attributes.Mandatory)},
            {"syncManager", decimal(pdo.Attributes.SM)},
            {"syncUnit", decimal(pdo.Attributes.SU)},
            {"size", fraction(sizeOf(pdo))}};
}

/// @param choiceRow  of the PDO
template<typename Pdo> Member entriesMember(const Pdo& pdo, const std::optional<std::int64_t>& choiceRow)
{
    const bool hasRow = choiceRow.has_value();
    return {"entries", {List{entriesOf(pdo).size(), [&pdo, hasRow](std::size_t index) -> Value {
                                 const auto position = static_cast<std::int64_t>(index);
                                 return {with(entryMembers(entriesOf(pdo)[index]),
                                              {{"choiceEntry", hasRow ? decimal(position) : Value()}})};
                             }}}};
}

Object pdoMembers(const struct_PDOList& pdo, const std::optional<std::int64_t>& choiceRow)
{
    const PdoAttributes& attributes = pdo.Attributes;
    return with(commonPdoMembers(pdo), {{"oversamplingFactor", decimal(attributes.m_OSFac)},
                                        {"oversamplingMin", decimal(attributes.m_OSMin)},
                                        {"oversamplingMax", decimal(attributes.m_OSMax)},
                                        {"oversamplingIndexIncrement", decimal(attributes.m_OSIndexInc)},
                                        {"choicePdo", optionalNumber(choiceRow)},
                                        entriesMember(pdo, choiceRow)});
}

Object pdoMembers(const modulePdo& pdo, const std::optional<std::int64_t>& choiceRow)
{
    return with(commonPdoMembers(pdo), {{"dependOnSlot", flag(pdo.indexAttributes.DependOnSlot)},
                                        {"dependOnSlotGroup", flag(pdo.indexAttributes.DependOnSlotGroup)},
                                        {"instances", decimal(pdo.Instances)},
                                        {"choicePdo", optionalNumber(choiceRow)},
                                        entriesMember(pdo, choiceRow)});
}

template<typename Pdo> Value pdoList(const std::vector<Pdo>& pdos, const std::optional<std::int64_t>& firstChoiceRow)
{
    return {List{pdos.size(), [&pdos, firstChoiceRow](std::size_t index) -> Value {
                     std::optional<std::int64_t> row = firstChoiceRow;
                     if (row)
                         *row += static_cast<std::int64_t>(index);
                     return {pdoMembers(pdos[index], row)};
                 }}};
}

} // namespace

Value pdosOf(const std::vector<struct_PDOList>& pdos, const std::optional<std::int64_t>& firstChoiceRow)
{
    return pdoList(pdos, firstChoiceRow);
}

Value pdosOf(const std::vector<modulePdo>& pdos, const std::optional<std::int64_t>& firstChoiceRow)
{
    return pdoList(pdos, firstChoiceRow);
}

} // namespace show
