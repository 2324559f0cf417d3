#include "choices/linkChoices.h"

#include "choices/words.h"
#include "editing/linkTexts.h"
#include "editing/pdoEdits.h"
#include "editing/pdoRows.h"
#include "model/pdoAccess.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace choices {

namespace {

template<typename Entry> ObjectAddress objectOf(const Entry& entry)
{
    return {indexOf(entry), entry.SubIndex};
}

/// Things that share a name: how many, and the first of them.
struct Namesakes
{
    std::size_t count = 0;
    std::size_t first = 0;

    void add(std::size_t position)
    {
        if (count++ == 0)
            first = position;
    }
};

/// The entries of an owner's PDOs, found without a walk over all of them for each choice. What is asked for first costs
/// the walk.
/// @tparam Owner  a device or a module
template<typename Owner> class LinkTargets
{
public:
    /// @param owner  must outlive this object and keep its PDOs
    explicit LinkTargets(Owner& owner)
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

    /// @return  false if the entry has been linked already
    [[nodiscard]] bool markLinked(std::size_t row, std::size_t position)
    {
        return m_linked.insert({row, position}).second;
    }

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
    std::set<std::pair<std::size_t, std::size_t>> m_linked;
};

/// Row of the PDO that a choice names; tells if there is none.
template<typename Owner>
std::optional<std::size_t> pdoRowOf(LinkTargets<Owner>& targets, const LinkChoice& choice, Problems& problems)
{
    const QString path = choice.path + QStringLiteral(".pdo");
    if (choice.pdoRow.has_value()) {
        const std::size_t count = targets.rowCount();
        if (*choice.pdoRow < count)
            return *choice.pdoRow;
        problems.add(ProblemCode::Row, path,
                     QStringLiteral("there is no PDO %1, the list has %2").arg(*choice.pdoRow).arg(count));
        return std::nullopt;
    }
    const QString index = hexNumber(choice.pdoIndex.value_or(0));
    const Namesakes rows = targets.rowsOf(choice.pdoIndex.value_or(0));
    if (rows.count == 1)
        return rows.first;
    problems.add(ProblemCode::Link, path,
                 rows.count == 0 ? QStringLiteral("there is no PDO %1").arg(index)
                                 : QStringLiteral("%1 PDOs have the index %2; their numbers tell them apart")
                                       .arg(QString::number(rows.count), index));
    return std::nullopt;
}

/// Position of the entry that a choice names in the PDO of a row; tells if there is none.
template<typename Owner, typename Entries>
std::optional<std::size_t> positionOf(LinkTargets<Owner>& targets, std::size_t row, const Entries& entries,
                                      const LinkChoice& choice, Problems& problems)
{
    const QString path = choice.path + QStringLiteral(".entry");
    if (choice.entryPosition.has_value()) {
        if (*choice.entryPosition < entries.size())
            return *choice.entryPosition;
        problems.add(ProblemCode::Link, path,
                     QStringLiteral("there is no entry %1, the PDO has %2")
                         .arg(QString::number(*choice.entryPosition), QString::number(entries.size())));
        return std::nullopt;
    }
    const ObjectAddress object = choice.entryObject.value_or(ObjectAddress());
    const Namesakes positions = targets.positionsOf(row, entries, object);
    if (positions.count == 1)
        return positions.first;
    problems.add(ProblemCode::Link, path,
                 positions.count == 0 ? QStringLiteral("the PDO has no entry %1").arg(objectText(object))
                                      : QStringLiteral("the PDO has %1 entries %2; their numbers tell them apart")
                                            .arg(QString::number(positions.count), objectText(object)));
    return std::nullopt;
}

/// Holds what is in a place against what a choice says is there; the first difference is told.
template<typename Pdo, typename Entry>
void checkTarget(const Pdo& pdo, const Entry& entry, const LinkChoice& choice, Problems& problems)
{
    const auto tell = [&](const char* key, const QString& is, const QString& expected) {
        problems.add(ProblemCode::Check, choice.path + QLatin1Char('.') + QLatin1String(key),
                     QStringLiteral("%1 stands there, not %2").arg(is, expected));
    };
    const QString name = QString::fromStdString(entry.Name);
    if (choice.checkedIndex.value_or(indexOf(pdo)) != indexOf(pdo))
        tell("index", hexNumber(indexOf(pdo)), hexNumber(*choice.checkedIndex));
    else if (!(choice.checkedObject.value_or(objectOf(entry)) == objectOf(entry)))
        tell("object", objectText(objectOf(entry)), objectText(*choice.checkedObject));
    else if (choice.checkedName.value_or(name) != name)
        tell("name", shownText(name), shownText(*choice.checkedName));
}

template<typename Entry>
void checkLink(const Entry& entry, PdoDirection direction, const LinkChoice& choice, Problems& problems)
{
    const QStringList offered = linkNames(direction);
    if (choice.link == entry.Linkto || offered.contains(linkName(choice.link)))
        return;
    problems.add(ProblemCode::Link, choice.path + QStringLiteral(".link"),
                 QStringLiteral("%1 is no link of an %2 (known: %3)")
                     .arg(shownText(linkName(choice.link)),
                          direction == PdoDirection::Outputs ? QStringLiteral("output") : QStringLiteral("input"),
                          offered.join(QStringLiteral(", "))));
}

template<typename Owner> void makeLink(const LinkChoice& choice, LinkTargets<Owner>& targets, Problems& problems)
{
    const std::optional<std::size_t> row = pdoRowOf(targets, choice, problems);
    if (!row.has_value())
        return;
    visitPdoRow(targets.owner(), static_cast<int>(*row), [&](auto& pdo, PdoDirection direction) {
        auto& entries = entriesOf(pdo);
        const std::optional<std::size_t> position = positionOf(targets, *row, entries, choice, problems);
        if (!position.has_value())
            return;
        if (!targets.markLinked(*row, *position))
            problems.add(ProblemCode::Link, choice.path, QStringLiteral("this entry is linked twice"));
        checkTarget(pdo, entries[*position], choice, problems);
        checkLink(entries[*position], direction, choice, problems);
        linkEntry(entries, static_cast<int>(*position), choice.link);
    });
}

} // namespace

void makeLinks(const std::vector<LinkChoice>& choices, struct_EtherCatDevice& device, Problems& problems)
{
    LinkTargets<struct_EtherCatDevice> targets(device);
    for (const LinkChoice& choice : choices)
        makeLink(choice, targets, problems);
}

void makeModuleLinks(const std::vector<LinkChoice>& choices, const ModuleLookUp& modules, Problems& problems)
{
    std::map<const struct_module*, LinkTargets<struct_module>> targets;
    for (const LinkChoice& choice : choices) {
        const FoundModule found = modules.named(choice.module);
        if (found.module == nullptr)
            problems.add(ProblemCode::Module, choice.path + QStringLiteral(".module"), found.problem);
        else
            makeLink(choice, targets.try_emplace(found.module, *found.module).first->second, problems);
    }
}

} // namespace choices
