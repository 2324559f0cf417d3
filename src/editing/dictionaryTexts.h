// dictionaryTexts.h - the texts of the CoE tab: a row for each object of a dictionary, and those under it.
#pragma once

#include "model/dictionaryScan.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

/// Columns of the CoE tab.
enum DictionaryColumn
{
    IndexColumn,
    NameColumn,
    FlagsColumn,
    BitSizeColumn,
    TypeColumn,
    ValueColumn,
};

/// Text of the index column with a place for the sub-index: "0x1018:%1".
[[nodiscard]] QString indexPatternOf(const struct_Object& object);

/// Name of an element of an array.
/// @param subIndex  in decimal
[[nodiscard]] QString elementName(const QString& subIndex);

/// The default of an object or sub-item of a type, as it is shown.
[[nodiscard]] QString valueText(const std::string& type, const str_Info& info);

/// Texts of the rows of one dictionary, a text per column. Rows have many of them in common, such as the names of
/// types; those are made once and shared.
class DictionaryTexts
{
public:
    /// @param index  has to outlive the texts, and so have the records that they are made of
    explicit DictionaryTexts(const DictionaryIndex& index)
        : m_index(index)
    {}

    /// Row of an object, before the value that its data type may give it.
    /// @param indexPattern  "%1" stands for the sub-index
    [[nodiscard]] QStringList ofObject(const struct_Object& object, const QString& indexPattern);

    /// Row under an object. One of an element of an array has no value, and five texts only.
    /// @param flags  those of the object, as they are shown; elements of an array share them
    [[nodiscard]] QStringList ofRow(const DictionaryRow& row, const QString& indexPattern, const QString& flags);

    /// Default of a sub-item, found by its sub-index.
    /// @param dataType  the record that the sub-item belongs to
    [[nodiscard]] QString valueOf(const struct_DataTypes& dataType, const DataTypeSubItem& subItem);

    /// Default of a sub-item as it was read, from the same place.
    [[nodiscard]] const str_Info& infoOf(const struct_DataTypes& dataType, const DataTypeSubItem& subItem);

private:
    void switchTo(const struct_DataTypes& dataType);
    [[nodiscard]] QString sharedName(const std::string& type);
    [[nodiscard]] QString sharedNumber(std::int64_t number);
    [[nodiscard]] QString sharedAccess(NMTOKEN access);

    const DictionaryIndex& m_index;
    std::unordered_map<std::string_view, QString> m_names;
    std::unordered_map<std::int64_t, QString> m_numbers;
    std::unordered_map<NMTOKEN, QString> m_accesses;

    const struct_DataTypes* m_dataType = nullptr; ///< the data type that the following members belong to
    std::uint32_t m_objectIndex = 0; ///< the number in its name
    QString m_baseType; ///< the type of its elements
    QString m_baseBitSize; ///< their size
};
