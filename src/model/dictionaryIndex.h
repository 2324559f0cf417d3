// dictionaryIndex.h - look-ups in a CoE dictionary: data types by name, default data by object index.
#pragma once

#include "model/dictionaryRecords.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The data types and objects of one dictionary, sorted for look-ups: each takes about the same time however long the
/// lists are. It refers to the lists, so it is valid as long as neither of them changes.
class DictionaryIndex
{
public:
    /// Data types that share a name, in the order of the list.
    using DataTypes = std::vector<const struct_DataTypes*>;

    DictionaryIndex(const std::vector<struct_DataTypes>& dataTypes, const std::vector<struct_Object>& objects);

    /// All data types whose whole name, case-sensitive, is the given one: nothing in the format keeps a name from
    /// occurring twice. The reference is valid as long as the index.
    /// @return  empty if there is none
    [[nodiscard]] const DataTypes& dataTypesNamed(const std::string& name) const;

    /// Bits of the first data type of that name; 0 if there is none.
    [[nodiscard]] int sizeOfDataType(const std::string& name) const;

    /// Default data and limits of a sub-item, from the first object of that index that has so many sub-items: one with
    /// too few is passed over.
    /// @param subIndex  place in the object's list of sub-items
    /// @return          an empty block if no object has it; the reference is valid as long as the index
    [[nodiscard]] const str_Info& objectInfo(std::uint32_t index, std::uint32_t subIndex) const;

private:
    std::unordered_map<std::string_view, DataTypes> m_dataTypes;
    /// Objects by index. Of those that share an index there are only the ones that have more sub-items than all before
    /// them: the others are never the first that has enough.
    std::unordered_map<std::uint32_t, std::vector<const struct_Object*>> m_objects;
};
