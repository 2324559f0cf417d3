// entryTargets.h - the entries of PDOs that a choices file names.
#pragma once

#include "choices/choices.h"
#include "choices/namesakes.h"
#include "choices/problems.h"
#include "choices/words.h"
#include "editing/linkTexts.h"
#include "editing/pdoRows.h"
#include "model/pdoAccess.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace choices {

/// Object of an entry.
template<typename Entry> [[nodiscard]] ObjectAddress objectOf(const Entry& entry)
{
    return {indexOf(entry), entry.SubIndex};
}

/// The entries of an owner's PDOs, found without a walk over all of them for each choice. What is asked for first costs
/// the walk.
/// @tparam Owner  a device or a module
template<typename Owner> class EntryTargets
{
public:
    /// @param owner  must outlive this object and keep its PDOs
    explicit EntryTargets(Owner& owner)
        : m_owner(owner)
    {}

    [[nodiscard]] Owner& owner() const { return m_owner; }

    /// How many rows the list of PDOs has.
    [[nodiscard]] std::size_t rowCount() const
    {
        std::size_t count = 0;
        forEachPdoList(m_owner, [&](const auto& pdos, PdoDirection) { count += pdos.size(); });
        return count;
    }

    /// The rows of the PDOs with an index.
    [[nodiscard]] Namesakes rowsOf(std::uint32_t index)
    {
        if (m_rows.empty())
            findRows();
        return m_rows[index];
    }

    /// The positions of the entries with an object in the PDO of a row.
    template<typename Entries>
    [[nodiscard]] Namesakes positionsOf(std::size_t row, const Entries& entries, const ObjectAddress& object)
    {
        auto& objects = m_positions[row];
        if (objects.empty())
            for (std::size_t position = 0; position < entries.size(); ++position)
                objects[keyOf(objectOf(entries[position]))].add(position);
        return objects[keyOf(object)];
    }

    /// @return  false if the entry has been taken already
    [[nodiscard]] bool take(std::size_t row, std::size_t position) { return m_taken.insert({row, position}).second; }

private:
    using Object = std::pair<std::uint32_t, std::uint32_t>; // index and sub-index

    static Object keyOf(const ObjectAddress& object) { return {object.index, object.subIndex}; }

    void findRows()
    {
        std::size_t row = 0;
        forEachPdoList(m_owner, [&](const auto& pdos, PdoDirection) {
            for (const auto& pdo : pdos)
                m_rows[indexOf(pdo)].add(row++);
        });
    }

    Owner& m_owner;
    std::map<std::uint32_t, Namesakes> m_rows; ///< by the index of the PDO
    std::map<std::size_t, std::map<Object, Namesakes>> m_positions; ///< by the row of the PDO
    std::set<std::pair<std::size_t, std::size_t>> m_taken;
};

/// An entry as a choice names it.
struct NamedEntry
{
    const EntryName& name;
    const QString& path; ///< of the choice
    QLatin1String key = QLatin1String("entry"); ///< names the entry

    void tell(QLatin1String ofKey, ProblemCode code, const QString& text, Problems& problems) const
    {
        problems.add(code, path + QLatin1Char('.') + ofKey, text);
    }
};

/// Row of the PDO that a choice names; tells if there is none.
template<typename Owner>
std::optional<std::size_t> pdoRowOf(EntryTargets<Owner>& targets, const NamedEntry& named, Problems& problems)
{
    const QLatin1String key("pdo");
    if (named.name.pdoRow.has_value()) {
        const std::size_t count = targets.rowCount();
        if (*named.name.pdoRow < count)
            return *named.name.pdoRow;
        named.tell(key, ProblemCode::Row,
                   QStringLiteral("there is no PDO %1, the list has %2").arg(*named.name.pdoRow).arg(count), problems);
        return std::nullopt;
    }
    const QString index = hexNumber(named.name.pdoIndex.value_or(0));
    const Namesakes rows = targets.rowsOf(named.name.pdoIndex.value_or(0));
    if (rows.count == 1)
        return rows.first;
    named.tell(key, ProblemCode::Link,
               rows.count == 0 ? QStringLiteral("there is no PDO %1").arg(index)
                               : QStringLiteral("%1 PDOs have the index %2; their numbers tell them apart")
                                     .arg(QString::number(rows.count), index),
               problems);
    return std::nullopt;
}

/// Position of the entry that a choice names in the PDO of a row; tells if there is none.
template<typename Owner, typename Entries>
std::optional<std::size_t> positionOf(EntryTargets<Owner>& targets, std::size_t row, const Entries& entries,
                                      const NamedEntry& named, Problems& problems)
{
    if (const std::optional<std::uint32_t> position = named.name.entryPosition) {
        if (*position < entries.size())
            return *position;
        named.tell(named.key, ProblemCode::Link,
                   QStringLiteral("there is no entry %1, the PDO has %2")
                       .arg(QString::number(*position), QString::number(entries.size())),
                   problems);
        return std::nullopt;
    }
    const ObjectAddress object = named.name.entryObject.value_or(ObjectAddress());
    const Namesakes positions = targets.positionsOf(row, entries, object);
    if (positions.count == 1)
        return positions.first;
    named.tell(named.key, ProblemCode::Link,
               positions.count == 0 ? QStringLiteral("the PDO has no entry %1").arg(objectText(object))
                                    : QStringLiteral("the PDO has %1 entries %2; their numbers tell them apart")
                                          .arg(QString::number(positions.count), objectText(object)),
               problems);
    return std::nullopt;
}

/// Holds what is in a place against what a choice says is there; the first difference is told.
template<typename Pdo, typename Entry>
void checkTarget(const Pdo& pdo, const Entry& entry, const NamedEntry& named, Problems& problems)
{
    const auto tell = [&](const char* key, const QString& is, const QString& expected) {
        named.tell(QLatin1String(key), ProblemCode::Check, QStringLiteral("%1 stands there, not %2").arg(is, expected),
                   problems);
    };
    const QString name = QString::fromStdString(entry.Name);
    if (named.name.checkedIndex.value_or(indexOf(pdo)) != indexOf(pdo))
        tell("index", hexNumber(indexOf(pdo)), hexNumber(*named.name.checkedIndex));
    else if (!(named.name.checkedObject.value_or(objectOf(entry)) == objectOf(entry)))
        tell("object", objectText(objectOf(entry)), objectText(*named.name.checkedObject));
    else if (named.name.checkedName.value_or(name) != name)
        tell("name", shownText(name), shownText(*named.name.checkedName));
}

/// Tells of a link that entries of that direction are not offered.
/// @param present  the link that the entry has, which is taken in any case
inline void checkLink(std::int32_t link, std::int32_t present, PdoDirection direction, const NamedEntry& named,
                      Problems& problems)
{
    const QStringList offered = linkNames(direction);
    if (link == present || offered.contains(linkName(link)))
        return;
    named.tell(QLatin1String("link"), ProblemCode::Link,
               QStringLiteral("%1 is no link of an %2 (known: %3)")
                   .arg(shownText(linkName(link)),
                        direction == PdoDirection::Outputs ? QStringLiteral("output") : QStringLiteral("input"),
                        offered.join(QStringLiteral(", "))),
               problems);
}

/// Finds the entry that a choice names and calls `visit(pdo, direction, row, position)`; tells if there is none. What
/// the choice says of the entry is not looked at.
template<typename Owner, typename Visit>
void visitNamedEntry(EntryTargets<Owner>& targets, const NamedEntry& named, Problems& problems, Visit visit)
{
    const std::optional<std::size_t> row = pdoRowOf(targets, named, problems);
    if (!row.has_value())
        return;
    visitPdoRow(targets.owner(), static_cast<int>(*row), [&](auto& pdo, PdoDirection direction) {
        const std::optional<std::size_t> position = positionOf(targets, *row, entriesOf(pdo), named, problems);
        if (position.has_value())
            visit(pdo, direction, *row, *position);
    });
}

} // namespace choices
