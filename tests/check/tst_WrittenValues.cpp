// Defaults and limits of a dictionary as numbers.
#include "check/dictionary/writtenValues.h"
#include "testMain.h"

#include <QtTest>

#include <string>

class tst_WrittenValues : public QObject
{
    Q_OBJECT

private slots:
    static void number_data();
    static void number();
    static void order_data();
    static void order();
    static void bytes_data();
    static void bytes();
};

using check::DataKind;
using check::ValueForm;

void tst_WrittenValues::number_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QString>("number"); // "none" if it is none
    const auto row = [](ValueForm form, const char* text, DataKind kind, int bits, const char* number) {
        QTest::addRow("%s '%s' of %d bits, kind %d", form == ValueForm::Data ? "data" : "value", text, bits,
                      static_cast<int>(kind))
            << static_cast<int>(form) << text << static_cast<int>(kind) << bits << number;
    };
    row(ValueForm::Data, "0A0B", DataKind::Unsigned, 16, "2826");
    row(ValueForm::Data, "ff", DataKind::Unsigned, 8, "255");
    row(ValueForm::Data, "FF", DataKind::Signed, 8, "-1");
    row(ValueForm::Data, "FF", DataKind::Signed, 16, "255");
    row(ValueForm::Data, "0080", DataKind::Signed, 16, "-32768");
    row(ValueForm::Data, "000000000000F07F", DataKind::Unsigned, 64, "9218868437227405312");
    row(ValueForm::Data, "FFFFFFFFFFFFFFFF", DataKind::Signed, 64, "-1");
    row(ValueForm::Data, "0000C03F", DataKind::Real, 32, "1.5");
    row(ValueForm::Data, "000020C1", DataKind::Real, 32, "-10");
    row(ValueForm::Data, "000000000000F83F", DataKind::Real, 64, "1.5");
    row(ValueForm::Data, "0000C07F", DataKind::Real, 32, "none"); // not a number
    row(ValueForm::Data, "01", DataKind::Bits, 1, "1");
    row(ValueForm::Data, "02", DataKind::Bits, 1, "none");
    row(ValueForm::Data, "000001", DataKind::Unsigned, 16, "none");
    row(ValueForm::Data, "000000000000000000", DataKind::Unsigned, 64, "none");
    row(ValueForm::Data, "", DataKind::Unsigned, 8, "none");
    row(ValueForm::Data, "5", DataKind::Unsigned, 8, "none");
    row(ValueForm::Data, "#x05", DataKind::Unsigned, 8, "none");
    row(ValueForm::Data, "05", DataKind::Text, 8, "none");
    row(ValueForm::Data, "05", DataKind::Unsigned, 0, "none");
    row(ValueForm::Data, "05", DataKind::Unsigned, 65, "none");
    row(ValueForm::Number, "300", DataKind::Unsigned, 16, "300");
    row(ValueForm::Number, "300", DataKind::Unsigned, 8, "none");
    row(ValueForm::Number, "+5", DataKind::Unsigned, 8, "5");
    row(ValueForm::Number, "-5", DataKind::Unsigned, 8, "none");
    row(ValueForm::Number, "-128", DataKind::Signed, 8, "-128");
    row(ValueForm::Number, "-129", DataKind::Signed, 8, "none");
    row(ValueForm::Number, "127", DataKind::Signed, 8, "127");
    row(ValueForm::Number, "128", DataKind::Signed, 8, "none");
    row(ValueForm::Number, "-9223372036854775808", DataKind::Signed, 64, "-9223372036854775808");
    row(ValueForm::Number, "18446744073709551616", DataKind::Unsigned, 64, "none");
    row(ValueForm::Number, "#x80", DataKind::Signed, 8, "-128");
    row(ValueForm::Number, "0xFF", DataKind::Unsigned, 8, "255");
    row(ValueForm::Number, "#x", DataKind::Unsigned, 8, "none");
    row(ValueForm::Number, "", DataKind::Signed, 8, "none");
    row(ValueForm::Number, "-", DataKind::Signed, 8, "none");
    row(ValueForm::Number, "1", DataKind::Real, 32, "none"); // a number, or its bits
    row(ValueForm::Text, "1", DataKind::Unsigned, 8, "none");
    row(ValueForm::None, "1", DataKind::Unsigned, 8, "none");
}

void tst_WrittenValues::number()
{
    QFETCH(int, form);
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(int, bits);
    const std::string utf8 = text.toStdString();
    const auto valueKind = static_cast<DataKind>(kind);
    const auto number =
        check::numberOf({utf8, 0, static_cast<ValueForm>(form)}, {valueKind, static_cast<std::uint64_t>(bits)});
    const QString shown = number.has_value() ? check::numberText(*number, valueKind) : QStringLiteral("none");
    QTEST(shown, "number");
}

void tst_WrittenValues::order_data()
{
    QTest::addColumn<QByteArray>("less");
    QTest::addColumn<QByteArray>("more");
    QTest::addColumn<int>("kind");
    QTest::addRow("unsigned") << QByteArray("FF000000") << QByteArray("00010000")
                              << static_cast<int>(DataKind::Unsigned);
    QTest::addRow("signed") << QByteArray("FFFFFFFF") << QByteArray("00000000") << static_cast<int>(DataKind::Signed);
    QTest::addRow("least signed") << QByteArray("00000080") << QByteArray("FFFFFFFF")
                                  << static_cast<int>(DataKind::Signed);
    QTest::addRow("reals") << QByteArray("0000C03F") << QByteArray("00002041") << static_cast<int>(DataKind::Real);
    QTest::addRow("negative real") << QByteArray("000020C1") << QByteArray("0000C03F")
                                   << static_cast<int>(DataKind::Real);
    QTest::addRow("negative reals") << QByteArray("000020C1") << QByteArray("0000C0BF")
                                    << static_cast<int>(DataKind::Real);
}

void tst_WrittenValues::order()
{
    QFETCH(QByteArray, less);
    QFETCH(QByteArray, more);
    QFETCH(int, kind);
    const auto placeOf = [&](const QByteArray& data) {
        return check::numberOf(
                   {std::string_view(data.constData(), static_cast<std::size_t>(data.size())), 0, ValueForm::Data},
                   {static_cast<DataKind>(kind), 32})
            ->place;
    };
    QVERIFY(placeOf(less) < placeOf(more));
    QCOMPARE(check::numberOf({"00000080", 0, ValueForm::Data}, {DataKind::Real, 32})->place,
             check::numberOf({"00000000", 0, ValueForm::Data}, {DataKind::Real, 32})->place);
}

void tst_WrittenValues::bytes_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("bytes"); // -1 if it has no length
    QTest::addRow("data") << static_cast<int>(ValueForm::Data) << "0A0B0C" << 3;
    QTest::addRow("odd digits") << static_cast<int>(ValueForm::Data) << "0A0" << -1;
    QTest::addRow("no digits") << static_cast<int>(ValueForm::Data) << "SX1-" << -1;
    QTest::addRow("text") << static_cast<int>(ValueForm::Text) << "SX1-400" << 7;
    QTest::addRow("number") << static_cast<int>(ValueForm::Number) << "400" << -1;
    QTest::addRow("none") << static_cast<int>(ValueForm::None) << "" << -1;
}

void tst_WrittenValues::bytes()
{
    QFETCH(int, form);
    QFETCH(QString, text);
    const std::string utf8 = text.toStdString();
    const auto length = check::bytesOf({utf8, 0, static_cast<ValueForm>(form)});
    QTEST(length.has_value() ? static_cast<int>(*length) : -1, "bytes");
}

static const testMain::Registration<tst_WrittenValues, testMain::NoApplication> registration;
#include "tst_WrittenValues.moc"
