// dictionaryDiffs.h - differences of dictionaries, for tests.
#pragma once

#include "diff/sections.h"
#include "diffParts.h"
#include "facts/dictionaryParts.h"
#include "facts/unitParts.h"

#include <QtTest>

#include <vector>

namespace dictionaryDiffs {

/// The differences of the dictionaries of two devices, which the parts make.
inline std::vector<diff::Difference> differencesOf(const QByteArray& before, const QByteArray& after,
                                                   diff::Sides sides = diff::Sides::Esi, bool isOfAll = false)
{
    const unitParts::LoadedUnits oldFile(unitParts::deviceFile(before));
    const unitParts::LoadedUnits newFile(unitParts::deviceFile(after));
    diff::Comparison comparison(sides, isOfAll);
    compareDictionaries(oldFile.facts.units.at(0), newFile.facts.units.at(0), {}, comparison);
    return comparison.take();
}

inline void addColumns()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
}

inline void addRow(const char* name, const QByteArray& before, const QByteArray& after, const QStringList& lines = {})
{
    QTest::addRow("%s", name) << before << after << lines;
}

/// Compares the dictionaries of a row, and looks whether they differ as much the other way around.
inline void lookBothWays()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const std::vector<diff::Difference> found = differencesOf(before, after);
    QTEST(diffParts::linesOf(found), "lines");
    QCOMPARE(diffParts::withoutDirection(differencesOf(after, before)), diffParts::withoutDirectionSwapped(found));
}

/// A dictionary of objects without data types.
inline QByteArray only(const QByteArray& objects)
{
    return dictionaryParts::dictionary({}, objects);
}

/// A dictionary of one object of 16 bits, with more in it.
inline QByteArray control(const QByteArray& more = {})
{
    return only(dictionaryParts::object("#x6040", "UINT", 16, more));
}

inline QByteArray info(const QByteArray& parts)
{
    return "<Info>" + parts + "</Info>";
}

/// A dictionary with one object of a data type.
inline QByteArray withType(const QByteArray& types, const QByteArray& name, int bits = 32)
{
    return dictionaryParts::dictionary(types, dictionaryParts::object("#x2000", name, bits));
}

} // namespace dictionaryDiffs
