// Who a device is: each rule with the smallest file that it fires on, and its twin that is just right.
#include "checkParts.h"
#include "testMain.h"

#include <QtTest>

class tst_IdentityRules : public QObject
{
    Q_OBJECT

private slots:
    static void productCode_data();
    static void productCode();
};

void tst_IdentityRules::productCode_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QStringList>("findings");
    const QStringList found{"2:1: the product code is missing or 0"};
    QTest::addRow("missing") << QByteArray() << found;
    QTest::addRow("0") << QByteArray("ProductCode='#x0'") << found;
    QTest::addRow("given") << QByteArray("ProductCode='#x1'") << QStringList();
}

void tst_IdentityRules::productCode()
{
    QFETCH(QByteArray, attributes);
    QByteArray file = checkParts::deviceFile({});
    file.replace("ProductCode=\"#x1\"", attributes);
    QTEST(checkParts::findingsOf("product-code", file), "findings");
}

static const testMain::Registration<tst_IdentityRules, testMain::NoApplication> registration;
#include "tst_IdentityRules.moc"
