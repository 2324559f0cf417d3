// A text of a file as messages show it.
#include "testMain.h"
#include "text/shownText.h"

#include <QtTest>

class tst_ShownText : public QObject
{
    Q_OBJECT

private slots:
    static void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        const QString longest(80, 'x');
        const QString pair = QString::fromUtf8("\xF0\x9F\x98\x80"); // two halves
        QTest::addRow("empty") << ""
                               << "\"\"";
        QTest::addRow("short") << "Axis 1"
                               << "\"Axis 1\"";
        QTest::addRow("80 characters") << longest << '"' + longest + '"';
        QTest::addRow("one more") << longest + 'y' << '"' + longest + "...\"";
        QTest::addRow("never half a character") << longest.left(79) + pair << '"' + longest.left(79) + "...\"";
        QTest::addRow("a whole one at the end")
            << longest.left(78) + pair + 'y' << '"' + longest.left(78) + pair + "...\"";
    }

    static void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(shownText(text), shown);
    }
};

static const testMain::Registration<tst_ShownText, testMain::NoApplication> registration;
#include "tst_ShownText.moc"
