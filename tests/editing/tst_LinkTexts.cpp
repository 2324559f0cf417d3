// The words for the links of PDO entries, and the names that choices files use.
#include "editing/linkTexts.h"
#include "testMain.h"

#include <QtTest>

class tst_LinkTexts : public QObject
{
    Q_OBJECT

private slots:
    static void words_data();
    static void words();
    static void offered_data();
    static void offered();
    static void named_data();
    static void named();
};

void tst_LinkTexts::words_data()
{
    QTest::addColumn<int>("link");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addRow("none") << 0 << "NONE Type"
                          << "NONE";
    QTest::addRow("digital input") << -1 << "DIN Type"
                                   << "DIN";
    QTest::addRow("digital output") << -2 << "DOUT Type"
                                    << "DOUT";
    QTest::addRow("16-bit input") << -4 << "AIN16 Type"
                                  << "AIN16";
    QTest::addRow("32-bit input") << -5 << "AIN32 Type"
                                  << "AIN32";
    QTest::addRow("float input") << -6 << "FAIN Type"
                                 << "FAIN";
    QTest::addRow("16-bit output") << -7 << "AOUT16 Type"
                                   << "AOUT16";
    QTest::addRow("32-bit output") << -8 << "AOUT32 Type"
                                   << "AOUT32";
    QTest::addRow("float output") << -9 << "FAOUT Type"
                                  << "FAOUT";
    QTest::addRow("encoder") << -10 << "ENCODER32 Type"
                             << "ENCODER32";
    QTest::addRow("-3 has no words") << -3 << "-3"
                                     << "-3";
    QTest::addRow("no link") << 7 << "7"
                             << "7";
}

void tst_LinkTexts::words()
{
    QFETCH(int, link);
    QTEST(linkText(link), "text");
    QTEST(linkName(link), "name");
}

void tst_LinkTexts::offered_data()
{
    QTest::addColumn<bool>("isOutput");
    QTest::addColumn<QVector<int>>("links");
    QTest::addColumn<QStringList>("names");
    QTest::addRow("outputs") << true << QVector<int>{0, -2, -7, -8, -9}
                             << QStringList{"NONE", "DOUT", "AOUT16", "AOUT32", "FAOUT"};
    QTest::addRow("inputs") << false << QVector<int>{0, -1, -4, -5, -6, -10}
                            << QStringList{"NONE", "DIN", "AIN16", "AIN32", "FAIN", "ENCODER32"};
}

void tst_LinkTexts::offered()
{
    QFETCH(bool, isOutput);
    const PdoDirection direction = isOutput ? PdoDirection::Outputs : PdoDirection::Inputs;
    QVector<int> links;
    for (const LinkText& link : linksFor(direction))
        links.append(link.link);
    QTEST(links, "links");
    QTEST(linkNames(direction), "names");
}

void tst_LinkTexts::named_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isKnown");
    QTest::addColumn<int>("link");
    QTest::addRow("output") << "AOUT32" << true << -8;
    QTest::addRow("input") << "ENCODER32" << true << -10;
    QTest::addRow("of both directions") << "NONE" << true << 0;
    QTest::addRow("as views show it") << "AOUT32 Type" << true << -8;
    QTest::addRow("in small letters") << "aout32" << false << 0;
    QTest::addRow("a number") << "-8" << false << 0;
    QTest::addRow("nothing") << "" << false << 0;
}

void tst_LinkTexts::named()
{
    QFETCH(QString, name);
    const std::optional<std::int32_t> link = linkNamed(name);
    QTEST(link.has_value(), "isKnown");
    QTEST(int(link.value_or(0)), "link");
}

static const testMain::Registration<tst_LinkTexts, testMain::NoApplication> registration;
#include "tst_LinkTexts.moc"
