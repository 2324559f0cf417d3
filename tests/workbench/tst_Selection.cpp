// What is selected in the device tree, and the device at a position.
#include "testMain.h"
#include "workbench/modelBuilders.h"
#include "workbench/selection.h"
#include "workbench/windowParts.h"

#include <stdexcept>

class tst_Selection : public QObject
{
    Q_OBJECT

private slots:
    static void init();
    static void cleanup() { resetModel(); }
    static void positions_data();
    static void positions();
    static void rangeErrors_data();
    static void rangeErrors();
    static void itemOfAFile();
    static void itemOfADevice();
    static void itemOfNoTree();
    static void itemBelowADevice();
};

/// Two files: one with the devices A1 and A2, one with B1.
void tst_Selection::init()
{
    resetModel();
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"}), fileWith("b.xml", {"B1"})};
}

void tst_Selection::positions_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("name"); // empty for none
    QTest::addRow("first") << 0 << 0 << "A1";
    QTest::addRow("last of its file") << 0 << 1 << "A2";
    QTest::addRow("second file") << 1 << 0 << "B1";
    QTest::addRow("nothing") << -1 << -1 << "";
    QTest::addRow("a file") << 0 << -1 << "";
    QTest::addRow("a device of no file") << -1 << 0 << "";
    QTest::addRow("past the devices") << 1 << 1 << "";
    QTest::addRow("past the files") << 2 << 0 << "";
}

void tst_Selection::positions()
{
    QFETCH(int, file);
    QFETCH(int, device);
    const struct_EtherCatDevice* const found = deviceAt(file, device);
    QTEST(found == nullptr ? QString() : QString::fromStdString(found->Name), "name");
    currentfileindex = file;
    currentdeviceindex = device;
    QCOMPARE(selectedDevice(), found);
}

void tst_Selection::rangeErrors_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addColumn<bool>("isError");
    QTest::addRow("a device") << 1 << 0 << false;
    QTest::addRow("nothing") << -1 << -1 << false;
    QTest::addRow("a file past the files") << 2 << -1 << false;
    QTest::addRow("past the devices") << 1 << 1 << true;
    QTest::addRow("past the files") << 2 << 0 << true;
}

void tst_Selection::rangeErrors()
{
    QFETCH(int, file);
    QFETCH(int, device);
    QFETCH(bool, isError);
    currentfileindex = file;
    currentdeviceindex = device;
    if (isError)
        QVERIFY_EXCEPTION_THROWN(static_cast<void>(selectedDeviceInRange()), std::out_of_range);
    else
        QCOMPARE(selectedDeviceInRange(), selectedDevice());
}

namespace {

/// A tree with two files of two devices each.
void fill(QTreeWidget& tree)
{
    for (int file = 0; file < 2; ++file) {
        auto* const item = new QTreeWidgetItem(&tree);
        item->addChildren({new QTreeWidgetItem, new QTreeWidgetItem});
    }
}

} // namespace

void tst_Selection::itemOfAFile()
{
    QTreeWidget tree;
    fill(tree);
    currentdeviceindex = 1;
    QVERIFY(selectItem(tree, tree.topLevelItem(1)));
    QCOMPARE(currentfileindex, 1);
    QCOMPARE(currentdeviceindex, -1);
}

void tst_Selection::itemOfADevice()
{
    QTreeWidget tree;
    fill(tree);
    QVERIFY(selectItem(tree, tree.topLevelItem(0)->child(1)));
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 1);
}

void tst_Selection::itemOfNoTree()
{
    QTreeWidget tree;
    fill(tree);
    QTreeWidgetItem outside;
    currentfileindex = 1;
    currentdeviceindex = 0;
    QVERIFY(!selectItem(tree, &outside));
    QCOMPARE(currentfileindex, 1);
    QCOMPARE(currentdeviceindex, 0);
}

/// Only two levels are mapped: the parent counts as a file, and it is none.
void tst_Selection::itemBelowADevice()
{
    QTreeWidget tree;
    fill(tree);
    auto* const below = new QTreeWidgetItem(tree.topLevelItem(0)->child(1));
    QVERIFY(!selectItem(tree, below));
    QCOMPARE(currentfileindex, -1);
}

static const testMain::Registration<tst_Selection, QApplication> registration;
#include "tst_Selection.moc"
