#include "show/showDictionary.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <array>

namespace {

const QString anyIndex = QStringLiteral("%1"); // the text of the index is not used here: it stands as a number

struct SignedType
{
    const char* name;
    unsigned bits;
};

/// Data types of numbers with a sign, as far as a default has their bits: it is kept in 32 of them.
constexpr std::array signedTypes{
    SignedType{"SINT", 8},   SignedType{"INT", 16},   SignedType{"DINT", 32},  SignedType{"INT8", 8},
    SignedType{"INT16", 16}, SignedType{"INT24", 24}, SignedType{"INT32", 32},
};

/// The number of a default that reads without its sign; nothing if its type has none, or the number is not of the type.
std::optional<std::int64_t> signedValue(const std::string& dataType, const std::string& value)
{
    const auto* const type = std::find_if(signedTypes.begin(), signedTypes.end(),
                                          [&](const SignedType& candidate) { return dataType == candidate.name; });
    bool isNumber = false;
    const qint64 number = QString::fromStdString(value).toLongLong(&isNumber);
    if (type == signedTypes.end() || !isNumber || number < 0 || number >> type->bits != 0)
        return std::nullopt;
    const qint64 range = qint64{1} << type->bits;
    return number < range / 2 ? number : number - range;
}

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
    ShownDictionaryRow row = rowAt(m_places.at(number));
    row.signedValue = signedValue(row.dataType, row.value);
    return row;
}

ShownDictionaryRow DictionaryRowList::rowAt(const Place& place)
{
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
            value.toStdString(),   std::nullopt};
}

ShownDictionaryRow DictionaryRowList::rowUnder(const Place& place)
{
    const QString objectFlags = tokenText(place.object->flags.Access);
    const QStringList texts = m_texts.ofRow(place.under, anyIndex, objectFlags);
    const DataTypeSubItem* const subItem = place.under.subItem;
    return {place.object->index,
            subItem != nullptr ? std::int64_t{subItem->SubIdx} : std::int64_t{place.under.element},
            texts.value(NameColumn).toStdString(),
            texts.value(FlagsColumn).toStdString(),
            texts.value(BitSizeColumn).toInt(),
            texts.value(TypeColumn).toStdString(),
            texts.value(ValueColumn).toStdString(),
            std::nullopt};
}
