// linkChoices.cpp - links of PDO entries, of a device and of a module alike.
#include "cli/choices/choicesOfLists.h"
#include "cli/choices/choicesWords.h"
#include "cli/choices/moduleLookUp.h"
#include "editing/pdoRows.h"
#include "esi/xmlCharConversion.h"
#include "model/pdoAccess.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace {

/// The rows of entries that are linked already: row of the PDO, position of the entry.
using LinkedEntries = std::set<std::pair<int, std::size_t>>;

template<typename Entry> ObjectAddress objectOf(const Entry& entry)
{
    return {indexOf(entry), entry.SubIndex};
}

/// How many rows the PDO list of a device or module has.
template<typename Owner> int pdoRowCount(Owner& owner)
{
    std::size_t count = 0;
    forEachPdoList(owner, [&](const auto& pdos, PdoDirection) { count += pdos.size(); });
    return static_cast<int>(count);
}

template<typename Owner> std::vector<int> rowsOfIndex(Owner& owner, std::uint32_t index)
{
    std::vector<int> rows;
    int row = 0;
    forEachPdoList(owner, [&](const auto& pdos, PdoDirection) {
        for (const auto& pdo : pdos) {
            if (indexOf(pdo) == index)
                rows.push_back(row);
            ++row;
        }
    });
    return rows;
}

/// Row of the PDO that a choice names, -1 if there is none.
template<typename Owner> int pdoRowOf(Owner& owner, const LinkChoice& choice, Problems& problems)
{
    const QString path = choice.path + QStringLiteral(".pdo");
    if (choice.pdoRow.has_value()) {
        const int count = pdoRowCount(owner);
        if (*choice.pdoRow < static_cast<std::uint32_t>(count))
            return static_cast<int>(*choice.pdoRow);
        problems.add(path, QStringLiteral("there is no PDO %1, the list has %2").arg(*choice.pdoRow).arg(count));
        return -1;
    }
    const QString index = xmlGetStringuint(choice.pdoIndex.value_or(0));
    const std::vector<int> rows = rowsOfIndex(owner, choice.pdoIndex.value_or(0));
    if (rows.size() == 1)
        return rows.front();
    problems.add(path, rows.empty() ? QStringLiteral("there is no PDO %1").arg(index)
                                    : QStringLiteral("%1 PDOs have the index %2; their numbers tell them apart")
                                          .arg(QString::number(rows.size()), index));
    return -1;
}

/// Position of the entry that a choice names; nothing if there is none.
template<typename Entries>
std::optional<std::size_t> positionOf(const Entries& entries, const LinkChoice& choice, Problems& problems)
{
    const QString path = choice.path + QStringLiteral(".entry");
    if (choice.entryPosition.has_value()) {
        if (*choice.entryPosition < entries.size())
            return *choice.entryPosition;
        problems.add(path, QStringLiteral("there is no entry %1, the PDO has %2")
                               .arg(QString::number(*choice.entryPosition), QString::number(entries.size())));
        return std::nullopt;
    }
    const ObjectAddress object = choice.entryObject.value_or(ObjectAddress());
    const auto isObject = [&](const auto& entry) { return objectOf(entry) == object; };
    const auto found = std::find_if(entries.begin(), entries.end(), isObject);
    const auto count = std::count_if(entries.begin(), entries.end(), isObject);
    if (count == 1)
        return static_cast<std::size_t>(found - entries.begin());
    problems.add(path, count == 0 ? QStringLiteral("the PDO has no entry %1").arg(objectText(object))
                                  : QStringLiteral("the PDO has %1 entries %2; their numbers tell them apart")
                                        .arg(QString::number(count), objectText(object)));
    return std::nullopt;
}

template<typename Pdo, typename Entry>
void checkEntry(const Pdo& pdo, const Entry& entry, PdoDirection direction, const LinkChoice& choice,
                Problems& problems)
{
    const auto expect = [&](bool agrees, const char* key, const QString& is, const QString& expected) {
        if (!agrees)
            problems.add(choice.path + QLatin1Char('.') + QLatin1String(key),
                         QStringLiteral("%1 stands there, not %2").arg(is, expected));
    };
    if (choice.checkedIndex.has_value())
        expect(indexOf(pdo) == *choice.checkedIndex, "index", xmlGetStringuint(indexOf(pdo)),
               xmlGetStringuint(*choice.checkedIndex));
    if (choice.checkedObject.has_value())
        expect(objectOf(entry) == *choice.checkedObject, "object", objectText(objectOf(entry)),
               objectText(*choice.checkedObject));
    const QString name = QString::fromStdString(entry.Name);
    if (choice.checkedName.has_value())
        expect(name == *choice.checkedName, "name", quoted(name), quoted(*choice.checkedName));
    const QStringList offered = linkNames(direction);
    if (choice.link != entry.Linkto && !offered.contains(linkName(choice.link)))
        problems.add(choice.path + QStringLiteral(".link"),
                     QStringLiteral("%1 is no link of an %2 (known: %3)")
                         .arg(quoted(linkName(choice.link)),
                              direction == PdoDirection::Outputs ? QStringLiteral("output") : QStringLiteral("input"),
                              offered.join(QStringLiteral(", "))));
}

/// @param owner  a device or a module
template<typename Owner>
void makeLink(const LinkChoice& choice, Owner& owner, LinkedEntries& linked, Problems& problems)
{
    const int row = pdoRowOf(owner, choice, problems);
    visitPdoRow(owner, row, [&](auto& pdo, PdoDirection direction) {
        auto& entries = entriesOf(pdo);
        const std::optional<std::size_t> position = positionOf(entries, choice, problems);
        if (!position.has_value())
            return;
        if (!linked.insert({row, *position}).second)
            problems.add(choice.path, QStringLiteral("this entry is linked twice"));
        checkEntry(pdo, entries[*position], direction, choice, problems);
        entries[*position].Linkto = choice.link;
    });
}

} // namespace

void makeLinks(const std::vector<LinkChoice>& choices, struct_EtherCatDevice& device, Problems& problems)
{
    LinkedEntries linked;
    for (const LinkChoice& choice : choices)
        makeLink(choice, device, linked, problems);
}

void makeModuleLinks(const std::vector<LinkChoice>& choices, struct_FilenameDevice& file, Problems& problems)
{
    std::map<const struct_module*, LinkedEntries> linked;
    for (const LinkChoice& choice : choices) {
        const FoundModule found = moduleNamed(file, choice.module);
        if (found.module == nullptr)
            problems.add(choice.path + QStringLiteral(".module"), found.problem);
        else
            makeLink(choice, *found.module, linked[found.module], problems);
    }
}
