// The forms of selectors of devices: identities, numbers, patterns, and what is wrong with anything else.
#include "choices/selectorForms.h"

#include "testMain.h"

class tst_SelectorForms : public QObject
{
    Q_OBJECT

private slots:
    static void identities_data();
    static void identities();
    static void noIdentities_data();
    static void noIdentities();
    static void fits_data();
    static void fits();
    static void wildcards();
    static void numbers_data();
    static void numbers();
    static void problems_data();
    static void problems();
};

namespace {

constexpr qint64 any = -1;

qint64 shown(const std::optional<std::uint32_t>& number)
{
    return number.has_value() ? qint64{*number} : any;
}

} // namespace

void tst_SelectorForms::identities_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QVector<qint64>>("numbers"); // vendor, product and revision
    QTest::addRow("vendor and product mean any revision") << "1:2" << QVector<qint64>{1, 2, any};
    QTest::addRow("with a revision") << "1:2:3" << QVector<qint64>{1, 2, 3};
    QTest::addRow("hexadecimal in both forms") << "0x1A:#x2b:16" << QVector<qint64>{26, 43, 16};
    QTest::addRow("any vendor") << "*:2" << QVector<qint64>{any, 2, any};
    QTest::addRow("any product and revision") << "1:*:*" << QVector<qint64>{1, any, any};
    QTest::addRow("32 bits") << "4294967295:0xFFFFFFFF" << QVector<qint64>{4294967295, 4294967295, any};
}

void tst_SelectorForms::identities()
{
    QFETCH(QString, selector);
    const std::optional<choices::IdentitySelector> identity = choices::identityIn(selector);
    QVERIFY(identity.has_value());
    QTEST((QVector<qint64>{shown(identity->vendor), shown(identity->product), shown(identity->revision)}), "numbers");
}

void tst_SelectorForms::noIdentities_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addRow("empty") << "";
    QTest::addRow("one number") << "1";
    QTest::addRow("four numbers") << "1:2:3:4";
    QTest::addRow("a part is missing") << "1:";
    QTest::addRow("a blank") << "1: 2";
    QTest::addRow("a name") << "1:Drive";
    QTest::addRow("a pattern of a number") << "1:2*";
    QTest::addRow("33 bits") << "4294967296:1";
}

void tst_SelectorForms::noIdentities()
{
    QFETCH(QString, selector);
    QVERIFY(!choices::identityIn(selector).has_value());
}

void tst_SelectorForms::fits_data()
{
    QTest::addColumn<QVector<uint>>("device");
    QTest::addColumn<bool>("fits");
    QTest::addRow("any product") << QVector<uint>{1, 99, 3} << true;
    QTest::addRow("another vendor") << QVector<uint>{2, 99, 3} << false;
    QTest::addRow("another revision") << QVector<uint>{1, 99, 4} << false;
}

void tst_SelectorForms::fits()
{
    QFETCH(QVector<uint>, device);
    const choices::IdentitySelector identity{1, std::nullopt, 3};
    QTEST(identity.fits(device[0], device[1], device[2]), "fits");
}

void tst_SelectorForms::wildcards()
{
    QVERIFY(choices::hasWildcard("EL*"));
    QVERIFY(choices::hasWildcard("*"));
    QVERIFY(!choices::hasWildcard("EL?"));
    QVERIFY(!choices::hasWildcard(""));
}

void tst_SelectorForms::numbers_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<qint64>("number"); // -1 for none
    QTest::addRow("digits") << "12" << qint64{12};
    QTest::addRow("zeros in front") << "007" << qint64{7};
    QTest::addRow("zero") << "0" << qint64{0};
    QTest::addRow("32 bits") << "4294967295" << qint64{4294967295};
    QTest::addRow("33 bits") << "4294967296" << qint64{-1};
    QTest::addRow("hexadecimal") << "0x1" << qint64{-1};
    QTest::addRow("a sign") << "+1" << qint64{-1};
    QTest::addRow("a blank") << " 1" << qint64{-1};
    QTest::addRow("digits of another script") << "\u0661" << qint64{-1};
    QTest::addRow("empty") << "" << qint64{-1};
}

void tst_SelectorForms::numbers()
{
    QFETCH(QString, selector);
    QTEST(shown(choices::deviceNumberIn(selector)), "number");
}

void tst_SelectorForms::problems_data()
{
    const QString list = "a selector takes no list and no range of numbers; each device has one of its own";
    const QString identity = "an identity is VENDOR:PRODUCT[:REVISION]";
    const QString number = "for an identity, VENDOR:PRODUCT[:REVISION], %1 would have to be a number: decimal, or "
                           "hexadecimal as 0x1a";
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("problem");
    QTest::addRow("a name") << "Drive" << QString();
    QTest::addRow("a list") << "1,2" << list;
    QTest::addRow("a list with semicolons and blanks") << "1 ; 2;3" << list;
    QTest::addRow("a range") << "1-3" << list;
    QTest::addRow("a name with a hyphen") << "EL-01" << QString();
    QTest::addRow("too many parts") << "1:2:3:4" << identity;
    QTest::addRow("a word for the vendor") << "acme:2" << number.arg("\"acme\"");
    QTest::addRow("a word for the product") << "1:drive:3" << number.arg("\"drive\"");
    QTest::addRow("nothing for the product") << "1:" << number.arg("\"\"");
}

void tst_SelectorForms::problems()
{
    QFETCH(QString, selector);
    QTEST(choices::formProblem(selector), "problem");
}

static const testMain::Registration<tst_SelectorForms, testMain::NoApplication> registration;
#include "tst_SelectorForms.moc"
