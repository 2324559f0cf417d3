#include "workbench/dictionaryTree.h"

#include "workbench/tableFont.h"

#include <QApplication>
#include <QHeaderView>

namespace {

constexpr int indexWidth = 120;
constexpr int indentation = 10; // leaves most of the first column to the indexes

/// A new item with texts, made from one with as many empty texts: copies share their columns, which is faster than
/// adding column after column to each item.
QTreeWidgetItem* itemOf(const QStringList& texts)
{
    static const QTreeWidgetItem row({{}, {}, {}, {}, {}, {}});
    static const QTreeWidgetItem rowWithoutValue({{}, {}, {}, {}, {}});
    auto* item = new QTreeWidgetItem(texts.size() > ValueColumn ? row : rowWithoutValue);
    for (int column = 0; column < texts.size(); ++column)
        item->setText(column, texts[column]);
    return item;
}

} // namespace

void setUpDictionaryColumns(QTreeWidget& tree)
{
    const int widths[] = {indexWidth, 250, 80, 80};
    int column = IndexColumn;
    for (const int width : widths)
        tree.setColumnWidth(column++, width);
    tree.setColumnWidth(TypeColumn, tree.header()->defaultSectionSize() * 3 / 2); // "STRING(255)" is not cut off
    tree.setIndentation(indentation);
}

void fitDictionaryFont(QTreeWidget& tree)
{
    constexpr int levels = 2; // a row under an object is indented by two levels
    QFont font = tree.font();
    font.setPointSize(QApplication::font().pointSize());
    tree.setFont(fittingFont(font, QStringLiteral("0xdddd:255"), indexWidth - levels * indentation, tree));
}

DictionaryItems::DictionaryItems(const DeviceDictionary& dictionary)
    : m_objects(dictionary.vobject)
    , m_index(dictionary.vdatatype, dictionary.vobject)
{}

/// The items are built apart from the tree and go into it all at once: a tree that hears of each row
/// separately takes many times as long.
void DictionaryItems::addObjects(QTreeWidget& tree)
{
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<int>(m_objects.size()));
    for (const struct_Object& object : m_objects) {
        const QString indexPattern = indexPatternOf(object);
        auto* item = itemOf(m_texts.ofObject(object, indexPattern));
        addRowsOfType(*item, indexPattern, object.Type);
        items.append(item);
    }
    const int before = tree.topLevelItemCount();
    tree.addTopLevelItems(items);
    // By position: an item that expands itself first searches for its position, from item to item.
    for (int row = before; row < tree.topLevelItemCount(); ++row)
        tree.expand(tree.model()->index(row, 0));
}

void DictionaryItems::addRowsOfType(QTreeWidgetItem& item, const QString& indexPattern, const std::string& type)
{
    const DictionaryRows found = m_scanner.scan(type);
    if (found.count != nullptr)
        item.setText(ValueColumn, m_texts.valueOf(*found.countedType, *found.count));
    const QString flags = item.text(FlagsColumn);
    QList<QTreeWidgetItem*> children;
    children.reserve(static_cast<int>(found.rows.size()));
    for (const DictionaryRow& row : found.rows)
        children.append(itemOf(m_texts.ofRow(row, indexPattern, flags)));
    item.addChildren(children);
}
