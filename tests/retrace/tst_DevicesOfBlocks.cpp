// Which devices of descriptions the devices of a run are.
#include "model/pdoAccess.h"
#include "model/pdoLink.h"
#include "retrace/devicesOfBlocks.h"
#include "retrace/retracedRuns.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

/// A block that tells nothing but an identity, of vendor 1, and a name.
retrace::ExportedBlock blockOf(std::uint32_t product, std::uint32_t revision, const std::string& text = {})
{
    retrace::ExportedBlock block;
    block.content.general.m_iVendor_Id = 1;
    block.content.general.m_iProduct_Code = product;
    block.content.general.m_iRevision_No = revision;
    if (!text.empty())
        block.content.moreInfo = KtlMoreInfo{{}, text};
    return block;
}

/// Devices of two files of vendor 1, and one of vendor 2 in the second place.
std::vector<struct_FilenameDevice> manyFiles()
{
    std::vector<struct_FilenameDevice> files{
        fileWith({}, {deviceOf(0x10, 1, "A"), deviceOf(0x20, 5, "B"), deviceOf(0x20, 7, "B"), deviceOf(0x20, 20, "B")}),
        fileWith({}, {deviceOf(0x30, 1, "C")}), fileWith({}, {deviceOf(0x30, 1, "C"), deviceOf(0x20, 8, "B")})};
    files[1].Vendor_Id = 2;
    return files;
}

/// "FILE:DEVICE MATCH", with "out of order" after it where it is so.
QString wordsOf(const retrace::MatchedDevice& matched)
{
    static const std::map<retrace::DeviceMatch, QString> names{{retrace::DeviceMatch::Same, "same"},
                                                               {retrace::DeviceMatch::OtherRevision, "revision"},
                                                               {retrace::DeviceMatch::OtherProduct, "product"}};
    const auto found = names.find(matched.match);
    if (found == names.end())
        return matched.isInOrder ? QStringLiteral("none") : QStringLiteral("none out of order");
    const QString words =
        QStringLiteral("%1:%2 ").arg(matched.position.first).arg(matched.position.second) + found->second;
    return matched.isInOrder ? words : words + QStringLiteral(" out of order");
}

QStringList matched(const std::vector<struct_FilenameDevice>& files, const std::vector<retrace::ExportedBlock>& blocks)
{
    QStringList words;
    for (const retrace::MatchedDevice& device : retrace::matchedDevices(files, blocks))
        words += wordsOf(device);
    return words;
}

struct_EtherCatDevice deviceWithOutput(const std::string& name, std::uint32_t subIndex)
{
    struct_EtherCatDevice device = deviceOf(0x10, 1, name);
    device.RxPdo.vpdo = {pdo(0x1600, 0, {entry(0x7000, subIndex, "A")})};
    return device;
}

} // namespace

Q_DECLARE_METATYPE(retrace::ExportedBlock)
Q_DECLARE_METATYPE(std::vector<int>)

class tst_DevicesOfBlocks : public QObject
{
    Q_OBJECT

private slots:
    static void oneBlock_data();
    static void oneBlock();
    static void orderOfBlocks_data();
    static void orderOfBlocks();
    static void twins_data();
    static void twins();
    static void serialNumber();
    static void linkedTwins();
    static void identityOfABlock();
};

void tst_DevicesOfBlocks::oneBlock_data()
{
    QTest::addColumn<retrace::ExportedBlock>("block");
    QTest::addColumn<QString>("expected");
    QTest::addRow("first device") << blockOf(0x10, 1) << "0:0 same";
    QTest::addRow("device of another file") << blockOf(0x20, 8) << "2:1 same";
    QTest::addRow("of devices of two vendors") << blockOf(0x30, 1) << "2:0 same";
    QTest::addRow("older revision") << blockOf(0x10, 0) << "0:0 revision";
    QTest::addRow("newer revision") << blockOf(0x10, 0xFFFFFFFF) << "0:0 revision";
    QTest::addRow("nearest revision below") << blockOf(0x20, 10) << "2:1 revision";
    QTest::addRow("nearest revision above") << blockOf(0x20, 19) << "0:3 revision";
    QTest::addRow("first of two equally near") << blockOf(0x20, 6) << "0:1 revision";
    QTest::addRow("revision, whatever the name") << blockOf(0x20, 6, "A") << "0:1 revision";
    QTest::addRow("nothing but the name") << blockOf(0x99, 1, "B") << "0:1 product";
    QTest::addRow("name before the names of modules") << blockOf(0x99, 1, "C\nB") << "2:0 product";
    QTest::addRow("name before what fills the item") << blockOf(0x99, 1, std::string("A\0\0", 3)) << "0:0 product";
    QTest::addRow("other name") << blockOf(0x99, 1, "X") << "none";
    QTest::addRow("neither product nor name") << blockOf(0x99, 1) << "none";
    retrace::ExportedBlock ofOther = blockOf(0x10, 1, "A");
    ofOther.content.general.m_iVendor_Id = 3;
    QTest::addRow("other vendor") << ofOther << "none";
}

void tst_DevicesOfBlocks::oneBlock()
{
    QFETCH(retrace::ExportedBlock, block);
    QFETCH(QString, expected);
    QCOMPARE(matched(manyFiles(), {block}), QStringList(expected));
}

void tst_DevicesOfBlocks::orderOfBlocks_data()
{
    QTest::addColumn<std::vector<int>>("products");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("no blocks") << std::vector<int>{} << QStringList();
    QTest::addRow("in order") << std::vector<int>{1, 2, 3} << QStringList{"0:0 same", "0:1 same", "1:0 same"};
    QTest::addRow("some, in order") << std::vector<int>{1, 3} << QStringList{"0:0 same", "1:0 same"};
    QTest::addRow("files in another order")
        << std::vector<int>{3, 1} << QStringList{"1:0 same", "0:0 same out of order"};
    QTest::addRow("one twice") << std::vector<int>{2, 2} << QStringList{"0:1 same", "0:1 same out of order"};
    // What is out of order is not what an export wrote last.
    QTest::addRow("out of order, then on")
        << std::vector<int>{2, 1, 3} << QStringList{"0:1 same", "0:0 same out of order", "1:0 same"};
    QTest::addRow("out of order, then between")
        << std::vector<int>{3, 1, 2} << QStringList{"1:0 same", "0:0 same out of order", "0:1 same out of order"};
    QTest::addRow("unknown between others") << std::vector<int>{1, 9, 2} << QStringList{"0:0 same", "none", "0:1 same"};
}

void tst_DevicesOfBlocks::orderOfBlocks()
{
    QFETCH(std::vector<int>, products);
    QFETCH(QStringList, expected);
    std::vector<retrace::ExportedBlock> blocks;
    for (const int product : products)
        blocks.push_back(blockOf(static_cast<std::uint32_t>(product), 1));
    const std::vector<struct_FilenameDevice> files{fileWith({}, {deviceOf(1, 1, "A"), deviceOf(2, 1, "B")}),
                                                   fileWith({}, {deviceOf(3, 1, "C")})};
    QCOMPARE(matched(files, blocks), expected);
}

void tst_DevicesOfBlocks::twins_data()
{
    QTest::addColumn<std::vector<int>>("exported");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("all") << std::vector<int>{0, 1, 2} << QStringList{"0:0 same", "0:1 same", "0:2 same"};
    QTest::addRow("the second only") << std::vector<int>{1} << QStringList("0:1 same");
    QTest::addRow("the third only") << std::vector<int>{2} << QStringList("0:2 same");
    QTest::addRow("the first and the third") << std::vector<int>{0, 2} << QStringList{"0:0 same", "0:2 same"};
    // The first cannot be written any more, so the next one is as good as any.
    QTest::addRow("in another order") << std::vector<int>{1, 0} << QStringList{"0:1 same", "0:2 same"};
    QTest::addRow("more than there are") << std::vector<int>{0, 1, 2, 0}
                                         << QStringList{"0:0 same", "0:1 same", "0:2 same", "0:0 same out of order"};
}

/// Devices of one identity, with an entry each that the others lack: the first one that can become that of the block.
void tst_DevicesOfBlocks::twins()
{
    QFETCH(std::vector<int>, exported);
    QFETCH(QStringList, expected);
    const std::vector<struct_FilenameDevice> files{
        fileWith({}, {deviceWithOutput("A", 1), deviceWithOutput("B", 2), deviceWithOutput("C", 3)})};
    std::vector<retrace::ExportedBlock> blocks;
    for (const int device : exported)
        blocks.push_back(exportOf(files[0].device.at(static_cast<std::size_t>(device)), files[0]));
    QCOMPARE(matched(files, blocks), expected);
}

/// It is part of the identity, and none of the revision.
void tst_DevicesOfBlocks::serialNumber()
{
    struct_FilenameDevice file = fileWith({}, {deviceOf(0x10, 1, "A"), deviceOf(0x10, 1, "A")});
    file.device[1].TypeAttributes.Serial_No = 7;
    retrace::ExportedBlock block = blockOf(0x10, 1);
    block.content.general.m_iSerial_No = 7;
    QCOMPARE(matched({file}, {block}), QStringList("0:1 same"));
    block.content.general.m_iSerial_No = 8;
    QCOMPARE(matched({file}, {block}), QStringList("0:0 revision"));
}

/// A link that a click can set does not make it another device.
void tst_DevicesOfBlocks::linkedTwins()
{
    const struct_FilenameDevice file = fileWith({}, {deviceWithOutput("A", 1), deviceWithOutput("B", 2)});
    struct_EtherCatDevice linked = clicked(file.device[1]);
    entriesOf(linked.RxPdo.vpdo[0])[0].Linkto = KTL_PDO_TYPE_DOUT;
    QCOMPARE(matched({file}, {exportOf(linked, file)}), QStringList("0:1 same"));
}

void tst_DevicesOfBlocks::identityOfABlock()
{
    retrace::ExportedBlock block = blockOf(0x99, 8);
    block.content.general.m_iSerial_No = 7;
    const struct_EtherCatDevice device = retrace::withIdentityOf(block, deviceWithOutput("A", 1));
    QCOMPARE(device.TypeAttributes.Product_Code, std::uint32_t{0x99});
    QCOMPARE(device.TypeAttributes.Revision_No, std::uint32_t{8});
    QCOMPARE(device.TypeAttributes.Serial_No, std::uint32_t{7});
    QCOMPARE(device.Name, std::string("A"));
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t{1});
}

static const testMain::Registration<tst_DevicesOfBlocks, testMain::NoApplication> registration;
#include "tst_DevicesOfBlocks.moc"
