// The version text and the number of the format that belongs to it.
#include "model/version.h"
#include "testMain.h"

#include <QtTest>

static_assert(formatVersion == 0x10028);
static_assert(versionNumber("V1.0.28") == 0x10028);

class tst_Version : public QObject
{
    Q_OBJECT

private slots:
    static void text();
    static void number_data();
    static void number();
};

void tst_Version::text()
{
    QCOMPARE(QString::fromLatin1(versionText), QStringLiteral("V1.0.28"));
}

void tst_Version::number_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("this version") << QByteArray("V1.0.28") << 0x10028U;
    QTest::addRow("one digit in each part") << QByteArray("V1.2.3") << 0x10203U;
    QTest::addRow("two digits in each part") << QByteArray("V12.34.56") << 0x123456U;
    QTest::addRow("the last part is not 40, the decimal of 0x28") << QByteArray("V1.0.40") << 0x10040U;
    QTest::addRow("all zero") << QByteArray("V0.0.0") << 0U;
}

void tst_Version::number()
{
    QFETCH(QByteArray, version);
    QFETCH(unsigned int, expected);
    QCOMPARE(versionNumber(version.constData()), expected);
}

static const testMain::Registration<tst_Version, QCoreApplication> registration;
#include "tst_Version.moc"
