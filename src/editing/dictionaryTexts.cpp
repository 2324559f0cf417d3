#include "editing/dictionaryTexts.h"

#include "model/dataTypeNames.h"
#include "model/valueTexts.h"

namespace {

/// The text of a key, made on its first use.
template<typename Key, typename MakeText>
QString sharedText(std::unordered_map<Key, QString>& texts, Key key, MakeText makeText)
{
    const auto [entry, isNew] = texts.try_emplace(key);
    if (isNew)
        entry->second = makeText();
    return entry->second;
}

} // namespace

QString indexPatternOf(const struct_Object& object)
{
    return hexNumber(object.index) + QLatin1String(":%1");
}

QString elementName(const QString& subIndex)
{
    return QLatin1String("SubIndex ") + subIndex;
}

QString valueText(const std::string& type, const str_Info& info)
{
    return isStringType(type) ? QString::fromStdString(info.DefaultString) : QString::number(info.DefaultValue);
}

QStringList DictionaryTexts::ofObject(const struct_Object& object, const QString& indexPattern)
{
    return {indexPattern.arg(QLatin1Char('0')),
            QString::fromStdString(object.Name),
            sharedAccess(object.flags.Access),
            sharedNumber(object.BitSize),
            isStructuredType(object.Type) ? QString() : sharedName(object.Type),
            valueText(object.Type, object.Info)};
}

QStringList DictionaryTexts::ofRow(const DictionaryRow& row, const QString& indexPattern, const QString& flags)
{
    if (row.subItem != nullptr) {
        const DataTypeSubItem& subItem = *row.subItem;
        return {indexPattern.arg(sharedNumber(subItem.SubIdx)),
                QString::fromStdString(subItem.Name),
                sharedAccess(subItem.flag.Access),
                sharedNumber(subItem.BitSize),
                sharedName(subItem.Type),
                valueOf(*row.dataType, subItem)};
    }
    switchTo(*row.dataType);
    const QString element = sharedNumber(row.element);
    return {indexPattern.arg(element), elementName(element), flags, m_baseBitSize, m_baseType};
}

QString DictionaryTexts::valueOf(const struct_DataTypes& dataType, const DataTypeSubItem& subItem)
{
    return valueText(subItem.Type, infoOf(dataType, subItem));
}

/// ODD, KEPT: the default is that of the object whose index is in the name of the data type, such as "DT1C12", where
/// one would expect the object that is shown. So an object with the record of another one shows the other's defaults,
/// and a record whose name is no number shows those of object 0. Pinned by
/// tst_DictionaryTexts::valueOfTheObjectInTheTypeName.
const str_Info& DictionaryTexts::infoOf(const struct_DataTypes& dataType, const DataTypeSubItem& subItem)
{
    switchTo(dataType);
    return m_index.objectInfo(m_objectIndex, subItem.SubIdx);
}

/// Rows of one data type follow each other, so what they share is worked out when the data type changes.
void DictionaryTexts::switchTo(const struct_DataTypes& dataType)
{
    if (m_dataType == &dataType)
        return;
    m_dataType = &dataType;
    m_objectIndex = toUint(QString::fromStdString(dataType.Name));
    m_baseType = sharedName(dataType.BaseType);
    m_baseBitSize = sharedNumber(m_index.sizeOfDataType(dataType.BaseType));
}

QString DictionaryTexts::sharedName(const std::string& type)
{
    return sharedText(m_names, std::string_view(type), [&] { return QString::fromStdString(type); });
}

QString DictionaryTexts::sharedNumber(std::int64_t number)
{
    return sharedText(m_numbers, number, [=] { return QString::number(qlonglong{number}); });
}

QString DictionaryTexts::sharedAccess(NMTOKEN access)
{
    return sharedText(m_accesses, access, [=] { return tokenText(access); });
}
