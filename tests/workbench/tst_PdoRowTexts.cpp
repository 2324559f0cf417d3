// The cells of the rows of PDOs and their entries, of the device and of modules.
#include "testMain.h"
#include "workbench/rowTexts.h"

#include <QtTest>

#include <cstdint>

class tst_PdoRowTexts : public QObject
{
    Q_OBJECT

private slots:
    static void pdo_data();
    static void pdo();
    static void modulePdoRow();
    static void declaredPdoMovesWithItsSlot_data();
    static void declaredPdoMovesWithItsSlot();
    static void noSyncManager();
    static void entry_data();
    static void entry();
    static void closing_data();
    static void closing();
};

/// Attributes of a PDO as the rows of a test give them.
template<typename Attributes> static void setAttributes(Attributes& attributes, const QString& flags, int sm, int su)
{
    attributes.Fixed = flags.contains('F');
    attributes.Mandatory = flags.contains('M');
    attributes.SM = sm;
    attributes.SU = su;
}

void tst_PdoRowTexts::pdo_data()
{
    QTest::addColumn<unsigned int>("index");
    QTest::addColumn<float>("size");
    QTest::addColumn<QString>("flags");
    QTest::addColumn<int>("sm");
    QTest::addColumn<int>("su");
    QTest::addColumn<QStringList>("cells");
    QTest::addRow("no flags") << 0x1600U << 1.4F << "" << 2 << 0 << QStringList{"0x1600", "1.40", "N", "", "2", "0"};
    QTest::addRow("fixed") << 0x1A00U << 6.0F << "F" << 3 << 1 << QStringList{"0x1a00", "6.00", "N", "F", "3", "1"};
    QTest::addRow("mandatory") << 0U << 0.0F << "M" << 0 << -1 << QStringList{"0x00", "0.00", "N", "M", "0", "-1"};
    QTest::addRow("both") << 0xFFFFU << 2.8F << "FM" << 10 << 12
                          << QStringList{"0xffff", "2.80", "N", "FM", "10", "12"};
}

void tst_PdoRowTexts::pdo()
{
    QFETCH(unsigned int, index);
    QFETCH(float, size);
    QFETCH(QString, flags);
    QFETCH(int, sm);
    QFETCH(int, su);
    struct_PDOList own;
    own.IndexAttributes.Index = static_cast<std::uint16_t>(index);
    own.Size = size;
    own.Name = "N";
    setAttributes(own.Attributes, flags, sm, su);
    QTEST(pdoRow(own), "cells");

    modulePdo ofModule;
    ofModule.indexAttributes.index = static_cast<std::uint16_t>(index);
    ofModule.size = size;
    ofModule.Name = "N";
    setAttributes(ofModule.Attributes, flags, sm, su);
    QTEST(pdoRow(ofModule), "cells");
    QTEST(declaredModulePdoRow(ofModule), "cells");
}

void tst_PdoRowTexts::modulePdoRow()
{
    // A copy in a slot has been moved to its place already.
    modulePdo copy;
    copy.indexAttributes.index = 0x1605;
    copy.indexAttributes.DependOnSlot = true;
    copy.Instances = 5;
    QCOMPARE(pdoRow(copy).value(0), QString("0x1605"));
}

void tst_PdoRowTexts::declaredPdoMovesWithItsSlot_data()
{
    QTest::addColumn<bool>("dependsOnSlot");
    QTest::addColumn<int>("instances");
    QTest::addColumn<QString>("shown");
    QTest::addRow("bound to the slot") << true << 5 << "0x1605";
    QTest::addRow("bound to the first slot") << true << 0 << "0x1600";
    QTest::addRow("bound to no slot") << false << 5 << "0x1600";
}

void tst_PdoRowTexts::declaredPdoMovesWithItsSlot()
{
    QFETCH(bool, dependsOnSlot);
    QFETCH(int, instances);
    modulePdo declared;
    declared.indexAttributes.index = 0x1600;
    declared.indexAttributes.DependOnSlot = dependsOnSlot;
    declared.Instances = instances;
    QTEST(declaredModulePdoRow(declared).value(0), "shown");
}

void tst_PdoRowTexts::noSyncManager()
{
    constexpr int smColumn = 4;
    for (const int none : {-1, -2}) {
        struct_PDOList own;
        own.Attributes.SM = none;
        QVERIFY(pdoRow(own).at(smColumn).isNull()); // no item

        modulePdo ofModule;
        ofModule.Attributes.SM = none;
        QVERIFY(pdoRow(ofModule).at(smColumn).isEmpty()); // an item with the empty text
        QVERIFY(!pdoRow(ofModule).at(smColumn).isNull());
        QVERIFY(declaredModulePdoRow(ofModule).at(smColumn).isNull());
    }
}

void tst_PdoRowTexts::entry_data()
{
    QTest::addColumn<unsigned int>("index");
    QTest::addColumn<unsigned int>("subIndex");
    QTest::addColumn<int>("bits");
    QTest::addColumn<float>("place");
    QTest::addColumn<int>("link");
    QTest::addColumn<unsigned int>("defaultData");
    QTest::addColumn<QStringList>("cells");
    QTest::addRow("word") << 0x6040U << 0U << 16 << 0.0F << 0 << 0U
                          << QStringList{"0x6040:0", "2.00", "0.00", "N", "UINT", "NONE Type", "0"};
    QTest::addRow("twelve bits after twelve")
        << 0x7000U << 17U << 12 << 1.4F << -7 << 10U
        << QStringList{"0x7000:17", "1.40", "1.40", "N", "UINT", "AOUT16 Type", "10"};
    QTest::addRow("gap") << 0U << 0U << 7 << 0.1F << 0 << 0U
                         << QStringList{"0x00:0", "0.70", "0.10", "N", "UINT", "NONE Type", "0"};
    QTest::addRow("link without words") << 0xFFFFU << 65535U << 32 << 255.7F << -3 << 4294967295U
                                        << QStringList{"0xffff:65535", "4.00", "255.70",    "N",
                                                       "UINT",         "-3",   "4294967295"};
}

void tst_PdoRowTexts::entry()
{
    QFETCH(unsigned int, index);
    QFETCH(unsigned int, subIndex);
    QFETCH(int, bits);
    QFETCH(float, place);
    QFETCH(int, link);
    QFETCH(unsigned int, defaultData);
    const auto fill = [&](auto& record) {
        record.Name = "N";
        record.DataType = "UINT";
        record.Offs = place;
        record.Linkto = link;
        record.DefaultData = defaultData;
    };
    struct_EntryPDOContent own;
    fill(own);
    own.Index = static_cast<std::uint16_t>(index);
    own.SubIndex = subIndex;
    own.Bitlen = bits;
    QTEST(entryRow(own), "cells");

    struct_moduleEntry ofModule;
    fill(ofModule);
    ofModule.indexAttributes.index = static_cast<std::uint16_t>(index);
    ofModule.SubIndex = static_cast<std::uint16_t>(subIndex);
    ofModule.BitLen = bits;
    QTEST(entryRow(ofModule), "cells");
}

void tst_PdoRowTexts::closing_data()
{
    QTest::addColumn<float>("place");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QString>("shown");
    QTest::addRow("first entry") << 0.0F << 16 << "2.000000";
    QTest::addRow("tenths carry nothing over") << 1.5F << 7 << "2.200000"; // 1 byte 5 bits and 7 bits
    QTest::addRow("empty entry") << 3.0F << 0 << "3.000000";
}

void tst_PdoRowTexts::closing()
{
    QFETCH(float, place);
    QFETCH(int, bits);
    QFETCH(QString, shown);
    struct_EntryPDOContent own;
    own.Offs = place;
    own.Bitlen = bits;
    QCOMPARE(closingRow(own), QStringList({QString(), QString(), shown}));
    QVERIFY(closingRow(own).at(0).isNull() && closingRow(own).at(1).isNull()); // only the third cell has an item

    struct_moduleEntry ofModule;
    ofModule.Offs = place;
    ofModule.BitLen = bits;
    QCOMPARE(closingRow(ofModule), QStringList({QString(), QString(), shown}));
}

static const testMain::Registration<tst_PdoRowTexts, testMain::NoApplication> registration;
#include "tst_PdoRowTexts.moc"
