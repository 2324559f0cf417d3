#include "model/dictionaryIndex.h"

#include <algorithm>

static std::size_t subItemsOf(const struct_Object& object)
{
    return object.Info.vsubitem.size();
}

DictionaryIndex::DictionaryIndex(const std::vector<struct_DataTypes>& dataTypes,
                                 const std::vector<struct_Object>& objects)
{
    m_dataTypes.reserve(dataTypes.size());
    for (const struct_DataTypes& dataType : dataTypes)
        m_dataTypes[dataType.Name].push_back(&dataType);
    m_objects.reserve(objects.size());
    for (const struct_Object& object : objects) {
        std::vector<const struct_Object*>& ofThisIndex = m_objects[object.index];
        if (ofThisIndex.empty() || subItemsOf(object) > subItemsOf(*ofThisIndex.back()))
            ofThisIndex.push_back(&object);
    }
}

const DictionaryIndex::DataTypes& DictionaryIndex::dataTypesNamed(const std::string& name) const
{
    static const DataTypes none;
    const auto found = m_dataTypes.find(name);
    return found == m_dataTypes.cend() ? none : found->second;
}

int DictionaryIndex::sizeOfDataType(const std::string& name) const
{
    const DataTypes& dataTypes = dataTypesNamed(name);
    return dataTypes.empty() ? 0 : dataTypes.front()->BitSize;
}

const str_Info& DictionaryIndex::objectInfo(std::uint32_t index, std::uint32_t subIndex) const
{
    static const str_Info none;
    const auto found = m_objects.find(index);
    if (found == m_objects.cend())
        return none;
    const std::vector<const struct_Object*>& objects = found->second;
    const auto enough =
        std::upper_bound(objects.cbegin(), objects.cend(), std::size_t{subIndex},
                         [](std::size_t wanted, const struct_Object* object) { return wanted < subItemsOf(*object); });
    return enough == objects.cend() ? none : (*enough)->Info.vsubitem[subIndex].Info.Info;
}
