// The `Sm` elements of a device.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>

class tst_SmSection : public QObject
{
    Q_OBJECT

private slots:
    static void allAttributes();
    static void attributeWidths();
    static void truthValues();
    static void attributesAreExact();
    static void laterAttributeCounts_data();
    static void laterAttributeCounts();
    static void type_data();
    static void type();
    static void number_data();
    static void number();
    static void eachElementAppends();
    static void nullPointers();
};

void tst_SmSection::allAttributes()
{
    const struct_EtherCatDevice device =
        readSection(read_device_SMinfo, R"(<Sm MinSize="34" MaxSize="256" DefaultSize="128" StartAddress="#x1000" )"
                                        R"(ControlByte="#x26" Enable="1" Virtual="2">MBoxOut</Sm>)");
    QCOMPARE(device.vSM.size(), std::size_t{1});
    const struct_SM& syncManager = device.vSM[0];
    QCOMPARE(int{syncManager.SM}, 0);
    QCOMPARE(int{syncManager.Attributes.StartAddress}, 0x1000);
    QCOMPARE(int{syncManager.Attributes.MinSize}, 34);
    QCOMPARE(int{syncManager.Attributes.MaxSize}, 256);
    QCOMPARE(int{syncManager.Attributes.DefaultSize}, 128);
    QCOMPARE(syncManager.Attributes.ControlByte, 0x26U);
    QCOMPARE(syncManager.Attributes.Enable, 1U);
    QCOMPARE(syncManager.Attributes.m_Virtual, 2U);
    QCOMPARE(text(syncManager.Name), QStringLiteral("MBoxOut"));
    QCOMPARE(int{syncManager.Smtype}, 1);
    QCOMPARE(syncManager.Length, 0.0F);
}

void tst_SmSection::attributeWidths()
{
    const struct_EtherCatDevice device = readSection(
        read_device_SMinfo, R"(<Sm MinSize="#x10001" MaxSize="#x10002" DefaultSize="#x10003" StartAddress="#x10004" )"
                            R"(ControlByte="#x10005" Enable="#x10006" Virtual="#xFFFFFFFF">Inputs</Sm>)");
    const SmAttributes& attributes = device.vSM.at(0).Attributes;
    QCOMPARE(int{attributes.MinSize}, 1);
    QCOMPARE(int{attributes.MaxSize}, 2);
    QCOMPARE(int{attributes.DefaultSize}, 3);
    QCOMPARE(int{attributes.StartAddress}, 4);
    QCOMPARE(attributes.ControlByte, 0x10005U);
    QCOMPARE(attributes.Enable, 0x10006U);
    QCOMPARE(attributes.m_Virtual, 0xFFFFFFFFU);
}

void tst_SmSection::truthValues()
{
    const struct_EtherCatDevice device =
        readSection(read_device_SMinfo, R"(<Sm Virtual="true" Enable="TRUE" ControlByte="false">Inputs</Sm>)");
    QCOMPARE(device.vSM.at(0).Attributes.m_Virtual, 1U);
    QCOMPARE(device.vSM.at(0).Attributes.Enable, 1U);
    QCOMPARE(device.vSM.at(0).Attributes.ControlByte, 0U);
}

void tst_SmSection::attributesAreExact()
{
    const struct_EtherCatDevice device =
        readSection(read_device_SMinfo,
                    R"(<Sm startAddress="1" Minsize="2" MAXSIZE="3" Default="4" enable="5" OpOnly="6">Inputs</Sm>)");
    const SmAttributes& attributes = device.vSM.at(0).Attributes;
    QCOMPARE(int{attributes.StartAddress}, 0);
    QCOMPARE(int{attributes.MinSize}, 0);
    QCOMPARE(int{attributes.MaxSize}, 0);
    QCOMPARE(int{attributes.DefaultSize}, 0);
    QCOMPARE(attributes.Enable, 0U);
}

void tst_SmSection::laterAttributeCounts_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addRow("the same attribute twice") << R"(Enable="1" Enable="2")";
    QTest::addRow("two prefixes") << R"(a:Enable="1" b:Enable="2")";
    QTest::addRow("two prefixes, in the other order") << R"(b:Enable="1" a:Enable="2")";
    QTest::addRow("plain, then prefixed") << R"(Enable="1" a:Enable="2")";
    QTest::addRow("prefixed, then plain") << R"(a:Enable="1" Enable="2")";
}

void tst_SmSection::laterAttributeCounts()
{
    QFETCH(QString, attributes);
    const struct_EtherCatDevice device = readSection(
        read_device_SMinfo,
        QStringLiteral(R"(<Sm xmlns:a="urn:example:a" xmlns:b="urn:example:b" %1>Inputs</Sm>)").arg(attributes));
    QCOMPARE(device.vSM.at(0).Attributes.Enable, 2U);
}

void tst_SmSection::type_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("expected");
    QTest::addRow("mailbox out") << "MBoxOut" << 1;
    QTest::addRow("mailbox in") << "MBoxIn" << 2;
    QTest::addRow("outputs") << "Outputs" << 3;
    QTest::addRow("inputs") << "Inputs" << 4;
    QTest::addRow("a name outside the four counts as mailbox out, unlike an FMMU's") << "Spare" << 1;
    QTest::addRow("no text counts as mailbox out") << "" << 1;
    QTest::addRow("other case counts as mailbox out") << "inputs" << 1;
    QTest::addRow("a blank after the word counts as mailbox out") << "Outputs " << 1;
}

void tst_SmSection::type()
{
    QFETCH(QString, name);
    QFETCH(int, expected);
    const struct_EtherCatDevice device = readSection(read_device_SMinfo, QStringLiteral("<Sm>%1</Sm>").arg(name));
    QCOMPARE(int{device.vSM.at(0).Smtype}, expected);
    QCOMPARE(text(device.vSM.at(0).Name), name);
}

void tst_SmSection::number_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("expected");
    QTest::addRow("first") << 0 << 0;
    QTest::addRow("fourth") << 3 << 3;
    QTest::addRow("last that 8 bits hold") << 255 << 255;
    QTest::addRow("one more is cut to 0") << 256 << 0;
    QTest::addRow("cut to 8 bits") << 300 << 44;
}

void tst_SmSection::number()
{
    QFETCH(int, before);
    QFETCH(int, expected);
    struct_EtherCatDevice device;
    device.vSM.resize(static_cast<std::size_t>(before));
    // There is no attribute for the number, so what looks like one means nothing.
    device = readSection(read_device_SMinfo, R"(<Sm SM="9" Sm="9" No="9">Inputs</Sm>)", device);
    QCOMPARE(device.vSM.size(), static_cast<std::size_t>(before) + 1);
    QCOMPARE(int{device.vSM.back().SM}, expected);
}

void tst_SmSection::eachElementAppends()
{
    const struct_EtherCatDevice one = readSection(read_device_SMinfo, R"(<Sm Enable="1">MBoxOut</Sm>)");
    const struct_EtherCatDevice two = readSection(read_device_SMinfo, "<Sm>MBoxIn</Sm>", one);
    QCOMPARE(two.vSM.size(), std::size_t{2});
    QCOMPARE(text(two.vSM[0].Name), QStringLiteral("MBoxOut"));
    QCOMPARE(text(two.vSM[1].Name), QStringLiteral("MBoxIn"));
    QVERIFY2(two.vSM[1].Attributes.Enable == 0, "each record starts cleared");
}

void tst_SmSection::nullPointers()
{
    struct_EtherCatDevice device;
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("Sm"));
    read_device_SMinfo(nullptr, &device);
    read_device_SMinfo(&element, nullptr);
    QVERIFY(device.vSM.empty());
}

static const testMain::Registration<tst_SmSection, QCoreApplication> registration;
#include "tst_SmSection.moc"
