// `ktl choices --from`: what no choice makes is told with its places, and the choices that come nearest are written.
// Covers remainingDifferences.cpp.
#include "cli/tracedExport.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

class tst_ChoicesFromDifferences : public QObject
{
    Q_OBJECT

private slots:
    static void editedDescription_data();
    static void editedDescription();
    static void addedPdo();
    static void editedCoupler_data();
    static void editedCoupler();
    static void nearestRevision();
    static void otherOrder();
    static void deviceThatIsMissing();
    static void deviceThatIsThereOnce();
    static void bytesWithoutMeaning();
    static void severalTimes();
    static void timeThatThereIsNot();
};

namespace {

/// A sample with one place changed; empty if the place is not there.
QByteArray edited(const char* name, const QByteArray& before, const QByteArray& after)
{
    QByteArray esi = contentOf(sample(QString::fromLatin1(name) + QStringLiteral(".xml")));
    const int place = esi.indexOf(before);
    return place < 0 ? QByteArray() : esi.replace(place, before.size(), after);
}

/// Finds the choices of an export from a description in "a.xml".
CommandRun found(const QByteArray& esi, const QByteArray& ktl)
{
    const Workplace place;
    place.make(QStringLiteral("a.xml"), esi);
    return choicesFrom(place, {"a.xml"}, ktl);
}

/// The lines of messages, as far as they have the form of a warning that no choice makes something; else whole.
QStringList toldBy(const CommandRun& run)
{
    const QString head = QStringLiteral("m.ktl: warning: at ");
    const QString end = QStringLiteral(" [no-choice]");
    QStringList lines;
    for (const QString& line : QString::fromUtf8(run.errors).split('\n', Qt::SkipEmptyParts)) {
        const bool isWarning = line.startsWith(head) && line.endsWith(end);
        lines += isWarning ? line.mid(head.size()).chopped(end.size()) : line;
    }
    return lines;
}

QJsonArray devicesIn(const CommandRun& run)
{
    return QJsonDocument::fromJson(run.output).object().value("devices").toArray();
}

/// An export of the I/O blocks in which an output is linked.
QByteArray linkedExport()
{
    return exportOf({"io-block"}, choicesOfFirst(R"("links": [{"pdo": 0, "entry": 1, "link": "DOUT"}])"));
}

/// What is found for it as long as the entry is there.
const char* const foundLink = R"({"pdo": 0, "index": "0x1600", "entry": 1, "object": "0x7000:2", )"
                              R"("name": "Outputs 9 to 16", "link": "DOUT"})";

/// The first device, as the description and the export have it, in front of what differs.
const QString block = QStringLiteral("0x7e570003:0x16160001:0x10003 \"FB-1616D 16 digital outputs, 16 digital inputs\" "
                                     "-> 0x7e570003:0x16160001:0x10003: ");

} // namespace

void tst_ChoicesFromDifferences::editedDescription_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("told"); // with the offset in the export and the line in the description
    QTest::addColumn<bool>("keepsLink");
    QTest::addRow("another revision") << QByteArray("#x00010003") << QByteArray("#x00010004")
                                      << QStringList{"0x00: " + QString(block).replace(":0x10003 ", ":0x10004 ")
                                                     + "revision: 0x10004 -> 0x10003 (a.xml:18)"}
                                      << true;
    QTest::addRow("another start address")
        << QByteArray("#x0F00") << QByteArray("#x0F80")
        << QStringList{"0x5c: " + block + "sync manager 0, start address: 0xf80 -> 0xf00 (a.xml:24)"} << true;
    QTest::addRow("another vendor") << QByteArray("#x7E570003") << QByteArray("#x7E57000A")
                                    << QStringList{"0x00: no description has the device 0x7e570003:0x16160001:0x10003",
                                                   "0x120: no description has the device 0x7e570003:0x5040002:0x20001"}
                                    << false;
    QTest::addRow("a PDO that is not fixed")
        << QByteArray(R"(<RxPdo Fixed="1")") << QByteArray(R"(<RxPdo Fixed="0")")
        << QStringList{"0x7c: " + block + "RxPdo 0x1600 \"Digital outputs\", fixed: no -> yes (a.xml:26)"} << true;
    QTest::addRow("an entry of another length")
        << QByteArray("<BitLen>8</BitLen>\n            <Name>Outputs 9")
        << QByteArray("<BitLen>16</BitLen>\n            <Name>Outputs 9")
        << QStringList{"0x5c: " + block + "sync manager 0, length: 3 -> 2 (a.xml:24)",
                       "0x7c: " + block + "RxPdo 0x1600 \"Digital outputs\", length in bits: 24 -> 16 (a.xml:26)",
                       "0xac: " + block
                           + "RxPdo 0x1600 \"Digital outputs\", entry 0x7000:2 \"Outputs 9 to 16\", length in bits: "
                             "16 -> 8 (a.xml:36)",
                       "0x00: " + block + "outputs, sync manager 0, bytes of the process image: 3 -> 2 (a.xml:18)"}
        << true;
}

/// An export of the first device begins with its General item (52 bytes) and two FMMUs (28), then come two records of
/// sync managers at 0x5c and 0x6c, the outputs at 0x7c with entries at 0x98 and 0xac, and the inputs at 0xc0.
void tst_ChoicesFromDifferences::editedDescription()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(bool, keepsLink);
    const CommandRun run = found(edited("io-block", before, after), linkedExport());
    QTEST(toldBy(run), "told");
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output.contains(foundLink), keepsLink);
    QCOMPARE(devicesIn(run).size(), keepsLink ? 1 : 0);
}

/// The export is of a description with a PDO more, of a byte; the description that is given does not have it.
void tst_ChoicesFromDifferences::addedPdo()
{
    const Workplace place;
    const QByteArray more = edited("io-block", "</TxPdo>",
                                   "</TxPdo><TxPdo Sm=\"1\"><Index>#x1A01</Index><Name>More</Name><Entry><Index>#x6001"
                                   "</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry></TxPdo>");
    const QByteArray link = choicesOfFirst(R"("links": [{"pdo": 0, "entry": 1, "link": "DOUT"}])");
    const Conversion conversion = converted({place.make("more.xml", more)}, link);
    const CommandRun run = found(contentOf(sample()), conversion.ktl);
    QCOMPARE(toldBy(run),
             (QStringList{"0x6c: " + block + "sync manager 1, length: 2 -> 3 (a.xml:25)",
                          "0x104: " + block + "TxPdo 0x1a01 added",
                          "0x00: " + block + "inputs, sync manager 1, bytes of the process image: 2 -> 3 (a.xml:18)"}));
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.output.contains(foundLink));
}

void tst_ChoicesFromDifferences::editedCoupler_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("device"); // of the description
    QTest::addColumn<QString>("told"); // after the device
    const QString identity = QStringLiteral("0x7e570002:0x5001:0x30001");
    const QString name = QStringLiteral(" \"MB-C100 bus coupler for 16 modules\"");
    QTest::addRow("another name") << QByteArray("MB-C100 bus coupler") << QByteArray("Old")
                                  << identity + " \"Old for 16 modules\""
                                  << "name: \"Old for 16 modules\" -> \"MB-C100 bus coupler for 16 modules\"";
    QTest::addRow("another product of this name")
        << QByteArray("#x00005001") << QByteArray("#x00005002") << "0x7e570002:0x5002:0x30001" + name
        << "product code: 0x5002 -> 0x5001";
}

/// The device is the same all the same, and nothing is made up for it.
void tst_ChoicesFromDifferences::editedCoupler()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, device);
    QFETCH(QString, told);
    const CommandRun run = found(edited("bus-coupler", before, after), exportOf({"bus-coupler"}));
    QCOMPARE(toldBy(run),
             QStringList{"0x00: " + device + " -> 0x7e570002:0x5001:0x30001 \"MB-C100 bus coupler for 16 modules\": "
                         + told + " (a.xml:18)"});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(devicesIn(run), QJsonArray());
}

/// Of a product with other revisions the device with the nearest one is taken, and its choices fit as ever.
void tst_ChoicesFromDifferences::nearestRevision()
{
    const QByteArray device = "<Device><Type ProductCode=\"1\" RevisionNo=\"%\">T</Type><Name>D</Name>"
                              "<Sm StartAddress=\"#x1000\" ControlByte=\"#x24\" Enable=\"1\">Outputs</Sm>"
                              "<RxPdo Sm=\"0\"><Index>#x1600</Index><Entry><Index>#x7000</Index><BitLen>8</BitLen>"
                              "</Entry></RxPdo></Device>";
    const auto ofRevision = [&](const char* revision) { return QByteArray(device).replace("%", revision); };
    const Workplace place;
    const QByteArray choices = choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT"}])");
    const QByteArray ktl = converted({place.make("old.xml", esiWith(ofRevision("10")))}, choices).ktl;
    const CommandRun run = found(esiWith(ofRevision("4") + ofRevision("15") + ofRevision("17")), ktl);
    QCOMPARE(toldBy(run),
             QStringList{"0x00: 0x7e570009:0x1:0xf \"D\" -> 0x7e570009:0x1:0xa: revision: 0xf -> 0xa (a.xml:4)"});
    QCOMPARE(run.exitCode, 1);
    const QJsonObject choice = devicesIn(run).at(0).toObject();
    QCOMPARE(choice.value("device").toString(), QStringLiteral("0x7e570009:0x1:0xf"));
    QCOMPARE(choice.value("links").toArray().at(0).toObject().value("link").toString(), QStringLiteral("DOUT"));
}

/// Devices go out in the order of the files, so another one cannot be made.
void tst_ChoicesFromDifferences::otherOrder()
{
    const Workplace place;
    const QByteArray first = exportOf({"oversampling-terminal"});
    const QByteArray ktl = exportOf({"oversampling-terminal", "io-block"});
    const CommandRun run = choicesFrom(place, {sample(), sample("oversampling-terminal.xml")}, ktl);
    const auto at = [&](int offset, const char* device) {
        return QStringLiteral("0x%1: %2 is not written here: devices go out once, in the order of the descriptions; is "
                              "another order of the files meant?")
            .arg(QString::number(first.size() - 12 + offset, 16), device); // where the End item would be
    };
    QCOMPARE(toldBy(run),
             (QStringList{at(0, "0x7e570003:0x16160001:0x10003"), at(0x120, "0x7e570003:0x5040002:0x20001")}));
    QCOMPARE(run.exitCode, 1);
}

/// What is found for the others is written.
void tst_ChoicesFromDifferences::deviceThatIsMissing()
{
    const Workplace place;
    const QByteArray choices = choicesOfFirst(R"("links": [{"pdo": 0, "entry": 1, "link": "DOUT"}])");
    const CommandRun run = choicesFrom(place, {sample()}, exportOf({"io-block", "oversampling-terminal"}, choices));
    const QStringList told = toldBy(run);
    QCOMPARE(told.size(), 2);
    QVERIFY(told.at(0).endsWith(": no description has the device 0x7e570004:0x4020001:0x10001"));
    QVERIFY(told.at(1).endsWith(": no description has the device 0x7e570004:0x3020001:0x10002"));
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.output.contains(foundLink));
}

/// The export has the device twice, the descriptions have it once.
void tst_ChoicesFromDifferences::deviceThatIsThereOnce()
{
    const Workplace place;
    const QByteArray one = exportOf({"bus-coupler"});
    const QByteArray ktl = one.chopped(12) + one;
    const CommandRun run = choicesFrom(place, {sample("bus-coupler.xml")}, ktl);
    QCOMPARE(toldBy(run).size(), 1);
    const QString offset = QStringLiteral("0x%1: ").arg(one.size() - 12, 0, 16);
    QVERIFY2(toldBy(run).at(0).startsWith(
                 offset + "0x7e570002:0x5001:0x30001 \"MB-C100 bus coupler for 16 modules\" is not written here: "),
             run.errors.constData());
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(devicesIn(run), QJsonArray());
}

/// The last four bytes of the first FMMU, at 0x34 + 12 + 4, are reserved.
void tst_ChoicesFromDifferences::bytesWithoutMeaning()
{
    QByteArray ktl = linkedExport();
    QCOMPARE(ktl.mid(0x44, 4), QByteArray(4, '\0'));
    ktl[0x46] = 1;
    const CommandRun run = found(contentOf(sample()), ktl);
    QCOMPARE(toldBy(run), QStringList{"0x46: the first byte that an export with these choices does not have"});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.output.contains(foundLink));
}

/// Offset of the item with names and time of a device.
static int offsetOfTime(const QByteArray& ktl, int device)
{
    QString problem;
    int offset = 0;
    for (const KtlItem& item : itemsOf(ktl, &problem)) {
        if (item.type == 40016 && device-- == 0)
            return offset;
        offset += item.content.size();
    }
    return -1;
}

/// One export has one time.
void tst_ChoicesFromDifferences::severalTimes()
{
    const Workplace place;
    QByteArray ktl = exportOf({"bus-coupler", "dual-axis-drive"});
    const int item = offsetOfTime(ktl, 1);
    QCOMPARE(numberAt(ktl, item + 12, 4), 100000U); // 10:00:00
    ktl[item + 12] = static_cast<char>(ktl.at(item + 12) + 1);
    const CommandRun run = choicesFrom(place, {sample("bus-coupler.xml"), sample("dual-axis-drive.xml")}, ktl);
    QCOMPARE(toldBy(run),
             QStringList{"0x00: its devices show several times, or one that there is not; an export has one"});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.output.contains(R"("date":"2026-11-21T10:00:00Z")")); // that of the first device
    QCOMPARE(devicesIn(run), QJsonArray());
}

/// A date without a month is none.
void tst_ChoicesFromDifferences::timeThatThereIsNot()
{
    const Workplace place;
    QByteArray ktl = exportOf({"bus-coupler"});
    ktl.replace(offsetOfTime(ktl, 0) + 8, 4, QByteArray(4, '\0'));
    const CommandRun run = choicesFrom(place, {sample("bus-coupler.xml")}, ktl);
    QCOMPARE(toldBy(run),
             QStringList{"0x00: its devices show several times, or one that there is not; an export has one"});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(!run.output.contains("\"date\""));
    QCOMPARE(devicesIn(run), QJsonArray());
}

static const testMain::Registration<tst_ChoicesFromDifferences, QCoreApplication> registration;
#include "tst_ChoicesFromDifferences.moc"
