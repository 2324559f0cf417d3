// KTL_write_devices: which devices the check states of the tree select, and its three arguments.
// Covers ktlTreeExport.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlItems.h"
#include "testMain.h"

#include <QApplication>
#include <QTreeWidget>
#include <QtTest>

#include <memory>
#include <stdexcept>

namespace {

constexpr int untouched = -77;
constexpr int noState = -1; // the item never got a check state

using States = QVector<int>;

void setState(QTreeWidgetItem* item, int state)
{
    if (state != noState)
        item->setData(0, Qt::CheckStateRole, state);
}

/// Appends a file and its item: product codes count from 100 times the number of the file, which counts from 1.
void addFile(QTreeWidget& tree, int fileState, const States& deviceStates)
{
    struct_FilenameDevice file;
    auto* top = new QTreeWidgetItem(&tree);
    for (const int state : deviceStates) {
        struct_EtherCatDevice device;
        device.TypeAttributes.Product_Code =
            static_cast<std::uint32_t>(100 * (g_xmlfiledevices.size() + 1) + file.device.size());
        file.device.push_back(device);
        setState(new QTreeWidgetItem(top), state);
    }
    g_xmlfiledevices.push_back(file);
    setState(top, fileState);
}

} // namespace

class tst_TreeExport : public QObject
{
    Q_OBJECT

private slots:
    void init() { g_xmlfiledevices.clear(); }
    void nullArgument_data();
    void nullArgument();
    void checkStates_data();
    void checkStates();
    void wholeStream();
    void nothingLoaded();
    void generalFails();
    void undeclaredSyncManager();
};

void tst_TreeExport::nullArgument_data()
{
    QTest::addColumn<bool>("hasFile");
    QTest::addColumn<bool>("hasTree");
    QTest::addColumn<bool>("hasErrorCode");
    QTest::addRow("no file") << false << true << true;
    QTest::addRow("no tree") << true << false << true;
    QTest::addRow("no error code") << true << true << false;
    QTest::addRow("nothing") << false << false << false;
}

void tst_TreeExport::nullArgument()
{
    QFETCH(bool, hasFile);
    QFETCH(bool, hasTree);
    QFETCH(bool, hasErrorCode);
    QTreeWidget tree;
    addFile(tree, Qt::Checked, {Qt::Checked});
    int code = untouched;
    const FileHandle stream = streamWith();
    QVERIFY(!KTL_write_devices(hasFile ? stream.get() : nullptr, hasTree ? &tree : nullptr,
                               hasErrorCode ? &code : nullptr));
    QCOMPARE(code, untouched);
    QCOMPARE(contentOf(stream.get()), QByteArray());
}

void tst_TreeExport::checkStates_data()
{
    QTest::addColumn<States>("fileStates");
    QTest::addColumn<QVector<States>>("deviceStates");
    QTest::addColumn<QList<uint>>("expected"); // product codes
    const int yes = Qt::Checked;
    const int partly = Qt::PartiallyChecked;
    const int no = Qt::Unchecked;
    QTest::addRow("all checked, in the order of the tree")
        << States{yes, yes} << QVector<States>{{yes, yes}, {yes}} << QList<uint>{100, 101, 200};
    QTest::addRow("partially checked file, its second device only")
        << States{partly} << QVector<States>{{no, yes, no}} << QList<uint>{101};
    QTest::addRow("partially checked device counts")
        << States{yes} << QVector<States>{{partly, no}} << QList<uint>{100};
    QTest::addRow("unchecked file with a checked device")
        << States{no, yes} << QVector<States>{{yes}, {yes}} << QList<uint>{200};
    QTest::addRow("checked file with no checked device") << States{yes} << QVector<States>{{no, no}} << QList<uint>{};
    QTest::addRow("items without a check state")
        << States{noState, yes} << QVector<States>{{yes}, {noState, yes}} << QList<uint>{201};
    QTest::addRow("file without devices") << States{yes, yes} << QVector<States>{{}, {yes}} << QList<uint>{200};
    QTest::addRow("nothing checked") << States{no, no} << QVector<States>{{no}, {no}} << QList<uint>{};
}

void tst_TreeExport::checkStates()
{
    QFETCH(States, fileStates);
    QFETCH(QVector<States>, deviceStates);
    QFETCH(QList<uint>, expected);
    QTreeWidget tree;
    for (int file = 0; file < fileStates.size(); ++file)
        addFile(tree, fileStates.at(file), deviceStates.at(file));
    int code = untouched;
    const FileHandle stream = streamWith();
    QVERIFY(KTL_write_devices(stream.get(), &tree, &code));
    QCOMPARE(code, expected.isEmpty() ? 0 : 1);
    QString problem;
    const std::vector<KtlItem> items = itemsOf(contentOf(stream.get()), &problem);
    QCOMPARE(problem, QString());
    QList<uint> products;
    for (const KtlItem& item : items)
        if (item.type == KTL_ITEM_General)
            products.append(item.u32(12));
    QCOMPARE(products, expected);
    QCOMPARE(int(items.size()), 3 * expected.size() + 1); // General, EoE, CoE each, and one end item
    QCOMPARE(items.back().content, bytes("00 00 00 00  0C 00 00 00  00 00 00 00"));
}

void tst_TreeExport::wholeStream()
{
    QTreeWidget tree;
    addFile(tree, Qt::Unchecked, {Qt::Unchecked});
    addFile(tree, Qt::PartiallyChecked, {Qt::Unchecked, Qt::Checked});
    g_xmlfiledevices[1].Vendor_Id = 0x7E570003;
    int code = untouched;
    const QByteArray written = writtenBy([&](std::FILE* out) { QVERIFY(KTL_write_devices(out, &tree, &code)); });
    QCOMPARE(written, bytes("40 9C 00 00  34 00 00 00  03 00 57 7E  C9 00 00 00") + zeros(36) // product code 201
                          + bytes("45 9C 00 00  0C 00 00 00  00 00 00 00"
                                  "46 9C 00 00  10 00 00 00  00 00 00 00 00 00 00 00"
                                  "00 00 00 00  0C 00 00 00  00 00 00 00"));
}

void tst_TreeExport::nothingLoaded()
{
    QTreeWidget tree;
    int code = untouched;
    const QByteArray written = writtenBy([&](std::FILE* out) { QVERIFY(KTL_write_devices(out, &tree, &code)); });
    QCOMPARE(code, 0);
    QCOMPARE(written, bytes("00 00 00 00  0C 00 00 00  00 00 00 00"));
}

void tst_TreeExport::generalFails()
{
    QTreeWidget tree;
    addFile(tree, Qt::Checked, {Qt::Checked});
    int code = untouched;
    const FileHandle readOnly = streamThatRefuses();
    QVERIFY(readOnly);
    QVERIFY(!KTL_write_devices(readOnly.get(), &tree, &code));
    QCOMPARE(code, untouched);
}

/// The range error comes out, and stops the run where it is.
void tst_TreeExport::undeclaredSyncManager()
{
    QTreeWidget tree;
    addFile(tree, Qt::Checked, {Qt::Checked, Qt::Checked});
    struct_PDOList pdo;
    pdo.Attributes.SM = 0;
    pdo.Entry.vPdo_c.resize(1);
    g_xmlfiledevices[0].device[0].RxPdo.vpdo.push_back(pdo);
    int code = untouched;
    const FileHandle stream = streamWith();
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(KTL_write_devices(stream.get(), &tree, &code)), std::out_of_range);
    QCOMPARE(code, untouched);
    QCOMPARE(contentOf(stream.get()).size(), 52);
}

static const testMain::Registration<tst_TreeExport, QApplication> registration;
#include "tst_TreeExport.moc"
