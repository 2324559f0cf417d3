// dictionaryScan.h - what is under an object of a CoE dictionary: the sub-items and elements of its data type.
#pragma once

#include "model/dictionaryIndex.h"

#include <cstddef>
#include <string>
#include <vector>

/// A row under an object: a sub-item of a record, or an element of an array.
struct DictionaryRow
{
    const struct_DataTypes* dataType = nullptr; ///< the record or array that the row belongs to, never null in a scan
    const DataTypeSubItem* subItem = nullptr; ///< null for an element of an array
    int element = 0; ///< sub-index of an element of an array; 0 for a sub-item
};

/// What a scan of a data type comes across.
struct DictionaryRows
{
    std::vector<DictionaryRow> rows; ///< in the order of the scan
    /// The first sub-item of a record, which has no row: it holds the number of the others. Null without a record.
    /// ODD, KEPT: it is the first one, where one would look for sub-index 0, and that of a record within a record
    /// replaces it, where one would expect it to stay. Pinned by tst_DictionaryScan::countOfTheLastRecord.
    const DataTypeSubItem* count = nullptr;
    const struct_DataTypes* countedType = nullptr; ///< the record that `count` belongs to
};

/// How far scans go. A dictionary may be wrong or made to do harm: arrays of billions of elements, data types that name
/// others so often that the rows under one object could not be counted.
struct ScanLimits
{
    std::size_t rows = 0; ///< what would come after them is left out
    std::size_t steps = 0; ///< sub-items and data types that are looked at; then the scan ends
};

/// Limits of one object. Sub-indexes have 8 bits, so at most 256 rows can be reached on the bus; this is all that 16
/// bits could count, for arrays that are plain blocks of bytes. The steps are enough for a chain of 200,000 data types
/// that each name the next, and take a fraction of a second.
inline constexpr ScanLimits limitsOfObject{65'536, 1'000'000};

/// Limits of all objects of a dictionary together. A dictionary of a large drive has some 60,000 rows; this many rows
/// take about 400 MB in a tree.
inline constexpr ScanLimits limitsOfDictionary{500'000, 10'000'000};

/// Scans the data types of a dictionary, object by object, and keeps to the limits.
class DictionaryScanner
{
public:
    /// @param index  has to outlive the scanner and the rows that it gives
    explicit DictionaryScanner(const DictionaryIndex& index)
        : m_index(index)
    {}

    /// The rows under an object of a type; none for a simple or unknown type. Data types that share a name
    /// are all scanned, in the order of the dictionary. A record within a record gives its rows instead of its own. A
    /// name that is being scanned is skipped: a circle of data types is followed once around.
    [[nodiscard]] DictionaryRows scan(const std::string& type);

private:
    const DictionaryIndex& m_index;
    ScanLimits m_left = limitsOfDictionary;
};
