// Rows as comma-separated values: quotes, unsafe characters, and what a spreadsheet program would take for a formula.
#include "show/csvWriter.h"
#include "testMain.h"

#include <QtTest>

#include <sstream>

class tst_CsvWriter : public QObject
{
    Q_OBJECT

private slots:
    static void fields_data();
    static void fields();
    static void formulas_data();
    static void formulas();
    static void severalRows();
};

namespace {

QByteArray rowOf(const std::vector<std::string>& fields, show::CsvForm form)
{
    std::ostringstream out;
    show::CsvWriter(out, form).writeRow(fields);
    return QByteArray::fromStdString(out.str());
}

} // namespace

void tst_CsvWriter::fields_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("written");
    QTest::addRow("plain") << QByteArray("a b") << QByteArray("a b");
    QTest::addRow("empty") << QByteArray() << QByteArray();
    QTest::addRow("comma") << QByteArray("a,b") << QByteArray("\"a,b\"");
    QTest::addRow("quote") << QByteArray("a\"b") << QByteArray("\"a\"\"b\"");
    QTest::addRow("line feed") << QByteArray("a\nb") << QByteArray("\"a\nb\"");
    QTest::addRow("carriage return") << QByteArray("a\rb") << QByteArray("\"a\rb\"");
    QTest::addRow("tab") << QByteArray("a\tb") << QByteArray("a\tb");
    QTest::addRow("escape") << QByteArray("a\x1B") << QByteArray("a\xEF\xBF\xBD");
    QTest::addRow("change of direction") << QByteArray("\xE2\x80\xAE") << QByteArray("\xEF\xBF\xBD");
    QTest::addRow("byte that is no UTF-8") << QByteArray("\xFF") << QByteArray("\xEF\xBF\xBD");
    QTest::addRow("formula, which programs get as it is") << QByteArray("=1") << QByteArray("=1");
}

void tst_CsvWriter::fields()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, written);
    QCOMPARE(rowOf({"1", field.toStdString(), "2"}, show::CsvForm::Plain), "1," + written + ",2\r\n");
}

void tst_CsvWriter::formulas_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<bool>("isMarked");
    for (const char* text : {"=1", "+1", "-1a", "@a", "--1", "-", "\t=1",
                             "\xEF\xBC\x9D"
                             "1",
                             "\xEF\xBC\xA0"})
        QTest::addRow("%s", text) << QByteArray(text) << true;
    for (const char* text : {"-1", "1", "a=b", " =1", "0x10"})
        QTest::addRow("%s", text) << QByteArray(text) << false;
}

/// An apostrophe in front; the row begins with the byte order mark.
void tst_CsvWriter::formulas()
{
    QFETCH(QByteArray, field);
    QFETCH(bool, isMarked);
    QCOMPARE(rowOf({field.toStdString()}, show::CsvForm::Spreadsheet),
             "\xEF\xBB\xBF" + QByteArray(isMarked ? "'" : "") + field + "\r\n");
}

/// One byte order mark for all.
void tst_CsvWriter::severalRows()
{
    std::ostringstream out;
    show::CsvWriter writer(out, show::CsvForm::Spreadsheet);
    writer.writeRow({"a", ""});
    writer.writeRow({"", "b"});
    QCOMPARE(QByteArray::fromStdString(out.str()), QByteArray("\xEF\xBB\xBF"
                                                              "a,\r\n,b\r\n"));
}

static const testMain::Registration<tst_CsvWriter, testMain::NoApplication> registration;
#include "tst_CsvWriter.moc"
