// Values as text for people: labels, names of numbers, tables and lists.
#include "show/textColumns.h"
#include "show/textWriter.h"
#include "testMain.h"

#include <QtTest>

#include <sstream>
#include <utility>
#include <vector>

class tst_TextWriter : public QObject
{
    Q_OBJECT

private slots:
    static void members_data();
    static void members();
    static void listThatIsNoTable();
    static void breaksInTheColumnOfTheValue();
};

Q_DECLARE_METATYPE(show::Object)

namespace {

QByteArray written(const show::Object& object, std::size_t lineWidth = show::anyWidth)
{
    std::ostringstream out;
    show::TextWriter(out, lineWidth).writeObject(object, 0);
    return QByteArray::fromStdString(out.str());
}

show::Value valueOf(show::Object object)
{
    return {std::move(object)};
}

} // namespace

void tst_TextWriter::members_data()
{
    QTest::addColumn<show::Object>("object");
    QTest::addColumn<QByteArray>("text");
    using namespace show;
    QTest::addRow("words of a key") << Object{{"syncManagerNo", decimal(1)}} << QByteArray("sync manager no  1\n");
    QTest::addRow("words that people read instead") << Object{{"rxPdos", decimal(1)}} << QByteArray("output PDOs  1\n");
    QTest::addRow("values in one column")
        << Object{{"a", decimal(-1)}, {"long", hexadecimal(31)}} << QByteArray("a     -1\nlong  0x1f\n");
    QTest::addRow("both forms") << Object{{"a", bothForms(16)}} << QByteArray("a  16 (0x10)\n");
    QTest::addRow("flags") << Object{{"a", flag(true)}, {"b", yesNoNumber(0)}, {"c", yesNoNumber(9)}}
                           << QByteArray("a  yes\nb  no\nc  0x9\n");
    QTest::addRow("fraction") << Object{{"a", fraction(1.4F)}} << QByteArray("a  1.4\n");
    QTest::addRow("nothing, and an empty text") << Object{{"a", {}}, {"b", text({})}} << QByteArray("a  -\nb  -\n");
    QTest::addRow("name instead of the number")
        << Object{{"type", decimal(3)}, {"typeName", text("Outputs")}} << QByteArray("type  Outputs\n");
    QTest::addRow("number without a name")
        << Object{{"type", decimal(9)}, {"typeName", text({})}} << QByteArray("type  9\n");
    QTest::addRow("for programs only") << Object{{"choiceRow", decimal(1)}, {"a", decimal(2)}} << QByteArray("a  2\n");
    QTest::addRow("list of numbers") << Object{{"a", listOf({decimal(1), decimal(2)})}} << QByteArray("a  1, 2\n");
    QTest::addRow("list of texts, one to a line")
        << Object{{"a", listOf({text("x, y"), text("z")})}} << QByteArray("a  x, y\n   z\n");
    QTest::addRow("object") << Object{{"inner", valueOf({{"a", decimal(1)}})}} << QByteArray("inner:\n  a  1\n");
    QTest::addRow("table") << Object{{"rows", listOf({valueOf({{"a", decimal(1)}}), valueOf({{"a", decimal(22)}})})}}
                           << QByteArray("rows (2):\n  a\n  1\n  22\n");
}

void tst_TextWriter::members()
{
    QFETCH(show::Object, object);
    QFETCH(QByteArray, text);
    QCOMPARE(written(object), text);
}

/// Elements with a list of objects in them have no row.
void tst_TextWriter::listThatIsNoTable()
{
    using namespace show;
    const Value inner = listOf(std::vector<Value>{valueOf({{"b", decimal(1)}})});
    const Value element = valueOf({{"a", decimal(7)}, {"inner", inner}});
    QCOMPARE(written({{"outer", listOf({element, element})}}),
             QByteArray("outer, 1 of 2:\n  a  7\n  inner (1):\n    b\n    1\n"
                        "outer, 2 of 2:\n  a  7\n  inner (1):\n    b\n    1\n"));
}

void tst_TextWriter::breaksInTheColumnOfTheValue()
{
    QCOMPARE(written({{"name", show::text("one two three four")}}, 16),
             QByteArray("name  one two\n      three four\n"));
}

static const testMain::Registration<tst_TextWriter, testMain::NoApplication> registration;
#include "tst_TextWriter.moc"
