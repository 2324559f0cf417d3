// Whether the test of each source of src can be found by name: it bears the name of the source, or says in its head
// which sources it covers.
#include "model/projectSources.h"
#include "testMain.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

/// Names of the sources that a test says to cover, such as "mainwindow_pdo.cpp".
QStringList coveredBy(const QString& test)
{
    static const QRegularExpression line("^// Covers (.*)\\.$", QRegularExpression::MultilineOption);
    const QRegularExpressionMatch found = line.match(test);
    return found.hasMatch() ? found.captured(1).split(", ") : QStringList();
}

/// Names of all sources that have a test by name or by its head, in lower case.
QSet<QString> testedSources()
{
    QSet<QString> tested;
    for (const QString& path : sourcesUnder("tests", {"*.cpp"})) {
        const QString name = QFileInfo(path).fileName().toLower();
        if (!name.startsWith("tst_"))
            continue;
        tested.insert(name.mid(4));
        for (const QString& source : coveredBy(contentOf(path)))
            tested.insert(source.toLower());
    }
    return tested;
}

} // namespace

class tst_TestsByName : public QObject
{
    Q_OBJECT

private slots:
    void eachSource_data();
    void eachSource();
    void coveredSourcesExist();
};

void tst_TestsByName::eachSource_data()
{
    QTest::addColumn<QString>("name");
    const QSet<QString> withoutLogic{"main.cpp", "XMLParsing.cpp", "recordLists.cpp"};
    for (const QString& path : sourcesUnder("src", {"*.cpp"}))
        if (const QString name = QFileInfo(path).fileName(); !withoutLogic.contains(name))
            QTest::addRow("%s", qPrintable(path.section("/src/", -1))) << name;
}

void tst_TestsByName::eachSource()
{
    static const QSet<QString> tested = testedSources();
    QVERIFY(tested.size() > 100);
    QFETCH(QString, name);
    // Tests of choices have that word in their names where the name of the source alone says too little.
    QVERIFY2(tested.contains(name.toLower()) || tested.contains("choices" + name.toLower()),
             "no test has its name or says that it covers it");
}

/// A source that is renamed or goes takes its name out of the tests.
void tst_TestsByName::coveredSourcesExist()
{
    QSet<QString> names;
    for (const QString& path : sourcesUnder("src", {"*.cpp"}))
        names.insert(QFileInfo(path).fileName());
    for (const QString& path : sourcesUnder("tests", {"*.cpp"}))
        for (const QString& source : coveredBy(contentOf(path)))
            QVERIFY2(names.contains(source), qPrintable(QFileInfo(path).fileName() + ": " + source));
}

static const testMain::Registration<tst_TestsByName, testMain::NoApplication> registration;
#include "tst_TestsByName.moc"
