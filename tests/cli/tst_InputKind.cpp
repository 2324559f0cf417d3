// What a file is, judged by how it begins.
#include "cli/inputKind.h"
#include "testMain.h"

#include <QtTest>

using cli::InputKind;

class tst_InputKind : public QObject
{
    Q_OBJECT

private slots:
    static void kinds_data()
    {
        QTest::addColumn<QByteArray>("beginning");
        QTest::addColumn<int>("kind");
        const auto row = [](const char* name, const QByteArray& beginning, InputKind kind) {
            QTest::addRow("%s", name) << beginning << static_cast<int>(kind);
        };
        row("XML", "<a/>", InputKind::Esi);
        row("blanks before it", " \t\r\n<a/>", InputKind::Esi);
        row("byte order mark", "\xEF\xBB\xBF<a/>", InputKind::Esi);
        row("UTF-16, low byte first", QByteArray("\xFF\xFE<\0a\0", 6), InputKind::Esi);
        row("UTF-16, high byte first", QByteArray("\xFE\xFF\0<\0a", 6), InputKind::Esi);
        row("UTF-32, three zeros before a byte", QByteArray("\0\0\0<", 4), InputKind::Esi);
        row("four zeros", QByteArray("\0\0\0\0<", 5), InputKind::Ktl); // the code of an End item
        row("blanks as far as is looked", QByteArray(4096, ' '), InputKind::Esi);
        row("blanks alone", QByteArray(4095, ' '), InputKind::Neither);
        row("text", "a<b", InputKind::Neither);
        row("empty", "", InputKind::Empty);
        row("one byte", QByteArray(1, '\0'), InputKind::Neither);
        row("End item", QByteArray("\0\0\0\0", 4), InputKind::Ktl);
        row("first code, 40000", "\x40\x9C" + QByteArray(2, '\0'), InputKind::Ktl);
        row("last code, 40999", "\x27\xA0" + QByteArray(2, '\0'), InputKind::Ktl);
        row("a code before them", "\x3F\x9C" + QByteArray(2, '\0'), InputKind::Neither);
        row("a code after them", "\x28\xA0" + QByteArray(2, '\0'), InputKind::Neither);
        row("three bytes of a code", QByteArray("\x40\x9C\0", 3), InputKind::Neither);
    }

    static void kinds()
    {
        QFETCH(QByteArray, beginning);
        QFETCH(int, kind);
        QCOMPARE(static_cast<int>(cli::inputKindOf(beginning)), kind);
    }
};

static const testMain::Registration<tst_InputKind, testMain::NoApplication> registration;
#include "tst_InputKind.moc"
