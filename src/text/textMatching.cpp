#include "text/textMatching.h"

#include <QStringList>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

bool fitsPattern(QStringView text, const QString& pattern)
{
    QStringList parts = pattern.split(QLatin1Char('*'));
    if (parts.size() == 1)
        return text == pattern;
    const QString first = parts.takeFirst();
    const QString last = parts.takeLast();
    if (text.size() < first.size() + last.size() || !text.startsWith(first) || !text.endsWith(last))
        return false;
    QStringView rest = text.mid(first.size()).chopped(last.size());
    for (const QString& part : parts) { // the first place of each part leaves the most room for the next ones
        const auto place = rest.indexOf(part);
        if (place < 0)
            return false;
        rest = rest.mid(place + part.size());
    }
    return true;
}

int distanceToBeginning(const QString& word, const QString& text)
{
    const QString wanted = word.toCaseFolded();
    const QString there = text.left(2 * word.size()).toCaseFolded(); // nothing beyond that is nearer
    // Row by row: how few changes turn that much of the word into each beginning of the text.
    std::vector<int> changes(static_cast<std::size_t>(there.size()) + 1);
    std::iota(changes.begin(), changes.end(), 0);
    for (int row = 0; row < wanted.size(); ++row) {
        int diagonal = std::exchange(changes[0], row + 1);
        for (int column = 0; column < there.size(); ++column) {
            const auto place = static_cast<std::size_t>(column);
            const int changed = diagonal + (wanted.at(row) == there.at(column) ? 0 : 1);
            diagonal = changes[place + 1];
            changes[place + 1] = std::min({changed, changes[place] + 1, diagonal + 1});
        }
    }
    return *std::min_element(changes.begin(), changes.end());
}
