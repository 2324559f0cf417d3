// Runs of a KTL file, their places, and the time that they show.
#include "ktl/ktlExport.h"
#include "retrace/exportedRun.h"
#include "retrace/retracedRuns.h"
#include "system/cStreams.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

constexpr std::size_t endSize = 12; // bytes of an End item

/// A run of all devices of a file, with its End item.
Bytes runOf(const struct_FilenameDevice& file, const QDateTime& time)
{
    os::MemoryFile written;
    std::vector<struct_FilenameDevice> files{file};
    int code = 0;
    const auto all = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    if (!writeDevices(written.stream(), files, all, &code, time))
        return {};
    written.finish();
    return {written.data(), written.data() + written.size()};
}

/// A run without a device.
Bytes emptyRun()
{
    return runOf({}, exportTime());
}

Bytes joined(const std::vector<Bytes>& runs)
{
    Bytes bytes;
    for (const Bytes& run : runs)
        bytes.insert(bytes.end(), run.begin(), run.end());
    return bytes;
}

/// A file whose export shows no time, since it has no modules.
struct_FilenameDevice fileWithoutTime(std::vector<struct_EtherCatDevice> devices)
{
    struct_FilenameDevice file = fileWith({}, std::move(devices));
    file.vcommentmodule.clear();
    return file;
}

retrace::ExportedRun runAt(const Bytes& bytes, std::size_t number)
{
    return retrace::exportedRunAt(bytes, walkItems(bytes), number);
}

/// A block that shows a time, as the file has it.
retrace::ExportedBlock blockAt(std::uint32_t date, std::uint32_t time)
{
    KtlMoreInfo info;
    info.head.m_iDate = date;
    info.head.m_iTime = time;
    retrace::ExportedBlock block;
    block.content.moreInfo = info;
    return block;
}

} // namespace

Q_DECLARE_METATYPE(Bytes)
Q_DECLARE_METATYPE(std::vector<int>)
Q_DECLARE_METATYPE(std::vector<std::size_t>)

class tst_ExportedRun : public QObject
{
    Q_OBJECT

private slots:
    static void runs_data();
    static void runs();
    static void places();
    static void lastRunWithoutEnd();
    static void blocks();
    static void timeOfABlock_data();
    static void timeOfABlock();
    static void timeOfARun_data();
    static void timeOfARun();
    static void noTime();
};

void tst_ExportedRun::runs_data()
{
    QTest::addColumn<Bytes>("bytes");
    QTest::addColumn<std::vector<std::size_t>>("expected");
    const Bytes one = runOf(fileWith({}, {deviceOf(1, 1, "A")}), exportTime());
    const Bytes two = runOf(fileWith({}, {deviceOf(1, 1, "A"), deviceOf(2, 1, "B")}), exportTime());
    using Numbers = std::vector<std::size_t>;
    QTest::addRow("no bytes") << Bytes() << Numbers();
    QTest::addRow("one run") << one << Numbers{1};
    QTest::addRow("a run of two devices counts once") << two << Numbers{1};
    QTest::addRow("two runs") << joined({two, one}) << Numbers{1, 2};
    QTest::addRow("a run without a device") << emptyRun() << Numbers();
    QTest::addRow("runs without a device count too") << joined({emptyRun(), one, emptyRun(), two}) << Numbers{2, 4};
}

void tst_ExportedRun::runs()
{
    QFETCH(Bytes, bytes);
    QTEST(retrace::runsWithDevices(walkItems(bytes)), "expected");
}

void tst_ExportedRun::places()
{
    const Bytes one = runOf(fileWith({}, {deviceOf(1, 1, "A")}), exportTime());
    const Bytes two = runOf(fileWith({}, {deviceOf(1, 1, "A"), deviceOf(2, 1, "B")}), exportTime());
    const Bytes bytes = joined({two, emptyRun(), one});
    const retrace::ExportedRun first = runAt(bytes, 1);
    QCOMPARE(first.first, std::size_t{0});
    QCOMPARE(first.end, two.size());
    QCOMPARE(first.firstDevice, std::size_t{0});
    QCOMPARE(first.blocks.size(), std::size_t{2});
    const retrace::ExportedRun last = runAt(bytes, 3);
    QCOMPARE(last.first, two.size() + endSize);
    QCOMPARE(last.end, bytes.size());
    QCOMPARE(last.firstDevice, std::size_t{2});
    QCOMPARE(last.blocks.size(), std::size_t{1});
}

/// It ends where the items end.
void tst_ExportedRun::lastRunWithoutEnd()
{
    const Bytes one = runOf(fileWith({}, {deviceOf(1, 1, "A")}), exportTime());
    Bytes bytes = joined({one, one});
    bytes.resize(bytes.size() - endSize);
    const retrace::ExportedRun run = runAt(bytes, 2);
    QCOMPARE(run.first, one.size());
    QCOMPARE(run.end, bytes.size());
    QCOMPARE(run.blocks.size(), std::size_t{1});
    QCOMPARE(run.blocks[0].bytes.size(), one.size() - endSize);
}

/// Each has the bytes of its device and nothing of the End item.
void tst_ExportedRun::blocks()
{
    const struct_FilenameDevice file = fileWith({}, {deviceOf(1, 1, "A"), deviceOf(2, 1, "B")});
    const Bytes before = runOf(file, QDateTime(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC));
    const retrace::ExportedRun run = runAt(joined({before, runOf(file, exportTime())}), 2);
    QCOMPARE(run.blocks.size(), std::size_t{2});
    for (std::size_t place = 0; place < 2; ++place) {
        QVERIFY(run.blocks[place].bytes == exportOf(file.device[place], file).bytes);
        QCOMPARE(quint32{run.blocks[place].content.general.m_iProduct_Code}, static_cast<quint32>(place + 1));
        QCOMPARE(run.blocks[place].exportTime, exportTime());
    }
}

void tst_ExportedRun::timeOfABlock_data()
{
    QTest::addColumn<quint32>("date");
    QTest::addColumn<quint32>("time");
    QTest::addColumn<QString>("expected"); // empty if it shows none
    QTest::addRow("time") << 20260102U << 30405U << "2026-01-02 03:04:05";
    QTest::addRow("first second of a day") << 20260102U << 0U << "2026-01-02 00:00:00";
    QTest::addRow("last second of a day") << 20261231U << 235959U << "2026-12-31 23:59:59";
    QTest::addRow("an hour that some clocks leave out") << 20260329U << 23000U << "2026-03-29 02:30:00";
    QTest::addRow("leap day") << 20240229U << 0U << "2024-02-29 00:00:00";
    QTest::addRow("no such day") << 20260229U << 0U << "";
    QTest::addRow("no such month") << 20261301U << 0U << "";
    QTest::addRow("no such hour") << 20260102U << 240000U << "";
    QTest::addRow("no such minute") << 20260102U << 6000U << "";
    QTest::addRow("no such second") << 20260102U << 60U << "";
    QTest::addRow("no date") << 0U << 30405U << "";
    QTest::addRow("the first year of four digits") << 10000101U << 0U << "1000-01-01 00:00:00";
    QTest::addRow("a year of three digits") << 9991231U << 0U << "";
    QTest::addRow("the last year of four digits") << 99991231U << 235959U << "9999-12-31 23:59:59";
    QTest::addRow("a year of five digits") << 100000101U << 0U << "";
    QTest::addRow("a year of six digits") << 2621440101U << 0U << "";
    QTest::addRow("greatest numbers") << 0xFFFFFFFFU << 0xFFFFFFFFU << "";
}

void tst_ExportedRun::timeOfABlock()
{
    QFETCH(quint32, date);
    QFETCH(quint32, time);
    QFETCH(QString, expected);
    // Date and time are in the head of the last item, 8 bytes after its start.
    Bytes bytes = runOf(fileWith({}, {deviceOf(1, 1, "A")}), exportTime());
    const KtlWalk walk = walkItems(bytes);
    const auto info = std::find_if(walk.items.begin(), walk.items.end(),
                                   [](const KtlFileItem& item) { return item.type == KTL_ITEM_DeviceMoreInfo; });
    QVERIFY(info != walk.items.end());
    std::memcpy(bytes.data() + info->offset + 8, &date, sizeof date);
    std::memcpy(bytes.data() + info->offset + 12, &time, sizeof time);
    const retrace::ExportedRun read = runAt(bytes, 1);
    QVERIFY(read.blocks.at(0).exportTime.isValid());
    QCOMPARE(retrace::showsTime(read), !expected.isEmpty());
    if (!expected.isEmpty())
        QCOMPARE(retrace::exportTimeOf(read).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")), expected);
}

void tst_ExportedRun::timeOfARun_data()
{
    QTest::addColumn<std::vector<int>>("days"); // of each device; -1 for a device without a time, 0 for no such day
    QTest::addColumn<int>("expected"); // the day; 0 if the run shows none
    QTest::addColumn<bool>("isOne");
    QTest::addRow("no devices") << std::vector<int>{} << 0 << true;
    QTest::addRow("one") << std::vector<int>{3} << 3 << true;
    QTest::addRow("all the same") << std::vector<int>{3, 3} << 3 << true;
    QTest::addRow("two times") << std::vector<int>{3, 4} << 3 << false;
    QTest::addRow("devices without a time do not count") << std::vector<int>{-1, 4, -1} << 4 << true;
    QTest::addRow("no device has one") << std::vector<int>{-1, -1} << 0 << true;
    QTest::addRow("the first is no time") << std::vector<int>{0, 4} << 4 << false;
}

void tst_ExportedRun::timeOfARun()
{
    QFETCH(std::vector<int>, days);
    QFETCH(int, expected);
    QFETCH(bool, isOne);
    retrace::ExportedRun run;
    for (const int day : days) {
        retrace::ExportedBlock block = blockAt(20260100U + static_cast<std::uint32_t>(std::max(day, 0)), 0);
        if (day < 0)
            block.content.moreInfo.reset();
        block.exportTime = QDateTime(QDate(2026, 1, std::max(day, 1)), QTime(0, 0), Qt::UTC);
        run.blocks.push_back(block);
    }
    QCOMPARE(retrace::showsTime(run), expected != 0);
    QCOMPARE(retrace::hasOneTime(run), isOne);
    if (expected != 0)
        QCOMPARE(retrace::exportTimeOf(run).date(), QDate(2026, 1, expected));
    QVERIFY(retrace::exportTimeOf(run).isValid());
}

/// The export of a file without modules shows no time, so that any will do.
void tst_ExportedRun::noTime()
{
    const struct_FilenameDevice file = fileWithoutTime({deviceOf(1, 1, "A")});
    const retrace::ExportedRun run = runAt(runOf(file, exportTime()), 1);
    QVERIFY(!retrace::showsTime(run));
    QVERIFY(retrace::hasOneTime(run));
    struct_EtherCatDevice device = file.device[0];
    struct_FilenameDevice again = file;
    QVERIFY(deviceBytesOf(device, again, run.blocks.at(0).exportTime) == run.blocks[0].bytes);
}

static const testMain::Registration<tst_ExportedRun, testMain::NoApplication> registration;
#include "tst_ExportedRun.moc"
