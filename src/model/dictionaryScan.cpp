#include "model/dictionaryScan.h"

#include "model/dataTypeNames.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>
#include <utility>

namespace {

/// One scan. Names are followed by a list of levels and not by calls: a chain of names may be longer than the stack of
/// the program.
class Scan
{
public:
    Scan(const DictionaryIndex& index, const ScanLimits& limits)
        : m_index(index)
        , m_left(limits)
    {}

    [[nodiscard]] DictionaryRows rowsUnder(const std::string& type)
    {
        enter(type);
        for (; !m_levels.empty() && m_left.steps > 0; --m_left.steps)
            step();
        return std::move(m_found);
    }

    /// What is left of the limits.
    [[nodiscard]] const ScanLimits& left() const { return m_left; }

private:
    /// The data types of a name, and how far they have been scanned.
    struct Level
    {
        const DictionaryIndex::DataTypes* dataTypes;
        std::size_t dataType = 0;
        std::size_t subItem = 0;
    };

    void enter(const std::string& type)
    {
        if (!isStructuredType(type))
            return;
        const DictionaryIndex::DataTypes& dataTypes = m_index.dataTypesNamed(type);
        if (!dataTypes.empty() && m_beingScanned.insert(&dataTypes).second)
            m_levels.push_back({&dataTypes});
    }

    void leave()
    {
        m_beingScanned.erase(m_levels.back().dataTypes);
        m_levels.pop_back();
    }

    void step()
    {
        Level& level = m_levels.back();
        if (level.dataType == level.dataTypes->size()) {
            leave();
            return;
        }
        const struct_DataTypes& dataType = *(*level.dataTypes)[level.dataType];
        if (level.subItem < dataType.vsubitem.size()) {
            const bool isFirst = level.subItem == 0;
            const DataTypeSubItem& subItem = dataType.vsubitem[level.subItem++];
            takeSubItem(dataType, subItem, isFirst);
            return;
        }
        if (!dataType.varrayinfo.empty())
            addElements(dataType, dataType.varrayinfo.front());
        ++level.dataType;
        level.subItem = 0;
    }

    /// The first sub-item of a record holds the number of the others and has no row of its own.
    void takeSubItem(const struct_DataTypes& dataType, const DataTypeSubItem& subItem, bool isFirst)
    {
        if (isFirst) {
            m_found.countedType = &dataType;
            m_found.count = &subItem;
        } else if (isStructuredType(subItem.Type)) {
            enter(subItem.Type);
        } else {
            addRow({&dataType, &subItem, 0});
        }
    }

    /// ODD, KEPT: the last element is the one numbered like the number of elements, wherever the first one is. One
    /// would expect as many as there are elements; with a lower bound of 0 there is one more. Pinned by
    /// tst_DictionaryScan::elements.
    void addElements(const struct_DataTypes& dataType, const ArrayInfo& bounds)
    {
        for (std::int64_t element = bounds.LBound; element <= bounds.Elements && m_left.rows > 0; ++element)
            addRow({&dataType, nullptr, static_cast<int>(element)});
    }

    void addRow(const DictionaryRow& row)
    {
        if (m_left.rows == 0)
            return;
        m_found.rows.push_back(row);
        --m_left.rows;
    }

    const DictionaryIndex& m_index;
    ScanLimits m_left;
    DictionaryRows m_found;
    std::vector<Level> m_levels;
    std::unordered_set<const DictionaryIndex::DataTypes*> m_beingScanned; ///< those of `m_levels`
};

} // namespace

DictionaryRows DictionaryScanner::scan(const std::string& type)
{
    const ScanLimits limits{std::min(limitsOfObject.rows, m_left.rows), std::min(limitsOfObject.steps, m_left.steps)};
    Scan scan(m_index, limits);
    DictionaryRows found = scan.rowsUnder(type);
    m_left.rows -= limits.rows - scan.left().rows;
    m_left.steps -= limits.steps - scan.left().steps;
    return found;
}
