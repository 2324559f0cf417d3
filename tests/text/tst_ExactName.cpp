// Comparison of the names in a document with those that the reader knows.
#include "testMain.h"
#include "text/exactName.h"

#include <QtTest>

class tst_ExactName : public QObject
{
    Q_OBJECT

private slots:
    static void names_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<bool>("isSm");
        QTest::addRow("the same") << "Sm" << true;
        QTest::addRow("another case") << "SM" << false;
        QTest::addRow("the beginning of it") << "S" << false;
        QTest::addRow("more than it") << "Sm2" << false;
        QTest::addRow("empty") << "" << false;
        QTest::addRow("a letter whose low byte is the same") << QStringLiteral("S\u016D") << false; // m is U+006D
    }

    static void names()
    {
        QFETCH(QString, tag);
        QFETCH(bool, isSm);
        QCOMPARE(isNamed(tag, QLatin1String("Sm")), isSm);
        QCOMPARE(isNamed(std::string_view(tag.toStdString()), QLatin1String("Sm")), isSm);
    }
};

static const testMain::Registration<tst_ExactName, testMain::NoApplication> registration;
#include "tst_ExactName.moc"
