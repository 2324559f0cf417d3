// diffParts.h - differences as lines of text, for tests.
#pragma once

#include "diff/comparison.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <string_view>
#include <utility>
#include <vector>

namespace diffParts {

inline QString wordsIn(std::string_view words)
{
    return QString::fromUtf8(words.data(), static_cast<int>(words.size()));
}

/// A value; "-" where there is none, "''" for an empty text.
inline QString wordsIn(const diff::Value& value)
{
    if (!value.isThere())
        return QStringLiteral("-");
    return value.text.empty() ? QStringLiteral("''") : wordsIn(value.text);
}

/// "changed object 0x6040 length in bits 16 -> 32", "added object 0x6040", "added slot 2, module 0x10 yes"
inline QString lineWithoutWeight(const diff::Difference& difference)
{
    QStringList words{wordsIn(nameOf(difference.change)), wordsIn(difference.spot.part), wordsIn(difference.words)};
    if (difference.change == diff::Change::Changed || difference.change == diff::Change::Moved)
        words << wordsIn(difference.before) + " -> " + wordsIn(difference.after);
    else
        words << wordsIn((difference.change == diff::Change::Added ? difference.after : difference.before).text);
    words.removeAll({});
    return words.join(' ');
}

/// "breaking changed object 0x6040 length in bits 16 -> 32"
inline QString lineOf(const diff::Difference& difference)
{
    return wordsIn(nameOf(difference.weight)) + ' ' + lineWithoutWeight(difference);
}

inline QStringList linesOf(const std::vector<diff::Difference>& differences)
{
    QStringList lines;
    for (const diff::Difference& difference : differences)
        lines << lineOf(difference);
    return lines;
}

/// Stable names of the values that have changed, "area key", each once and in order.
inline QStringList keysOf(const std::vector<diff::Difference>& differences)
{
    QStringList keys;
    for (const diff::Difference& difference : differences)
        if (!difference.key.empty())
            keys << wordsIn(nameOf(difference.spot.area)) + ' ' + wordsIn(difference.key);
    keys.removeDuplicates();
    keys.sort();
    return keys;
}

/// A difference as it is with the sides swapped.
inline diff::Difference swapped(diff::Difference difference)
{
    std::swap(difference.before, difference.after);
    std::swap(difference.spot.before, difference.spot.after);
    if (difference.change == diff::Change::Added)
        difference.change = diff::Change::Removed;
    else if (difference.change == diff::Change::Removed)
        difference.change = diff::Change::Added;
    return difference;
}

/// What both directions tell alike, in order: what has come or gone has no weight, since these two may weigh
/// differently; names of parts are left out, since those of the old side are shown; and on which sides the part is.
inline QStringList withoutDirection(const std::vector<diff::Difference>& differences)
{
    static const QRegularExpression name(QStringLiteral(" \"[^\"]*\""));
    QStringList lines;
    for (const diff::Difference& difference : differences) {
        const bool hasWeight = difference.change == diff::Change::Changed || difference.change == diff::Change::Moved;
        const QString sides =
            QString(difference.spot.before ? " before" : "") + QString(difference.spot.after ? " after" : "");
        lines << (hasWeight ? lineOf(difference) : lineWithoutWeight(difference)).remove(name) + sides;
    }
    lines.sort();
    return lines;
}

/// As above, of the swapped differences: what the swapped comparison has to tell.
inline QStringList withoutDirectionSwapped(std::vector<diff::Difference> differences)
{
    for (diff::Difference& difference : differences)
        difference = swapped(std::move(difference));
    return withoutDirection(differences);
}

} // namespace diffParts
