// The value conversions by their fixed names: each follows its own rule, and a null pointer is the empty text.
#include "esi/xmlCharConversion.h"
#include "testMain.h"

#include <QtTest>

class tst_XmlCharConversion : public QObject
{
    Q_OBJECT

private slots:
    static void eachFollowsItsRule();
    static void textEndsAtItsZero();
    static void nullPointer();
};

/// Texts on which the conversions differ: "1E" is no truth value, a hexadecimal number, and one byte pair.
void tst_XmlCharConversion::eachFollowsItsRule()
{
    QString number = QStringLiteral("1E02");
    QCOMPARE(xmlGetboolean(number.data()), false);
    QCOMPARE(xmlGetuintString(number.data()), 0x1E02U);
    QCOMPARE(xmlGetIntString(number.data()), 0x1E02);
    QCOMPARE(xmlGetuintStringBigEnd(number.data()), 0x021EU);
    QString negative = QStringLiteral("-5");
    QCOMPARE(xmlGetuintString(negative.data()), 0U);
    QCOMPARE(xmlGetIntString(negative.data()), -5);
    QString word = QStringLiteral("True");
    QCOMPARE(xmlGetboolean(word.data()), true);
    QCOMPARE(xmlGetEnumNmtoken(word.data()), UnknownType);
    QString token = QStringLiteral("ps");
    QCOMPARE(xmlGetEnumNmtoken(token.data()), PS);
    QCOMPARE(xmlGetStringEnumNmtoken(PS), QStringLiteral("PS"));
    QCOMPARE(xmlGetStringuint(0x1C12), QStringLiteral("0x1c12"));
}

void tst_XmlCharConversion::textEndsAtItsZero()
{
    QString text = QString(QStringLiteral("12") + QChar(QChar::Null) + QStringLiteral("34"));
    QCOMPARE(xmlGetuintString(text.data()), 12U);
    QCOMPARE(xmlGetIntString(text.data()), 12);
    QCOMPARE(xmlGetuintStringBigEnd(text.data()), 0x12U);
}

void tst_XmlCharConversion::nullPointer()
{
    QCOMPARE(xmlGetboolean(nullptr), false);
    QCOMPARE(xmlGetEnumNmtoken(nullptr), UnknownType);
    QCOMPARE(xmlGetuintString(nullptr), 0U);
    QCOMPARE(xmlGetIntString(nullptr), 0);
    QCOMPARE(xmlGetuintStringBigEnd(nullptr), 0U);
}

static const testMain::Registration<tst_XmlCharConversion, QCoreApplication> registration;
#include "tst_XmlCharConversion.moc"
