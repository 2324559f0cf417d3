#include "cli/show/showDictionary.h"

#include "esi/xmlCharConversion.h"

namespace {

const QString anyIndex = QStringLiteral("%1"); // the text of the index is not used here: it stands as a number

} // namespace

DictionaryRowList::DictionaryRowList(const std::vector<struct_DataTypes>& dataTypes,
                                     const std::vector<struct_Object>& objects)
    : m_index(dataTypes, objects)
{
    DictionaryScanner scanner(m_index);
    for (const struct_Object& object : objects) {
        const DictionaryRows found = scanner.scan(object.Type);
        m_places.push_back({&object, {found.countedType, found.count, 0}, true});
        for (const DictionaryRow& row : found.rows)
            m_places.push_back({&object, row, false});
    }
}

ShownDictionaryRow DictionaryRowList::row(std::size_t number)
{
    const Place& place = m_places.at(number);
    return place.isObject ? objectRow(place) : rowUnder(place);
}

ShownDictionaryRow DictionaryRowList::objectRow(const Place& place)
{
    const QStringList texts = m_texts.ofObject(*place.object, anyIndex);
    const bool isCounted = place.under.subItem != nullptr;
    const QString value =
        isCounted ? m_texts.valueOf(*place.under.dataType, *place.under.subItem) : texts.value(ValueColumn);
    return {place.object->index,   0,
            place.object->Name,    texts.value(FlagsColumn).toStdString(),
            place.object->BitSize, texts.value(TypeColumn).toStdString(),
            value.toStdString()};
}

ShownDictionaryRow DictionaryRowList::rowUnder(const Place& place)
{
    const QString objectFlags = xmlGetStringEnumNmtoken(place.object->flags.Access);
    const QStringList texts = m_texts.ofRow(place.under, anyIndex, objectFlags);
    const DataTypeSubItem* const subItem = place.under.subItem;
    return {place.object->index,
            subItem != nullptr ? std::int64_t{subItem->SubIdx} : std::int64_t{place.under.element},
            texts.value(NameColumn).toStdString(),
            texts.value(FlagsColumn).toStdString(),
            texts.value(BitSizeColumn).toInt(),
            texts.value(TypeColumn).toStdString(),
            texts.value(ValueColumn).toStdString()};
}
