// Texts in lines of a terminal.
#include "cli/wrappedText.h"
#include "testMain.h"

#include <QtTest>

class tst_WrappedText : public QObject
{
    Q_OBJECT

private slots:
    static void lines_data();
    static void lines();
};

void tst_WrappedText::lines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addRow("empty") << QString() << QString();
    QTest::addRow("just fits") << QStringLiteral("one two 90") << QStringLiteral("one two 90");
    QTest::addRow("one too long") << QStringLiteral("one two 901") << QStringLiteral("one two\n901");
    QTest::addRow("a long word") << QStringLiteral("a bcdefghijklm n") << QStringLiteral("a\nbcdefghijklm\nn");
    QTest::addRow("line feeds and blanks") << QStringLiteral("  a\nb   c ") << QStringLiteral("a b c");
}

void tst_WrappedText::lines()
{
    QFETCH(QString, text);
    QTEST(cli::wrapped(text, 10), "expected");
}

static const testMain::Registration<tst_WrappedText, testMain::NoApplication> registration;
#include "tst_WrappedText.moc"
