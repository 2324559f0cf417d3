// Files as the user names them.
#include "cli/streamName.h"
#include "testMain.h"

#include <QtTest>

class tst_StreamName : public QObject
{
    Q_OBJECT

private slots:
    static void names_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isStream");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("opened");
        QTest::addRow("a hyphen") << "-" << true << "<stdin>"
                                  << "-";
        QTest::addRow("two hyphens") << "--" << false << "--"
                                     << "--";
        QTest::addRow("a file of that name") << "./-" << false << "./-"
                                             << "./-";
        QTest::addRow("a path") << "in/a.xml" << false << "in/a.xml"
                                << "in/a.xml";
        QTest::addRow("a colon in front") << ":a" << false << ":a"
                                          << "./:a";
        QTest::addRow("nothing") << "" << false << ""
                                 << "";
    }

    static void names()
    {
        QFETCH(QString, path);
        QFETCH(bool, isStream);
        QFETCH(QString, shown);
        QFETCH(QString, opened);
        QCOMPARE(cli::isStandardInput(path), isStream);
        QCOMPARE(cli::isStandardOutput(path), isStream);
        QCOMPARE(cli::shownName(path), shown);
        QCOMPARE(cli::filePath(path), opened);
    }

    static void count()
    {
        QCOMPARE(cli::standardInputsIn({}), 0);
        QCOMPARE(cli::standardInputsIn({"a", "-", "b", "-", "--"}), 2);
    }
};

static const testMain::Registration<tst_StreamName, testMain::NoApplication> registration;
#include "tst_StreamName.moc"
