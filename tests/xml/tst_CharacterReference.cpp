// References to characters.
#include "esi/xml/characterReference.h"
#include "testMain.h"

#include <QtTest>

class tst_CharacterReference : public QObject
{
    Q_OBJECT

private slots:
    static void references_data();
    static void references();
};

void tst_CharacterReference::references_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("code"); // -1: not plain
    const auto row = [](const char* name, int code) { QTest::addRow("&%s;", name) << QByteArray(name) << code; };
    row("amp", 0x26);
    row("lt", 0x3C);
    row("gt", 0x3E);
    row("quot", 0x22);
    row("apos", 0x27);
    row("AMP", -1);
    row("nbsp", -1);
    row("", -1);
    row("#", -1);
    row("#x", -1);
    row("#65", 65);
    row("#0065", 65);
    row("#x41", 65);
    row("#xFfFd", 0xFFFD);
    row("#xFFFE", -1);
    row("#xD7FF", 0xD7FF);
    row("#xD800", -1);
    row("#xDFFF", -1);
    row("#xE000", 0xE000);
    row("#x10000", -1);
    row("#9", 9);
    row("#10", 10);
    row("#13", 13);
    row("#8", -1);
    row("#31", -1);
    row("#0", -1);
    row("#-65", -1);
    row("#6 5", -1);
    row("#x4g", -1);
    row("#X41", -1);
    row("#99999999999", -1);
}

void tst_CharacterReference::references()
{
    QFETCH(QByteArray, name);
    const std::optional<char16_t> character = xml::referencedCharacter(name.toStdString());
    QTEST(character.has_value() ? int{*character} : -1, "code");
}

static const testMain::Registration<tst_CharacterReference, testMain::NoApplication> registration;
#include "tst_CharacterReference.moc"
