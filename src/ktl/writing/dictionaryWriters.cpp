// dictionaryWriters.cpp - items of the objects by which modules are configured and detected. No export calls them yet.
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"
#include "model/dictionaryScan.h"

#include <cstdint>
#include <string>

namespace {

/// A dictionary in one piece, of a device or of a module, and the file that it goes to.
class DictionaryWriter
{
public:
    /// @param dictionary  has to outlive the writer
    template<typename Dictionary>
    DictionaryWriter(std::FILE* out, const Dictionary& dictionary)
        : m_out(out)
        , m_index(dictionary.vdatatype, dictionary.vobject)
    {}
    ~DictionaryWriter() = default;
    DictionaryWriter(const DictionaryWriter&) = delete; // the scanner refers to the index beside it
    DictionaryWriter& operator=(const DictionaryWriter&) = delete;
    DictionaryWriter(DictionaryWriter&&) = delete;
    DictionaryWriter& operator=(DictionaryWriter&&) = delete;

    /// Writes what the data type of an object holds, one item each, as far as the scan goes.
    void writeSubObjects(const std::string& type, const struct_KTL_ObjectType& object)
    {
        for (const DictionaryRow& row : m_scanner.scan(type).rows)
            ItemWriter(row.subItem != nullptr ? subItemItem(*row.subItem, object) : elementItem(row, object))
                .writeTo(m_out);
    }

private:
    [[nodiscard]] static struct_KTL_SubObjectType clearedItem()
    {
        struct_KTL_SubObjectType item{};
        item.m_iItemType = KTL_ITEM_SubObjectType;
        item.m_iSize = sizeof item;
        return item;
    }

    /// ODD, KEPT: the limits come from the place in the object's list that the sub-index names, where one would look
    /// for a sub-item of that number; the list of an object has no numbers. Pinned by
    /// tst_DictionaryWriters::limitsOfASubItem.
    [[nodiscard]] struct_KTL_SubObjectType subItemItem(const DataTypeSubItem& subItem,
                                                       const struct_KTL_ObjectType& object) const
    {
        const str_Info& info = m_index.objectInfo(object.index, subItem.SubIdx);
        struct_KTL_SubObjectType item = clearedItem();
        item.subIndex = subItem.SubIdx;
        item.BitSize = subItem.BitSize;
        item.flags.Access = static_cast<std::uint16_t>(subItem.flag.Access);
        item.info.MinData = info.MinData;
        item.info.MaxData = info.MaxData;
        return item;
    }

    /// Elements of an array have the access of the whole object, and no limits.
    [[nodiscard]] struct_KTL_SubObjectType elementItem(const DictionaryRow& row,
                                                       const struct_KTL_ObjectType& object) const
    {
        struct_KTL_SubObjectType item = clearedItem();
        item.subIndex = static_cast<std::uint32_t>(row.element);
        item.BitSize = m_index.sizeOfDataType(row.dataType->BaseType);
        item.flags.Access = object.flags.Access;
        return item;
    }

    std::FILE* m_out;
    DictionaryIndex m_index;
    DictionaryScanner m_scanner{m_index};
};

/// ODD, KEPT: the size stays 0, where one would expect 28. A file that held the item would be one that cannot be read
/// any further, so the size has to be set before an export calls this. Pinned by tst_DictionaryWriters::objectItem.
struct_KTL_ObjectType objectItem(enum_KTL_ITEM_TYPE type, const struct_Object& object)
{
    struct_KTL_ObjectType item{};
    item.m_iItemType = type;
    item.index = object.index;
    item.BitSize = object.BitSize;
    item.flags.Access = static_cast<std::uint16_t>(object.flags.Access);
    item.info.MinData = object.Info.MinData;
    item.info.MaxData = object.Info.MaxData;
    return item;
}

template<typename Dictionary>
void scanDictionary(std::FILE* out, const Dictionary& dictionary, const std::string& type,
                    const struct_KTL_ObjectType& object)
{
    DictionaryWriter(out, dictionary).writeSubObjects(type, object);
}

template<typename Dictionary> int dataTypeSize(const Dictionary& dictionary, const std::string& type)
{
    return DictionaryIndex(dictionary.vdatatype, dictionary.vobject).sizeOfDataType(type);
}

template<typename Dictionary>
str_Info objectInfo(const Dictionary& dictionary, std::uint32_t index, std::uint32_t subIndex)
{
    return DictionaryIndex(dictionary.vdatatype, dictionary.vobject).objectInfo(index, subIndex);
}

} // namespace

void KTL_write_device_Objects(std::FILE* out, struct_EtherCatDevice* device)
{
    if (out == nullptr || device == nullptr)
        return;
    DictionaryWriter writer(out, device->Dictionary);
    // ODD, KEPT: an index that was not entered is 0, and an object of index 0 counts as the one that is meant, where
    // one would expect 0 to mean none. Pinned by tst_DictionaryWriters::whichObjects.
    for (const struct_Object& object : device->Dictionary.vobject) {
        const bool isConfig = object.index == device->configindex;
        if (!isConfig && object.index != device->detectindex)
            continue;
        const struct_KTL_ObjectType item =
            objectItem(isConfig ? KTL_ITEM_ObjectConfigType : KTL_ITEM_ObjectDetectType, object);
        ItemWriter(item).writeTo(out);
        writer.writeSubObjects(object.Type, item);
    }
}

void KTL_write_device_ObjectScan(std::FILE* out, struct_EtherCatDevice* device, const std::string& type,
                                 const struct_KTL_ObjectType* object)
{
    if (out != nullptr && device != nullptr && object != nullptr)
        scanDictionary(out, device->Dictionary, type, *object);
}

void KTL_write_device_ObjectmoduleScan(std::FILE* out, struct_module* module, const std::string& type,
                                       const struct_KTL_ObjectType* object)
{
    if (out != nullptr && module != nullptr && object != nullptr)
        scanDictionary(out, module->Dictionary, type, *object);
}

int KTL_get_device_datatypeSize(struct_EtherCatDevice* device, const std::string& type)
{
    return device != nullptr ? dataTypeSize(device->Dictionary, type) : 0;
}

int KTL_get_device_datatypemoduleSize(struct_module* module, const std::string& type)
{
    return module != nullptr ? dataTypeSize(module->Dictionary, type) : 0;
}

str_Info KTL_get_device_objectInfo(struct_EtherCatDevice* device, std::uint32_t index, std::uint32_t subIndex)
{
    return device != nullptr ? objectInfo(device->Dictionary, index, subIndex) : str_Info();
}

str_Info KTL_get_device_objectmoduleInfo(struct_module* module, std::uint32_t index, std::uint32_t subIndex)
{
    return module != nullptr ? objectInfo(module->Dictionary, index, subIndex) : str_Info();
}
