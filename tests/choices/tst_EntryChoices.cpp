// Entries of PDOs that choices remove and add, and what does not fit.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/twinDevices.h"
#include "editing/pdoRows.h"
#include "model/pdoAccess.h"
#include "testMain.h"

class tst_EntryChoices : public QObject
{
    Q_OBJECT

private slots:
    static void made_data();
    static void made();
    static void addedEntriesAreEmpty();
    static void afterLinksInTheSameCounting();
    static void entriesOfModules();
    static void nothingIsMadeOfWrongOnes();
    static void manyEntries();
    static void thatDoNotFit_data();
    static void thatDoNotFit();
    static void twins();
};

namespace {

/// The sub-indexes of the entries of each PDO, with the link of those that have one: "1 2:-1|0:-4".
QString entriesOfDevice(const struct_EtherCatDevice& device)
{
    QStringList texts;
    forEachPdoList(device, [&](const auto& pdos, PdoDirection) {
        for (const auto& pdo : pdos) {
            QStringList entries;
            for (const auto& entry : entriesOf(pdo))
                entries += QString::number(entry.SubIndex)
                           + (entry.Linkto == 0 ? QString() : ':' + QString::number(entry.Linkto));
            texts += entries.join(' ');
        }
    });
    return texts.join('|');
}

QByteArray entries(const QByteArray& removed, const QByteArray& added = {})
{
    return "\"entries\": {\"removed\": [" + removed + "], \"added\": [" + added + "]}";
}

} // namespace

void tst_EntryChoices::made_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("entries");
    QTest::addRow("nothing") << entries({}) << "1 2|1 2";
    QTest::addRow("removed by position") << entries(R"({"pdo": 0, "entry": 0})") << "2|1 2";
    QTest::addRow("removed by object") << entries(R"({"pdo": "0x1a00", "entry": "0x6000:2"})") << "1 2|1";
    QTest::addRow("all of a PDO") << entries(R"({"pdo": 1, "entry": 1}, {"pdo": 1, "entry": 0})") << "1 2|";
    QTest::addRow("with its checks") << entries(
        R"({"pdo": 0, "index": "0x1600", "entry": 0, "object": "0x7000:1", "name": "Outputs 1 to 8"})")
                                     << "2|1 2";
    QTest::addRow("added behind the first") << entries({}, R"({"pdo": 0, "behind": 0})") << "1 0 2|1 2";
    QTest::addRow("added behind the last with a link")
        << entries({}, R"({"pdo": 1, "behind": "0x6000:2", "link": "AIN16"})") << "1 2|1 2 0:-4";
    QTest::addRow("several behind one keep their order") << entries({}, R"({"pdo": 0, "behind": 0, "link": -2},
        {"pdo": 0, "behind": 1, "link": -9}, {"pdo": 0, "behind": 0, "link": -7})")
                                                         << "1 0:-2 0:-7 2 0:-9|1 2";
    QTest::addRow("behind one that is removed")
        << entries(R"({"pdo": 0, "entry": 1})", R"({"pdo": 0, "behind": 1, "link": -8})") << "1 0:-8|1 2";
    QTest::addRow("all positions count before the first change")
        << entries(R"({"pdo": 0, "entry": 0})", R"({"pdo": 0, "behind": 1, "object": "0x7000:2"})") << "2 0|1 2";
}

/// The first device of the sample has a PDO of outputs and one of inputs, with two entries each.
void tst_EntryChoices::made()
{
    QFETCH(QByteArray, members);
    const AppliedChoices result = applied(loadedSample("io-block"), choicesOfFirst(members));
    QCOMPARE(result.problems, QStringList());
    QTEST(entriesOfDevice(result.files.at(0).device.at(0)), "entries");
}

void tst_EntryChoices::addedEntriesAreEmpty()
{
    const AppliedChoices result =
        applied(loadedSample("io-block"), choicesOfFirst(entries({}, R"({"pdo": 0, "behind": 0})")));
    const struct_PDOList& pdo = result.files.at(0).device.at(0).RxPdo.vpdo.at(0);
    const struct_EntryPDOContent& added = pdo.Entry.vPdo_c.at(1);
    QCOMPARE(int(added.Index), 0);
    QCOMPARE(added.Bitlen, 0);
    QCOMPARE(added.Linkto, 0);
    QCOMPARE(added.Offs, 0.0F);
    QVERIFY(added.Name.empty() && added.DataType.empty());
    QCOMPARE(pdo.Size, 2.0F); // as it was
    QCOMPARE(pdo.Entry.vPdo_c.at(2).Offs, 1.0F);
}

void tst_EntryChoices::afterLinksInTheSameCounting()
{
    const QByteArray members =
        entries(R"({"pdo": 0, "entry": 0})") + R"(, "links": [{"pdo": 0, "entry": 1, "link": "DOUT"}])";
    const AppliedChoices result = applied(loadedSample("io-block"), choicesOfFirst(members));
    QCOMPARE(result.problems, QStringList());
    QCOMPARE(entriesOfDevice(result.files.at(0).device.at(0)), QStringLiteral("2:-2|1 2"));
}

/// PDOs that modules bring in stand behind those of the device, outputs first.
void tst_EntryChoices::entriesOfModules()
{
    const QByteArray modules = R"("deviceType": 4, "modules": [{"place": 0, "module": null},
        {"place": 1, "module": null}, {"place": 2, "module": "MB-AI04"}, {"place": 3, "module": "MB-AO04"}])";
    const AppliedChoices before = applied(loadedSample("bus-coupler"), choicesOfFirst(modules));
    QCOMPARE(before.problems, QStringList());
    const QString ofCoupler = entriesOfDevice(before.files.at(0).device.at(0)).section('|', 0, 0);
    QCOMPARE(entriesOfDevice(before.files.at(0).device.at(0)), ofCoupler + "|1 2 3 4|1 2 3 4");
    const AppliedChoices after =
        applied(loadedSample("bus-coupler"),
                choicesOfFirst(modules + ", "
                               + entries(R"({"pdo": 1, "entry": 3}, {"pdo": 2, "entry": 0})",
                                         R"({"pdo": 1, "behind": 3, "link": "AOUT16"}, {"pdo": 2, "behind": 1})")));
    QCOMPARE(after.problems, QStringList());
    QCOMPARE(entriesOfDevice(after.files.at(0).device.at(0)), ofCoupler + "|1 2 3 0:-7|2 0 3 4");
}

void tst_EntryChoices::nothingIsMadeOfWrongOnes()
{
    const AppliedChoices result =
        applied(loadedSample("io-block"), choicesOfFirst(entries(R"({"pdo": 0, "entry": 0}, {"pdo": 0, "entry": 2})")));
    QCOMPARE(result.problems.size(), 1);
    QCOMPARE(entriesOfDevice(result.files.at(0).device.at(0)), QStringLiteral("1 2|1 2"));
}

/// A list is made again once, however many entries are added to it.
void tst_EntryChoices::manyEntries()
{
    constexpr int count = 30000;
    QByteArrayList added;
    for (int number = 0; number < count; ++number)
        added += R"({"pdo": 0, "behind": 0})";
    const AppliedChoices result = applied(loadedSample("io-block"), choicesOfFirst(entries({}, added.join(','))));
    QCOMPARE(result.problems, QStringList());
    QCOMPARE(result.files.at(0).device.at(0).RxPdo.vpdo.at(0).Entry.vPdo_c.size(), std::size_t(count + 2));
}

void tst_EntryChoices::thatDoNotFit_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message");
    QTest::addRow("PDO row") << entries(R"({"pdo": 2, "entry": 0})")
                             << "removed[0].pdo: there is no PDO 2, the list has 2 [row]";
    QTest::addRow("PDO index") << entries({}, R"({"pdo": "0x1601", "behind": 0})")
                               << "added[0].pdo: there is no PDO 0x1601 [link]";
    QTest::addRow("entry position") << entries(R"({"pdo": 0, "entry": 2})")
                                    << "removed[0].entry: there is no entry 2, the PDO has 2 [link]";
    QTest::addRow("position to add behind")
        << entries({}, R"({"pdo": 0, "behind": 2})") << "added[0].behind: there is no entry 2, the PDO has 2 [link]";
    QTest::addRow("entry object") << entries(R"({"pdo": 0, "entry": "0x7000:3"})")
                                  << "removed[0].entry: the PDO has no entry 0x7000:3 [link]";
    QTest::addRow("removed twice") << entries(R"({"pdo": 0, "entry": 0}, {"pdo": "0x1600", "entry": "0x7000:1"})")
                                   << "removed[1]: this entry is removed twice [link]";
    QTest::addRow("another PDO is there") << entries(R"({"pdo": 0, "index": "0x1601", "entry": 0})")
                                          << "removed[0].index: 0x1600 stands there, not 0x1601 [check]";
    QTest::addRow("another object is there") << entries({}, R"({"pdo": 0, "behind": 0, "object": "0x7000:2"})")
                                             << "added[0].object: 0x7000:1 stands there, not 0x7000:2 [check]";
    QTest::addRow("another name is there") << entries({}, R"({"pdo": 0, "behind": 0, "name": "Reset"})")
                                           << "added[0].name: \"Outputs 1 to 8\" stands there, not \"Reset\" [check]";
    QTest::addRow("input link of an output")
        << entries({}, R"({"pdo": 0, "behind": 0, "link": "DIN"})")
        << "added[0].link: \"DIN\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT) [link]";
}

void tst_EntryChoices::thatDoNotFit()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedSample("io-block"), choicesOfFirst(members)).problems,
             QStringList{"devices[0].entries." + message});
}

void tst_EntryChoices::twins()
{
    const QByteArray members = entries(R"({"pdo": "0x1600", "entry": 0})", R"({"pdo": 0, "behind": "0x7000:1"})");
    QCOMPARE(applied(loadedText(twinsEsi()), choicesOfFirst(members)).problems,
             (QStringList{"devices[0].entries.removed[0].pdo: 2 PDOs have the index 0x1600; their numbers tell them "
                          "apart [link]",
                          "devices[0].entries.added[0].behind: the PDO has 2 entries 0x7000:1; their numbers tell them "
                          "apart [link]"}));
}

static const testMain::Registration<tst_EntryChoices, testMain::NoApplication> registration;
#include "tst_EntryChoices.moc"
