// Files that are given more than once.
#include "cli/sameInputs.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_SameInputs : public QObject
{
    Q_OBJECT

private slots:
    static void counts();
};

void tst_SameInputs::counts()
{
    const Workplace place;
    const QString file = place.make("a.xml", "a");
    const QString link = place.path("link.xml");
    QVERIFY(QFile::link(file, link));
    cli::SameInputs given;
    QCOMPARE(given.add(file), 1);
    QCOMPARE(given.add(place.make("b.xml", "a")), 1); // of the same content
    QCOMPARE(given.add(place.path("./a.xml")), 2);
    QCOMPARE(given.add(link), 3);
    for (const QString& path : {QStringLiteral("-"), place.path("gone.xml"), place.folder()}) {
        QCOMPARE(given.add(path), 1);
        QCOMPARE(given.add(path), 1);
    }
}

static const testMain::Registration<tst_SameInputs, testMain::NoApplication> registration;
#include "tst_SameInputs.moc"
