// dictionaryTree.h - the items of the CoE tab: one for each object of a dictionary, and under it what its type holds.
#pragma once

#include "editing/dictionaryTexts.h"
#include "model/deviceRecords.h"

#include <QTreeWidget>

#include <string>

/// Gives the tree the widths of its columns, in pixels. From then on they are the user's.
void setUpDictionaryColumns(QTreeWidget& tree);

/// Gives the tree the point size of the application or, if that cuts off indexes at the width that their column was set
/// up with, the largest one that does not.
void fitDictionaryFont(QTreeWidget& tree);

/// Makes the items of the CoE tab from a dictionary, which must not change as long as the maker lives.
class DictionaryItems
{
public:
    explicit DictionaryItems(const DeviceDictionary& dictionary);
    ~DictionaryItems() = default;
    DictionaryItems(const DictionaryItems&) = delete;
    DictionaryItems& operator=(const DictionaryItems&) = delete;
    DictionaryItems(DictionaryItems&&) = delete;
    DictionaryItems& operator=(DictionaryItems&&) = delete;

    /// Adds all objects to a tree, expanded, with the rows under them.
    void addObjects(QTreeWidget& tree);

    /// Adds the rows of a data type under the item of an object, and gives the item the value that the data type
    /// counts.
    /// @param item          has its flags already: elements of an array share them
    /// @param indexPattern  text of the first column; "%1" stands for the sub-index
    void addRowsOfType(QTreeWidgetItem& item, const QString& indexPattern, const std::string& type);

private:
    const std::vector<struct_Object>& m_objects;
    DictionaryIndex m_index;
    DictionaryScanner m_scanner{m_index};
    DictionaryTexts m_texts{m_index};
};
