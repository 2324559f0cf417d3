#include "workbench/dictionaryTree.h"

#include <QStyle>

#include <algorithm>

namespace {

/// A new item with texts, made from one with as many empty texts: copies share their columns, which is faster than to
/// let each item add column after column.
QTreeWidgetItem* itemOf(const QStringList& texts)
{
    static const QTreeWidgetItem row({{}, {}, {}, {}, {}, {}});
    static const QTreeWidgetItem rowWithoutValue({{}, {}, {}, {}, {}});
    auto* item = new QTreeWidgetItem(texts.size() > ValueColumn ? row : rowWithoutValue);
    for (int column = 0; column < texts.size(); ++column)
        item->setText(column, texts[column]);
    return item;
}

/// Widens a column to a text. One that is wider already, perhaps by the user's hand, stays as it is.
void makeRoomFor(QTreeWidget& tree, DictionaryColumn column, const QString& text, int indentation = 0)
{
    const int margin = tree.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &tree) + 1;
    const int width = indentation + margin + tree.fontMetrics().horizontalAdvance(text) + margin;
    tree.setColumnWidth(column, std::max(tree.columnWidth(column), width));
}

/// Indexes and the names of usual types are not to be cut off. Their room depends on the font, which the tree has only
/// after it was made; and to measure all rows would take longer than to make them.
void makeRoomForUsualTexts(QTreeWidget& tree)
{
    constexpr int levels = 2; // a row under an object stands behind the place of two arrows
    makeRoomFor(tree, IndexColumn, QStringLiteral("0xdddd:255"), levels * tree.indentation());
    makeRoomFor(tree, TypeColumn, QStringLiteral("STRING(255)"));
}

} // namespace

DictionaryItems::DictionaryItems(const DeviceDictionary& dictionary)
    : m_objects(dictionary.vobject)
    , m_index(dictionary.vdatatype, dictionary.vobject)
{}

/// The items are built apart from the tree and go into it all at once: a tree that is told of each row by itself takes
/// many times as long.
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
    makeRoomForUsualTexts(tree);
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
