// Texts on one line.
#include "testMain.h"
#include "text/oneLine.h"

#include <QtTest>

class tst_OneLine : public QObject
{
    Q_OBJECT

private slots:
    static void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("inResults"); // hints are kept there
        QTest::addColumn<QString>("inMessages"); // hints become blanks there
        const auto row = [](const char* name, const QString& text, const QString& inResults,
                            const QString& inMessages) {
            QTest::addRow("%s", name) << text << inResults << inMessages;
        };
        row("plain text", "a b~", "a b~", "a b~");
        row("empty", "", "", "");
        row("blanks at the ends stay", " a ", " a ", " a ");
        row("line feed, tabulator, escape", "a\nb\tc\033d", "a b c d", "a b c d");
        row("delete, and a control beyond ASCII", "a\u007Fb\u0085c", "a b c", "a b c");
        row("separators of lines and paragraphs", "a\u2028b\u2029c", "a b c", "a b c");
        row("change of direction", "a\u202Eb\u061Cc", "a b c", "a b c");
        row("joiner", "a\u200Db", "a\u200Db", "a b");
        row("soft hyphen", "a\u00ADb", "a\u00ADb", "a b");
        row("byte order mark", "a\uFEFFb", "a\uFEFFb", "a b");
        row("a character of two halves", QString::fromUtf8("\xF0\x9F\x98\x80"), QString::fromUtf8("\xF0\x9F\x98\x80"),
            QString::fromUtf8("\xF0\x9F\x98\x80"));
    }

    static void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, inResults);
        QFETCH(QString, inMessages);
        QCOMPARE(oneLine(text, DrawingHints::AreKept), inResults);
        QCOMPARE(oneLine(text, DrawingHints::BecomeBlanks), inMessages);
        QCOMPARE(oneLine(text.toStdString(), DrawingHints::AreKept), inResults.toStdString());
        QCOMPARE(oneLine(text.toStdString(), DrawingHints::BecomeBlanks), inMessages.toStdString());
    }
};

static const testMain::Registration<tst_OneLine, testMain::NoApplication> registration;
#include "tst_OneLine.moc"
