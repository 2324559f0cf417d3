// dictionaryTree.h - the rows of the CoE tab: one for each object of a dictionary, and under it what its data type holds.
#pragma once

#include "model/deviceRecords.h"
#include "model/dictionaryScan.h"

#include <QString>
#include <QTreeWidget>

#include <string>

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

/// Adds all objects of a dictionary to a tree, expanded, with the rows under them.
void addDictionary(QTreeWidget& tree, const DeviceDictionary& dictionary);

/// Adds the rows of a data type to the item of an object, and gives the item the value that the data type counts.
/// @param index         of the dictionary that the scanner scans
/// @param indexPattern  text of the first column; "%1" stands for the sub-index
/// @param item          has its flags already: elements of an array share them
void addRowsOfType(QTreeWidgetItem& item, const DictionaryIndex& index, DictionaryScanner& scanner,
                   const QString& indexPattern, const std::string& type);
