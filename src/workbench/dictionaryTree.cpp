#include "workbench/dictionaryTree.h"

#include "esi/xmlCharConversion.h"
#include "model/dataTypeNames.h"

#include <QStringList>

namespace {

/// The default of an object or sub-item of a type, as it is shown.
QString valueText(const std::string& type, const str_Info& info)
{
    return isStringType(type) ? QString::fromStdString(info.DefaultString) : QString::number(info.DefaultValue);
}

QStringList objectTexts(const struct_Object& object, const QString& indexPattern)
{
    constexpr int wholeObject = 0;
    return {indexPattern.arg(wholeObject),
            QString::fromStdString(object.Name),
            xmlGetStringEnumNmtoken(object.flags.Access),
            QString::number(object.BitSize),
            isStructuredType(object.Type) ? QString() : QString::fromStdString(object.Type),
            valueText(object.Type, object.Info)};
}

/// Texts of the rows under one object. What rows of the same data type share is made once.
class RowTexts
{
public:
    /// @param flags  those of the object
    RowTexts(const DictionaryIndex& index, const QString& indexPattern, const QString& flags)
        : m_index(index)
        , m_indexPattern(indexPattern)
        , m_flags(flags)
    {}

    /// A text per column; an element of an array has no value.
    [[nodiscard]] QStringList textsOf(const DictionaryRow& row)
    {
        switchTo(*row.dataType);
        return row.subItem == nullptr ? elementTexts(row.element) : subItemTexts(*row.subItem);
    }

    /// ODD, KEPT: the object that a default is taken from is the one whose index stands in the name of the data type,
    /// such as "DT1C12", where one would expect the object that is being shown. Vendors name a record after the object
    /// that it was made for; an object that borrows the record of another one shows the defaults of that one, and a
    /// record whose name is no number those of object 0. Pinned by tst_CoeTab::valuesComeFromTheObjectInTheTypeName.
    [[nodiscard]] QString valueOf(const struct_DataTypes& dataType, const DataTypeSubItem& subItem)
    {
        switchTo(dataType);
        return valueText(subItem.Type, m_index.objectInfo(m_objectIndex, subItem.SubIdx));
    }

private:
    void switchTo(const struct_DataTypes& dataType)
    {
        if (m_dataType == &dataType)
            return;
        m_dataType = &dataType;
        m_objectIndex = toUint(QString::fromStdString(dataType.Name));
        m_baseType = QString::fromStdString(dataType.BaseType);
        m_baseBitSize = QString::number(m_index.sizeOfDataType(dataType.BaseType));
    }

    [[nodiscard]] QStringList subItemTexts(const DataTypeSubItem& subItem)
    {
        return {m_indexPattern.arg(subItem.SubIdx),
                QString::fromStdString(subItem.Name),
                xmlGetStringEnumNmtoken(subItem.flag.Access),
                QString::number(subItem.BitSize),
                QString::fromStdString(subItem.Type),
                valueOf(*m_dataType, subItem)};
    }

    [[nodiscard]] QStringList elementTexts(int element) const
    {
        return {m_indexPattern.arg(element), QStringLiteral("SubIndex %1").arg(element), m_flags, m_baseBitSize,
                m_baseType};
    }

    const DictionaryIndex& m_index;
    const QString& m_indexPattern;
    const QString& m_flags;
    const struct_DataTypes* m_dataType = nullptr; ///< the data type that the following members belong to
    std::uint32_t m_objectIndex = 0; ///< the number in its name
    QString m_baseType;
    QString m_baseBitSize;
};

} // namespace

void addRowsOfType(QTreeWidgetItem& item, const DictionaryIndex& index, DictionaryScanner& scanner,
                   const QString& indexPattern, const std::string& type)
{
    const DictionaryRows found = scanner.scan(type);
    const QString flags = item.text(FlagsColumn);
    RowTexts texts(index, indexPattern, flags);
    if (found.count != nullptr)
        item.setText(ValueColumn, texts.valueOf(*found.countedType, *found.count));
    QList<QTreeWidgetItem*> children;
    children.reserve(static_cast<int>(found.rows.size()));
    for (const DictionaryRow& row : found.rows)
        children.append(new QTreeWidgetItem(texts.textsOf(row)));
    item.addChildren(children);
}

/// The items are built apart from the tree and go into it all at once: a tree that is told of each row by itself takes
/// many times as long.
void addDictionary(QTreeWidget& tree, const DeviceDictionary& dictionary)
{
    const DictionaryIndex index(dictionary.vdatatype, dictionary.vobject);
    DictionaryScanner scanner(index);
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<int>(dictionary.vobject.size()));
    for (const struct_Object& object : dictionary.vobject) {
        const QString indexPattern = xmlGetStringuint(object.index) + QLatin1String(":%1");
        auto* item = new QTreeWidgetItem(objectTexts(object, indexPattern));
        addRowsOfType(*item, index, scanner, indexPattern, object.Type);
        items.append(item);
    }
    const int before = tree.topLevelItemCount();
    tree.addTopLevelItems(items);
    // By position: an item that expands itself first searches for its position, from item to item.
    for (int row = before; row < tree.topLevelItemCount(); ++row)
        tree.expand(tree.model()->index(row, 0));
}
