// The `Fmmu` elements of a device.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

class tst_FmmuSection : public QObject
{
    Q_OBJECT

private slots:
    static void allFields();
    static void type_data();
    static void type();
    static void operationalOnly_data();
    static void operationalOnly();
    static void attributesAreExact();
    static void eachElementAppends();
    static void nullPointers();
};

void tst_FmmuSection::allFields()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Fmmuinfo, R"(<Fmmu OpOnly="1" Sm="#x2" Su="70000">Outputs</Fmmu>)");
    QCOMPARE(device.vFmmu.size(), std::size_t{1});
    const Struct_Fmmu& fmmu = device.vFmmu[0];
    QCOMPARE(text(fmmu.m_Name), QStringLiteral("Outputs"));
    QCOMPARE(fmmu.m_OpOnly, true);
    QCOMPARE(fmmu.m_Sm, 2U);
    QCOMPARE(fmmu.m_Su, 70000U);
    QCOMPARE(int{fmmu.m_FmmuType}, 3);
}

void tst_FmmuSection::type_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("expected");
    QTest::addRow("mailbox out") << "MBoxOut" << 1;
    QTest::addRow("mailbox in") << "MBoxIn" << 2;
    QTest::addRow("outputs") << "Outputs" << 3;
    QTest::addRow("inputs") << "Inputs" << 4;
    QTest::addRow("a name outside the four stays unknown, unlike a sync manager's") << "MBoxState" << 0;
    QTest::addRow("no text") << "" << 0;
    QTest::addRow("other case") << "outputs" << 0;
    QTest::addRow("a blank before") << " Inputs" << 0;
}

void tst_FmmuSection::type()
{
    QFETCH(QString, name);
    QFETCH(int, expected);
    const struct_EtherCatDevice device = readSection(read_device_Fmmuinfo, QStringLiteral("<Fmmu>%1</Fmmu>").arg(name));
    QCOMPARE(int{device.vFmmu.at(0).m_FmmuType}, expected);
    QCOMPARE(text(device.vFmmu.at(0).m_Name), name);
}

void tst_FmmuSection::operationalOnly_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("expected");
    QTest::addRow("one") << "1" << true;
    QTest::addRow("true") << "true" << true;
    QTest::addRow("any number but 0") << "2" << true;
    QTest::addRow("read as a number: a hexadecimal digit") << "A" << true;
    QTest::addRow("read as a number: hexadecimal 0") << "#x0" << false;
    QTest::addRow("zero") << "0" << false;
    QTest::addRow("false") << "false" << false;
    QTest::addRow("no number") << "yes" << false;
}

void tst_FmmuSection::operationalOnly()
{
    QFETCH(QString, value);
    QFETCH(bool, expected);
    const struct_EtherCatDevice device =
        readSection(read_device_Fmmuinfo, QStringLiteral("<Fmmu OpOnly=\"%1\">Inputs</Fmmu>").arg(value));
    QCOMPARE(device.vFmmu.at(0).m_OpOnly, expected);
}

void tst_FmmuSection::attributesAreExact()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Fmmuinfo, R"(<Fmmu opOnly="1" SM="2" SU="3" Other="4">Inputs</Fmmu>)");
    QCOMPARE(device.vFmmu.at(0).m_OpOnly, false);
    QCOMPARE(device.vFmmu.at(0).m_Sm, 0U);
    QCOMPARE(device.vFmmu.at(0).m_Su, 0U);
}

void tst_FmmuSection::eachElementAppends()
{
    const struct_EtherCatDevice one = readSection(read_device_Fmmuinfo, R"(<Fmmu Sm="2">Outputs</Fmmu>)");
    const struct_EtherCatDevice two = readSection(read_device_Fmmuinfo, "<Fmmu>Inputs</Fmmu>", one);
    QCOMPARE(two.vFmmu.size(), std::size_t{2});
    QCOMPARE(text(two.vFmmu[0].m_Name), QStringLiteral("Outputs"));
    QCOMPARE(text(two.vFmmu[1].m_Name), QStringLiteral("Inputs"));
    QVERIFY2(two.vFmmu[1].m_Sm == 0, "each record starts cleared");
}

void tst_FmmuSection::nullPointers()
{
    struct_EtherCatDevice device;
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("Fmmu"));
    read_device_Fmmuinfo(nullptr, &device);
    read_device_Fmmuinfo(&element, nullptr);
    QVERIFY(device.vFmmu.empty());
}

static const testMain::Registration<tst_FmmuSection, QCoreApplication> registration;
#include "tst_FmmuSection.moc"
