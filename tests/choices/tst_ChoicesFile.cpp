// A choices file from its bytes: what is no JSON, and what is too large.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "testMain.h"

#include <QBuffer>

#include <algorithm>

class tst_ChoicesFile : public QObject
{
    Q_OBJECT

private slots:
    static void noJson_data();
    static void noJson();
    static void texts_data();
    static void texts();
    static void keysTwice_data();
    static void keysTwice();
    static void size_data();
    static void size();
    static void endlessFile();
    static void wholeFile();
    static void appliedToNothing();
};

namespace {

const QString syntax = QStringLiteral("this is no JSON: ");

/// A text and what is wrong with it. A place is where reading stopped: at the end of the word that does not fit. A key
/// that is there already is told at its start.
void addColumns()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place"); // line and column
    QTest::addColumn<QString>("word"); // of the message
}

void compareMessage()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, place);
    QFETCH(QString, word);
    choices::Problems problems;
    QVERIFY(!choices::choicesIn(text, problems).has_value());
    QCOMPARE(problems.count(), std::size_t(1));
    const choices::Problem& problem = problems.kept().front();
    QVERIFY(problem.code == choices::ProblemCode::Json);
    QCOMPARE(QStringLiteral("%1:%2").arg(problem.line).arg(problem.column), place);
    QVERIFY2(problem.text.contains(word), qPrintable(problem.text));
}

/// A file that never ends.
class EndlessFile : public QIODevice
{
public:
    [[nodiscard]] qint64 bytesRead() const { return m_bytesRead; }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        std::fill_n(data, size, ' ');
        m_bytesRead += size;
        return size;
    }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    qint64 m_bytesRead = 0;
};

constexpr int maxSize = 16 * 1024 * 1024;

} // namespace

void tst_ChoicesFile::noJson_data()
{
    addColumns();
    QTest::addRow("empty file") << QByteArray("") << "1:1"
                                << "ends too early";
    QTest::addRow("no value at all") << QByteArray("choices") << "1:7" << syntax;
    QTest::addRow("cut short") << QByteArray("{\n\"format\": \"kinetra-choices\"") << "2:27"
                               << "ends too early";
    QTest::addRow("comma missing") << QByteArray("{\n  \"format\": 1\n  \"version\": 1}") << "3:11" << syntax;
    QTest::addRow("comma too many") << QByteArray("{\"a\": [1,]}") << "1:10" << syntax;
    QTest::addRow("something after the end") << QByteArray("{}\n x") << "2:2"
                                             << "something follows the end";
    QTest::addRow("comment") << QByteArray("{} // choices") << "1:4"
                             << "something follows the end";
    QTest::addRow("number with a 0 in front") << QByteArray("{\"a\": 01}") << "1:7" << syntax;
    QTest::addRow("not a number") << QByteArray("{\"a\": NaN}") << "1:9" << syntax;
    QTest::addRow("number of 65 bits") << QByteArray("{\"a\": 18446744073709551616}") << "1:26"
                                       << "64 bits";
    QTest::addRow("nested a hundred thousand times") << QByteArray(100000, '[') << "1:2049"
                                                     << "nested too deeply";
}

void tst_ChoicesFile::noJson()
{
    compareMessage();
}

void tst_ChoicesFile::texts_data()
{
    addColumns();
    QTest::addRow("no UTF-8") << QByteArray("{\"\xFF\": 1}") << "1:2"
                              << "not in UTF-8";
    QTest::addRow("UTF-16") << QByteArray("\xFF\xFE{\0}\0", 6) << "1:1"
                            << "not in UTF-8";
    QTest::addRow("surrogate in UTF-8") << QByteArray("{\"a\": \"\xED\xA0\x80\"}") << "1:7"
                                        << "not in UTF-8";
    QTest::addRow("escape of two digits") << QByteArray("{\"a\": \"\\x41\"}") << "1:9" << syntax;
    QTest::addRow("control character") << QByteArray("{\"a\": \"b\001c\"}") << "1:8" << syntax;
    QTest::addRow("tab in a text") << QByteArray("{\"a\": \"\t\"}") << "1:7" << syntax;
    QTest::addRow("NUL in a text") << QByteArray("{\"a\": \"b\0c\"}", 12) << "1:8" << syntax;
    QTest::addRow("NUL after the end") << QByteArray("{}\0", 3) << "1:3"
                                       << "something follows the end";
    QTest::addRow("escaped NUL in a text") << QByteArray("{\"a\": \"\\u0000\"}") << "1:14"
                                           << "U+0000";
    QTest::addRow("escaped NUL in a key") << QByteArray("{\"\\u0000\": 1}") << "1:9"
                                          << "U+0000";
    QTest::addRow("first surrogate alone") << QByteArray("{\"a\": \"\\ud800\"}") << "1:14" << syntax;
    QTest::addRow("second surrogate alone") << QByteArray("{\"a\": \"\\udc00\"}") << "1:14" << syntax;
}

void tst_ChoicesFile::texts()
{
    compareMessage();
}

void tst_ChoicesFile::keysTwice_data()
{
    addColumns();
    QTest::addRow("key twice") << QByteArray("{\"a\": 1,\n\"b\": {\"c\": 1, \"c\": 2}}") << "2:15"
                               << "the key \"c\" is given twice";
    QTest::addRow("key twice, once with an escape") << QByteArray("{\"ab\": 1,\n \"\\u0061b\": 2}") << "2:2"
                                                    << "the key \"ab\" is given twice";
    QTest::addRow("key with a quotation mark twice") << QByteArray(R"({"a\\\"b": 1, "a\\\"b": 2})") << "1:15"
                                                     << "the key \"a\\\"b\" is given twice";
    QTest::addRow("columns are characters") << QByteArray("{\"设备\": 1, \"é\": 1, \"é\": 1}") << "1:19"
                                            << "the key \"é\" is given twice";
    QTest::addRow("the mark in front of UTF-8 is no column") << QByteArray("\xEF\xBB\xBF{\"a\":1,\"a\":1}") << "1:8"
                                                             << "the key \"a\" is given twice";
}

void tst_ChoicesFile::keysTwice()
{
    compareMessage();
}

void tst_ChoicesFile::size_data()
{
    const QByteArray empty = choicesWith({});
    const auto lists = [](int count) {
        return choicesWith({}).chopped(1) + ", \"about\": [" + QByteArray("[],").repeated(count - 1) + "[]]}";
    };
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("message"); // empty if it is taken
    QTest::addRow("16 MiB") << empty + QByteArray(maxSize - empty.size(), ' ') << "";
    QTest::addRow("a byte more") << empty + QByteArray(maxSize + 1 - empty.size(), ' ')
                                 << "a choices file has 16 MiB at most [size]";
    // Three brackets are those of the file, of its devices and of "about".
    QTest::addRow("a million brackets") << lists(999997) << "";
    QTest::addRow("one more") << lists(999998) << "a choices file has 1000000 objects and lists at most [size]";
}

void tst_ChoicesFile::size()
{
    QFETCH(QByteArray, choices);
    QFETCH(QString, message);
    QCOMPARE(problemsIn(choices), message.isEmpty() ? QStringList() : QStringList{message});
}

/// No more is read than shows that a file is too large.
void tst_ChoicesFile::endlessFile()
{
    EndlessFile file;
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    const QByteArray text = choices::textOf(file);
    QVERIFY(text.size() > maxSize);
    QVERIFY(file.bytesRead() <= maxSize + 1024 * 1024);
    QCOMPARE(problemsIn(text), QStringList{"a choices file has 16 MiB at most [size]"});
}

void tst_ChoicesFile::wholeFile()
{
    QByteArray content = choicesWith({}) + QByteArray(3 * 1024 * 1024, ' ') + 'x';
    QBuffer file(&content);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(choices::textOf(file), content);
}

/// A text that is no choices file changes no device.
void tst_ChoicesFile::appliedToNothing()
{
    const AppliedChoices result = applied(loadedSample("io-block"), "{");
    QCOMPARE(result.problems.size(), 1);
    QVERIFY(result.made.chosen.empty());
    QVERIFY(result.made.couplers.empty());
}

static const testMain::Registration<tst_ChoicesFile, testMain::NoApplication> registration;
#include "tst_ChoicesFile.moc"
