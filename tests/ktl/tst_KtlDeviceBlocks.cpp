// The records of a file by device block, and the values of complete accesses by command.
#include "ktl/ktlBytes.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "testMain.h"

#include <QtTest>

class tst_KtlDeviceBlocks : public QObject
{
    Q_OBJECT

private slots:
    void blocksAndRuns();
    void itemsWithoutAnOwner();
    void blocksWithoutAWholeHead_data();
    void blocksWithoutAWholeHead();
    void modulesOfABlock();
    void recordsOfSeveralItems();
    void textOfMoreInfo();
    void valuesByCommand_data();
    void valuesByCommand();
};

namespace {

QByteArray itemOf(std::uint32_t type, const QByteArray& content)
{
    return le32(type) + le32(static_cast<std::uint32_t>(8 + content.size())) + content;
}

QByteArray general(std::uint32_t productCode)
{
    return itemOf(40000, le32(1) + le32(productCode) + zeros(36));
}

QByteArray moduleOf(std::uint32_t ident)
{
    return itemOf(40013, le32(ident) + zeros(8));
}

/// Entries of a module PDO with so many records.
QByteArray moduleEntries(std::uint32_t type, int count)
{
    return itemOf(type, zeros(16) + le32(static_cast<std::uint32_t>(count)) + zeros(12 * count));
}

const QByteArray endItem = itemOf(0, le32(0));

std::vector<KtlDeviceBlock> blocksOf(const QByteArray& content)
{
    const std::vector<unsigned char> file(content.begin(), content.end());
    const KtlWalk walk = walkItems(file);
    std::vector<KtlDeviceBlock> blocks;
    for (const KtlBlockPlace& place : blockPlacesOf(walk))
        blocks.push_back(deviceBlockAt(walk, place));
    return blocks;
}

/// "bytes" of a complete access, or a minus sign for another command.
std::vector<struct_KTL_InitCmd> commandsOf(const QByteArray& dataBytes)
{
    std::vector<struct_KTL_InitCmd> commands;
    for (const QByteArray& word : dataBytes.split(' ')) {
        struct_KTL_InitCmd command{};
        command.bIfCA = word == "-" ? 0 : 1;
        command.DataBytes = word == "-" ? std::uint16_t(4) : word.toUShort();
        commands.push_back(command);
    }
    return commands;
}

} // namespace

void tst_KtlDeviceBlocks::blocksAndRuns()
{
    const std::vector<KtlDeviceBlock> blocks =
        blocksOf(general(5) + general(6) + endItem + endItem + general(7) + endItem);
    QCOMPARE(blocks.size(), std::size_t(3));
    QList<std::uint32_t> products;
    QList<std::size_t> runs;
    for (const KtlDeviceBlock& block : blocks) {
        products.append(block.general.m_iProduct_Code);
        runs.append(block.run);
    }
    QCOMPARE(products, (QList<std::uint32_t>{5, 6, 7}));
    QCOMPARE(runs, (QList<std::size_t>{1, 1, 3}));
}

/// Items before the first General and after an End item, and those of a module without one, belong to none.
void tst_KtlDeviceBlocks::itemsWithoutAnOwner()
{
    const QByteArray fmmu = itemOf(40014, le32(1) + zeros(8));
    const std::vector<KtlDeviceBlock> blocks =
        blocksOf(fmmu + general(5) + moduleEntries(40103, 1) + itemOf(40104, le32(0)) + endItem + fmmu + endItem);
    QCOMPARE(blocks.size(), std::size_t(1));
    QVERIFY(blocks[0].fmmus.empty());
    QVERIFY(blocks[0].modules.empty());
}

void tst_KtlDeviceBlocks::blocksWithoutAWholeHead_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<std::size_t>("count"); // of all blocks
    QTest::addColumn<std::size_t>("readable");
    const auto row = [](const char* name, const QByteArray& file, std::size_t count, std::size_t readable) {
        QTest::addRow("%s", name) << file << count << readable;
    };
    row("whole", general(5) + general(6) + endItem, 2, 2);
    row("the last one is cut", general(5) + general(6).chopped(1), 2, 1);
    row("the only one is cut", general(5).left(8), 1, 0);
    row("one is too short", general(5) + endItem + itemOf(40000, zeros(40)) + endItem + general(7) + endItem, 3, 1);
    row("longer than a General item is", itemOf(40000, zeros(48)) + endItem, 1, 1);
    row("none", endItem, 0, 0);
}

/// A General item has 52 bytes; nothing is read after one that has less.
void tst_KtlDeviceBlocks::blocksWithoutAWholeHead()
{
    QFETCH(QByteArray, file);
    const std::vector<unsigned char> bytes(file.begin(), file.end());
    const KtlWalk walk = walkItems(bytes);
    QTEST(blockPlacesOf(walk).size(), "count");
    const std::vector<KtlBlockPlace> readable = readableBlockPlacesOf(walk);
    QTEST(readable.size(), "readable");
    for (std::size_t place = 0; place < readable.size(); ++place)
        QCOMPARE(readable[place].first, blockPlacesOf(walk)[place].first);
}

void tst_KtlDeviceBlocks::modulesOfABlock()
{
    const std::vector<KtlDeviceBlock> blocks =
        blocksOf(general(5) + moduleOf(0x10) + moduleEntries(40103, 2) + moduleEntries(40102, 3) + moduleOf(0x11)
                 + itemOf(40104, le32(2) + zeros(32)) + general(6) + moduleOf(0x10) + endItem);
    QCOMPARE(blocks.size(), std::size_t(2));
    QCOMPARE(blocks[0].modules.size(), std::size_t(2));
    const KtlModule& first = blocks[0].modules[0];
    QCOMPARE(std::uint32_t{first.attributes.ModuleIdent}, 0x10U);
    QCOMPARE(first.pdos.size(), std::size_t(2));
    QVERIFY(!first.pdos[0].isInput && first.pdos[1].isInput);
    QCOMPARE(first.pdos[1].entries.size(), std::size_t(3));
    QCOMPARE(first.commands.size(), std::size_t(0));
    QCOMPARE(blocks[0].modules[1].commands.size(), std::size_t(2));
    QCOMPARE(blocks[1].modules.size(), std::size_t(1));
}

/// A second item of a list adds to the first; PDOs keep the order of the file.
void tst_KtlDeviceBlocks::recordsOfSeveralItems()
{
    const QByteArray sm = itemOf(40001, le32(1) + zeros(16));
    const QByteArray pdo = zeros(16) + le32(1) + zeros(20);
    const std::vector<KtlDeviceBlock> blocks =
        blocksOf(general(5) + sm + itemOf(40004, pdo) + itemOf(40003, pdo) + sm + endItem);
    QCOMPARE(blocks.at(0).syncManagers.size(), std::size_t(2));
    QCOMPARE(blocks[0].pdos.size(), std::size_t(2));
    QVERIFY(blocks[0].pdos[0].isInput && !blocks[0].pdos[1].isInput);
    QVERIFY(!blocks[0].deviceSlots.has_value() && !blocks[0].preset.has_value() && !blocks[0].moreInfo.has_value());
}

void tst_KtlDeviceBlocks::textOfMoreInfo()
{
    const std::vector<KtlDeviceBlock> blocks =
        blocksOf(general(5) + itemOf(40016, le32(20261121) + zeros(12) + "Dev\nMod" + zeros(1)) + endItem);
    QVERIFY(blocks.at(0).moreInfo.has_value());
    QCOMPARE(std::uint32_t{blocks[0].moreInfo->head.m_iDate}, 20261121U);
    QCOMPARE(QByteArray::fromStdString(blocks[0].moreInfo->text), QByteArray("Dev\nMod"));
}

void tst_KtlDeviceBlocks::valuesByCommand_data()
{
    QTest::addColumn<QByteArray>("dataBytes");
    QTest::addColumn<int>("values");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("no complete access") << QByteArray("- -") << 0 << QByteArray("|");
    QTest::addRow("one") << QByteArray("- 8 -") << 2 << QByteArray("|0 1|");
    QTest::addRow("two") << QByteArray("4 - 8") << 3 << QByteArray("0||1 2");
    QTest::addRow("one without values") << QByteArray("0 4") << 1 << QByteArray("|0");
    QTest::addRow("too few values") << QByteArray("4 8") << 2 << QByteArray("unknown");
    QTest::addRow("too many values") << QByteArray("4 8") << 4 << QByteArray("unknown");
    QTest::addRow("bytes that are no values") << QByteArray("6") << 1 << QByteArray("unknown");
    QTest::addRow("values without a complete access") << QByteArray("-") << 1 << QByteArray("unknown");
}

void tst_KtlDeviceBlocks::valuesByCommand()
{
    QFETCH(QByteArray, dataBytes);
    QFETCH(int, values);
    QFETCH(QByteArray, expected);
    std::vector<std::uint32_t> block;
    for (int value = 0; value < values; ++value)
        block.push_back(static_cast<std::uint32_t>(value));
    const auto lists = valuesOfCommands(commandsOf(dataBytes), block);
    QList<QByteArray> shown;
    for (const std::vector<std::uint32_t>& list : lists.value_or(std::vector<std::vector<std::uint32_t>>())) {
        QByteArray text;
        for (const std::uint32_t value : list)
            text += (text.isEmpty() ? "" : " ") + QByteArray::number(value);
        shown.append(text);
    }
    QCOMPARE(lists.has_value() ? shown.join('|') : QByteArray("unknown"), expected);
}

static const testMain::Registration<tst_KtlDeviceBlocks, QCoreApplication> registration;
#include "tst_KtlDeviceBlocks.moc"
