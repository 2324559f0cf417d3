// The text of a JSON file: what is taken, and where what is wrong with it is found.
#include "testMain.h"
#include "json/jsonText.h"

#include <QtTest>

class tst_JsonText : public QObject
{
    Q_OBJECT

private slots:
    static void taken_data();
    static void taken();
    static void refused_data();
    static void refused();
    static void wordsOfTheSyntax();
};

void tst_JsonText::taken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isObject");
    QTest::addRow("object") << QByteArray("{\"a\": 1}") << true;
    QTest::addRow("list") << QByteArray("[1, 2]") << false;
    QTest::addRow("blanks and line ends around it") << QByteArray(" \r\n\t{}\n") << true;
    QTest::addRow("byte order mark") << QByteArray("\xEF\xBB\xBF{}") << true;
    QTest::addRow("one key in two objects") << QByteArray("{\"a\": {\"b\": 1}, \"b\": 2}") << true;
    QTest::addRow("largest number") << QByteArray("[9223372036854775807]") << false;
}

void tst_JsonText::taken()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isObject);
    const json::Parsing parsing = json::parse(text);
    QVERIFY(!parsing.problem.has_value());
    QCOMPARE(parsing.value().isObject(), isObject);
    QCOMPARE(parsing.value().isList(), !isObject);
}

void tst_JsonText::refused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const QByteArray& text, int line, int column, const char* problem) {
        QTest::addRow("%s", name) << text << line << column << QString::fromUtf8(problem);
    };
    row("key twice", "{\"a\": 1,\n  \"a\": 2}", 2, 3, "the key \"a\" is given twice");
    row("key twice, written in two ways", "{\"a\": 1, \"\\u0061\": 2}", 1, 10, "the key \"a\" is given twice");
    row("key twice, with a quote in it", "{\"a\\\"b\": 1, \"a\\\"b\": 2}", 1, 13, "the key \"a\"b\" is given twice");
    row("key twice, after Chinese on its line", "{\"单轴\": 1, \"a\": 1, \"a\": 2}", 1, 19,
        "the key \"a\" is given twice");
    row("byte order mark does not count", "\xEF\xBB\xBF{\"a\": 1, \"a\": 2}", 1, 10, "the key \"a\" is given twice");
    QTest::addRow("nothing in it") << QByteArray("") << 1 << 1 << QStringLiteral("the file ends too early");
}

void tst_JsonText::refused()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(QString, problem);
    const json::Parsing parsing = json::parse(text);
    QVERIFY(parsing.problem.has_value());
    QCOMPARE(parsing.problem->text, problem);
    QCOMPARE(parsing.problem->line, line);
    QCOMPARE(parsing.problem->column, column);
    QVERIFY(!parsing.value().isThere());
}

/// Each kind has words of its own, and errors of syntax have those of the parser after ours.
void tst_JsonText::wordsOfTheSyntax()
{
    const auto wordsFor = [](const QByteArray& text) {
        const json::Parsing parsing = json::parse(text);
        return parsing.problem.has_value() ? parsing.problem->text : QString();
    };
    QCOMPARE(wordsFor("[\"\xFF\"]"), QStringLiteral("the file is not in UTF-8"));
    QCOMPARE(wordsFor("{\"a\": 1"), QStringLiteral("the file ends too early"));
    QCOMPARE(wordsFor("{} x"), QStringLiteral("something follows the end of the object"));
    QCOMPARE(wordsFor(QByteArray(5000, '[')), QStringLiteral("lists and objects are nested too deeply"));
    QCOMPARE(wordsFor("[9223372036854775808]"), QStringLiteral("the number does not fit into 64 bits"));
    QCOMPARE(wordsFor("[\"\\u0000\"]"), QStringLiteral("a text holds the character U+0000"));
    QCOMPARE(wordsFor("{\"\\u0000\": 1}"), QStringLiteral("a key holds the character U+0000"));
    QVERIFY(wordsFor("{a}").startsWith(QStringLiteral("this is no JSON: ")));
}

static const testMain::Registration<tst_JsonText, testMain::NoApplication> registration;
#include "tst_JsonText.moc"
