// ruleRows.h - tables of (rule, file, findings) for the tests of rules.
#pragma once

#include "checkParts.h"

#include <QtTest>

namespace ruleRows {

inline void addColumns()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("findings");
}

/// A file that a rule fires on, or the twin that is just right, without findings.
inline void add(const char* rule, const char* what, const QByteArray& file, const QStringList& findings = {})
{
    QTest::addRow("%s: %s", rule, what) << QByteArray(rule) << file << findings;
}

/// The body of the test function.
inline void check()
{
    QFETCH(QByteArray, rule);
    QFETCH(QByteArray, file);
    QTEST(checkParts::findingsOf(rule.constData(), file), "findings");
}

} // namespace ruleRows
