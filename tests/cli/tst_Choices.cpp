// `ktl convert --choices`: what each key does to the bytes.
#include "cli/choicesParts.h"
#include "testMain.h"

class tst_Choices : public QObject
{
    Q_OBJECT

private slots:
    static void deviceNames_data();
    static void deviceNames();
    static void deviceTypes_data();
    static void deviceTypes();
    static void driveAxes_data();
    static void driveAxes();
    static void operationModes_data();
    static void operationModes();
    static void moduleIndexes_data();
    static void moduleIndexes();
    static void links_data();
    static void links();
    static void moduleLinks();
    static void modules_data();
    static void modules();
    static void startupCommands_data();
    static void startupCommands();
    static void eoeCommand();
    static void manyCommands();
    static void severalDevices();
    static void devicesThatAreNotNamed();
    static void moduleListAdvice();
    static void standardInput();
    static void aboutIsPassedOver();
};

namespace {

/// The conversion of a sample with choices for its first device that have to be taken; errors are in the test's output.
Conversion taken(const QString& name, const QByteArray& members)
{
    const Conversion conversion = converted({sample(name + ".xml")}, choicesOfFirst(members));
    if (conversion.run.exitCode != 0)
        qWarning("exit %d: %s", conversion.run.exitCode, conversion.run.errors.constData());
    return conversion;
}

} // namespace

void tst_Choices::deviceNames_data()
{
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<QString>("typesAndAxes"); // of both devices of the file
    QTest::addRow("number") << QByteArray("2") << "0 0, 1 1";
    QTest::addRow("number as a text") << QByteArray("\"1\"") << "1 1, 0 0";
    QTest::addRow("name") << QByteArray("\"FB-0504M mixed I/O block with setpoint and 12 bit measurement\"")
                          << "0 0, 1 1";
    QTest::addRow("vendor and product") << QByteArray("\"0x7e570003:0x16160001\"") << "1 1, 0 0";
    QTest::addRow("with the revision") << QByteArray("\"0x7e570003:0x05040002:0x00020001\"") << "0 0, 1 1";
}

void tst_Choices::deviceNames()
{
    QFETCH(QByteArray, device);
    QFETCH(QString, typesAndAxes);
    const QByteArray choices = choicesWith("{\"device\": " + device + ", \"deviceType\": 1}");
    const Conversion conversion = converted({sample("io-block.xml")}, choices);
    QCOMPARE(conversion.run.errors, QByteArray());
    QCOMPARE(conversion.typesAndAxes(), typesAndAxes);
}

void tst_Choices::deviceTypes_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("typesAndAxes");
    QTest::addRow("block") << "servo-drive" << QByteArray("\"IOBlock\"") << "0 0";
    QTest::addRow("single drive stays as it is") << "servo-drive" << QByteArray("\"SingleDriver\"") << "1 1";
    QTest::addRow("multi-axis drive without slots") << "servo-drive" << QByteArray("\"MultiDriver\"") << "2 0";
    QTest::addRow("coupler") << "servo-drive" << QByteArray("\"PnpIOBlock\"") << "3 0";
    QTest::addRow("special device") << "servo-drive" << QByteArray("\"Special\"") << "4 0";
    QTest::addRow("preset coupler") << "servo-drive" << QByteArray("\"ManualIOBlock\"") << "5 0";
    QTest::addRow("number") << "servo-drive" << QByteArray("4") << "4 0";
    QTest::addRow("number as a text") << "servo-drive" << QByteArray("\"0x4\"") << "4 0";
    QTest::addRow("slots without groups count as axes") << "bus-coupler" << QByteArray("2") << "2 3";
    QTest::addRow("the own type keeps the axes") << "dual-axis-drive" << QByteArray("2") << "2 2";
}

void tst_Choices::deviceTypes()
{
    QFETCH(QString, sample);
    QFETCH(QByteArray, type);
    QFETCH(QString, typesAndAxes);
    QCOMPARE(taken(sample, "\"deviceType\": " + type).typesAndAxes(), typesAndAxes);
}

void tst_Choices::driveAxes_data()
{
    QTest::addColumn<QByteArray>("axes");
    QTest::addColumn<QString>("typesAndAxes");
    QTest::addRow("number") << QByteArray("3") << "2 3";
    QTest::addRow("hexadecimal") << QByteArray("\"#x12\"") << "2 18";
    QTest::addRow("none") << QByteArray("0") << "2 0";
    QTest::addRow("maximum") << QByteArray("65535") << "2 65535";
    QTest::addRow("as many as there are") << QByteArray("2") << "2 2";
    QTest::addRow("a whole number in another form") << QByteArray("3e0") << "2 3";
}

void tst_Choices::driveAxes()
{
    QFETCH(QByteArray, axes);
    QFETCH(QString, typesAndAxes);
    QCOMPARE(taken("dual-axis-drive", "\"driveAxes\": " + axes).typesAndAxes(), typesAndAxes);
}

void tst_Choices::operationModes_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QString>("words"); // assign-activate words of the modes
    QTest::addRow("first, as it is") << QByteArray("0") << "300 700 0";
    QTest::addRow("last") << QByteArray("2") << "0 700 300";
    QTest::addRow("name") << QByteArray("\"DcSync01\"") << "700 300 0";
    QTest::addRow("description") << QByteArray("\"DC, Sync0 with advanced Sync1\"") << "700 300 0";
}

void tst_Choices::operationModes()
{
    QFETCH(QByteArray, mode);
    QFETCH(QString, words);
    const std::vector<KtlItem> modes = taken("servo-drive", "\"dcMode\": " + mode).items(40002);
    QCOMPARE(modes.size(), std::size_t(1));
    QStringList written;
    for (int offset = 12; offset < modes[0].content.size(); offset += 28)
        written += QString::number(modes[0].u32(offset + 24), 16);
    QCOMPARE(written.join(' '), words);
}

void tst_Choices::moduleIndexes_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addRow("of a coupler") << QByteArray(R"("configIndex": "0xF030", "detectIndex": "#xF050")");
    QTest::addRow("of a special device") << QByteArray(R"("deviceType": "Special", "configIndex": 61488)");
}

/// They are no part of the exported items, so they are taken and change nothing.
void tst_Choices::moduleIndexes()
{
    QFETCH(QByteArray, members);
    const int cut = members.indexOf("\"configIndex\"");
    const QByteArray without = members.left(cut).trimmed().chopped(cut == 0 ? 0 : 1);
    const Conversion conversion = taken("bus-coupler", members);
    QVERIFY(!conversion.ktl.isEmpty());
    QCOMPARE(conversion.ktl, taken("bus-coupler", without).ktl);
}

void tst_Choices::links_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QString>("links");
    QTest::addRow("by rows") << QByteArray(R"("pdo": 0, "entry": 1, "link": "DOUT")") << "0 -2|0 0";
    QTest::addRow("by index and object") << QByteArray(R"("pdo": "0x1a00", "entry": "0x6000:2", "link": "DIN")")
                                         << "0 0|0 -1";
    QTest::addRow("with all checks") << QByteArray(R"("pdo": 1, "index": "#x1A00", "entry": 0, "object": "24576:1",
                                                     "name": "Inputs 1 to 8", "link": "AIN16")")
                                     << "0 0|-4 0";
    QTest::addRow("words of the window") << QByteArray(R"("pdo": 0, "entry": 1, "link": "AOUT32 Type")") << "0 -8|0 0";
    QTest::addRow("no link in the words of the window")
        << QByteArray(R"("pdo": 0, "entry": 1, "link": "NONE Type")") << "0 0|0 0";
    QTest::addRow("value") << QByteArray(R"("pdo": 1, "entry": 1, "link": -10)") << "0 0|0 -10";
    QTest::addRow("none") << QByteArray(R"("pdo": 1, "entry": 1, "link": "NONE")") << "0 0|0 0";
}

void tst_Choices::links()
{
    QFETCH(QByteArray, link);
    QFETCH(QString, links);
    QCOMPARE(taken("io-block", "\"links\": [{" + link + "}]").links().section('|', 0, 1), links);
}

/// Links of a module reach the file in the block of the module; a module that is put in brings them along.
void tst_Choices::moduleLinks()
{
    const QByteArray link = R"("moduleLinks": [{"module": "MB-AO04", "pdo": "0x1600", "entry": 1, "link": "AOUT16"}])";
    const auto linkOfBlock = [](const Conversion& conversion) {
        for (const KtlItem& item : conversion.items(40103))
            if (item.u32(24) == 4) // the only module with four outputs
                return static_cast<std::int32_t>(item.u32(28 + 12 + 8));
        return 1;
    };
    QCOMPARE(linkOfBlock(converted({sample("bus-coupler.xml")}, choicesOfFirst({}))), 0);
    QCOMPARE(linkOfBlock(taken("bus-coupler", link)), -7);
    const Conversion putIn =
        converted({sample("bus-coupler.xml")},
                  choicesOfFirst(R"("deviceType": "Special", "modules": [{"place": 2, "module": "0x404"}], )" + link));
    QCOMPARE(putIn.run.exitCode, 0);
    QCOMPARE(putIn.links().section('|', 1, 1), QStringLiteral("0 -7 0 0"));
}

void tst_Choices::modules_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("idents"); // of the first ones of 16 places; the others are empty
    QTest::addRow("ident") << QByteArray(R"({"place": 3, "module": "0x116"})") << "10 116 0 116";
    QTest::addRow("decimal ident") << QByteArray(R"({"place": 3, "module": 278})") << "10 116 0 116";
    QTest::addRow("type name") << QByteArray(R"({"place": 2, "module": "MB-AI04"})") << "10 116 304";
    QTest::addRow("name") << QByteArray(R"({"place": 2, "module": "MB-DI08 eight digital inputs"})") << "10 116 108";
    QTest::addRow("replaced") << QByteArray(R"({"place": 1, "module": "MB-DO16"})") << "10 216";
    QTest::addRow("taken out") << QByteArray(R"({"place": 0, "module": null})") << "0 116";
    QTest::addRow("empty place") << QByteArray(R"({"place": 5, "module": null})") << "10 116";
    QTest::addRow("several") << QByteArray(R"({"place": 0, "module": null}, {"place": 2, "module": "0x208"},
                                             {"place": 1, "module": "0x304"})")
                             << "0 304 208";
}

void tst_Choices::modules()
{
    QFETCH(QByteArray, modules);
    QFETCH(QString, idents);
    const Conversion conversion =
        converted({sample("bus-coupler.xml")},
                  choicesOfFirst("\"deviceType\": \"ManualIOBlock\", \"modules\": [" + modules + ']'));
    const std::vector<KtlItem> preset = conversion.items(40015);
    QCOMPARE(preset.size(), std::size_t(1));
    QStringList written;
    for (int offset = 16; offset < preset[0].content.size(); offset += 8)
        written += QString::number(preset[0].u32(offset), 16);
    QCOMPARE(written.join(' '), idents + QStringLiteral(" 0").repeated(16 - idents.count(' ') - 1));
}

void tst_Choices::startupCommands_data()
{
    const QString clearOutputs = "2 1c12:0 1 0";
    const QString clearInputs = "2 1c13:0 1 0";
    const QString assign = "2 1c13:1 2 6911"; // 0x1aff, the only PDO of the coupler itself
    const QString assigned = "2 1c13:0 1 1";
    QTest::addColumn<QByteArray>("startup");
    QTest::addColumn<QStringList>("commands");
    QTest::addRow("nothing") << QByteArray() << QStringList{clearOutputs, clearInputs, assign, assigned};
    QTest::addRow("one value changed") << QByteArray(R"("changed": [{"row": 0, "data": 255}])")
                                       << QStringList{"2 1c12:0 1 255", clearInputs, assign, assigned};
    QTest::addRow("all values changed") << QByteArray(
        R"("changed": [{"row": 1, "was": {"index": "0x1c13", "subIndex": 0,
                          "comment": "clear pdo 0x1c13 entry"},
                          "index": "0x2010", "subIndex": 255, "dataBytes": 4, "data": 4294967295}])")
                                        << QStringList{clearOutputs, "2 2010:255 4 4294967295", assign, assigned};
    QTest::addRow("command of the module list") << QByteArray(R"("changed": [{"row": 2, "data": "#x1A00"}])")
                                                << QStringList{clearOutputs, clearInputs, "2 1c13:1 2 6656", assigned};
    QTest::addRow("removed") << QByteArray(R"("removed": [{"row": 0}, {"row": 2, "was": {"subIndex": 1}}])")
                             << QStringList{clearInputs, assigned};
    QTest::addRow("added") << QByteArray(R"("added": [{"behind": 0, "index": "0xf030", "subIndex": 1, "dataBytes": 4,
                                             "data": 16}])")
                           << QStringList{clearOutputs, "2 f030:1 4 16", clearInputs, assign, assigned};
    QTest::addRow("a sub-index that is not given is 0")
        << QByteArray(R"("added": [{"behind": 3, "index": 8192, "dataBytes": 1, "data": 255}])")
        << QStringList{clearOutputs, clearInputs, assign, assigned, "2 2000:0 1 255"};
    QTest::addRow("no data at all") << QByteArray(R"("added": [{"behind": 3, "index": 1, "dataBytes": 0, "data": 0}])")
                                    << QStringList{clearOutputs, clearInputs, assign, assigned, "2 1:0 0 0"};
    QTest::addRow("several after one row keep their order")
        << QByteArray(R"("added": [{"behind": 1, "index": 1, "dataBytes": 2, "data": 11},
                                   {"behind": 0, "index": 2, "dataBytes": 2, "data": 12},
                                   {"behind": 1, "index": 3, "dataBytes": 2, "data": 13}])")
        << QStringList{clearOutputs, "2 2:0 2 12", clearInputs, "2 1:0 2 11", "2 3:0 2 13", assign, assigned};
    QTest::addRow("rows are counted before all changes")
        << QByteArray(R"("removed": [{"row": 0}, {"row": 1}], "changed": [{"row": 3, "data": 9}],
                         "added": [{"behind": 1, "index": 1, "dataBytes": 1, "data": 5}])")
        << QStringList{"2 1:0 1 5", assign, "2 1c13:0 1 9"};
}

void tst_Choices::startupCommands()
{
    QFETCH(QByteArray, startup);
    QFETCH(QStringList, commands);
    QCOMPARE(taken("bus-coupler", "\"startup\": {" + startup + '}').commands(), commands);
}

/// The EoE command is between the lists of the device and of its modules.
void tst_Choices::eoeCommand()
{
    const Conversion conversion = taken("servo-drive", R"("startup": {"changed": [{"row": 37, "dataBytes": 4,
                                                          "data": 65536}], "added": [{"behind": 37, "index": 7,
                                                          "dataBytes": 1, "data": 8}]})");
    const std::vector<KtlItem> eoe = conversion.items(40005);
    QCOMPARE(eoe.size(), std::size_t(1));
    QCOMPARE(eoe[0].content.size(), 12 + 2 * 12);
    QCOMPARE(eoe[0].u16(12 + 6), 4U);
    QCOMPARE(eoe[0].u32(12 + 8), 65536U);
    QCOMPARE(eoe[0].u16(24 + 2), 7U);
}

/// More commands than rows have numbers: all of them are added after the row, in their order.
void tst_Choices::manyCommands()
{
    constexpr int count = 70000;
    QByteArrayList added;
    for (int number = 0; number < count; ++number)
        added += R"({"behind": 0, "index": 8192, "dataBytes": 4, "data": )" + QByteArray::number(number) + '}';
    const QStringList commands = taken("bus-coupler", R"("startup": {"added": [)" + added.join(',') + "]}").commands();
    QCOMPARE(commands.size(), count + 4);
    QCOMPARE(commands.at(0), QStringLiteral("2 1c12:0 1 0"));
    QCOMPARE(commands.at(1), QStringLiteral("2 2000:0 4 0"));
    QCOMPARE(commands.at(count), QStringLiteral("2 2000:0 4 69999"));
    QCOMPARE(commands.at(count + 1), QStringLiteral("2 1c13:0 1 0"));
}

void tst_Choices::severalDevices()
{
    const QStringList files{sample("servo-drive.xml"), sample("oversampling-terminal.xml"), sample("io-block.xml")};
    const Conversion conversion = converted(files, choicesWith(R"({"device": 5, "deviceType": 4},
        {"device": 1, "deviceType": 2, "driveAxes": 6}, {"device": 2, "deviceType": 1})"));
    QCOMPARE(messagesOf(conversion).size(), 1); // the drive declares a value that an export does not carry
    QVERIFY(conversion.run.errors.endsWith("[startup-data]\n"));
    QCOMPARE(conversion.typesAndAxes(), QStringLiteral("2 6, 1 1, 0 0, 0 0, 4 0"));
}

namespace {

/// Lengths of the sync managers for outputs and inputs.
QList<std::uint32_t> lengthsOf(const Conversion& conversion)
{
    const std::vector<KtlItem> channels = conversion.items(40001);
    return channels.empty() ? QList<std::uint32_t>()
                            : QList<std::uint32_t>{channels[0].u16(12 + 2 * 16 + 6), channels[0].u16(12 + 3 * 16 + 6)};
}

} // namespace

/// A device that is named counts as selected: the PDOs of its modules count for the sync managers. One that is not
/// named is written as it was loaded.
void tst_Choices::devicesThatAreNotNamed()
{
    const QStringList file{sample("dual-axis-drive.xml")};
    const Conversion untouched = converted(file);
    QCOMPARE(lengthsOf(untouched), (QList<std::uint32_t>{0, 4}));
    QCOMPARE(converted(file, choicesWith("")).ktl, untouched.ktl);
    QCOMPARE(lengthsOf(converted(file, choicesOfFirst(""))), (QList<std::uint32_t>{16, 20}));
}

/// Where the window gives its advice on the list of modules.
void tst_Choices::moduleListAdvice()
{
    const QString coupler = sample("bus-coupler.xml");
    const QByteArray warning = coupler.toUtf8()
                               + ": warning: device 1 \"MB-C100 bus coupler for 16 modules\" "
                                 "(0x7e570002:0x5001:0x30001): its list of modules (object 0xF030) can be written, the "
                                 "type PnpIOBlock is advised [module-list]\n";
    QCOMPARE(converted({coupler}, choicesOfFirst("\"deviceType\": 5")).run.errors, warning);
    const QByteArray putIn = "\"modules\": [{\"place\": 2, \"module\": 264}, {\"place\": 3, \"module\": 264}]";
    QCOMPARE(converted({coupler}, choicesOfFirst("\"deviceType\": 5, " + putIn)).run.errors, warning); // told once
    QCOMPARE(converted({coupler}, choicesOfFirst("\"deviceType\": 4, " + putIn)).run.errors, warning);
    const QByteArray kept = "\"modules\": [{\"place\": 1, \"module\": 278}, {\"place\": 2, \"module\": null}]";
    QCOMPARE(converted({coupler}, choicesOfFirst("\"deviceType\": 4, " + kept)).run.errors, QByteArray());
}

void tst_Choices::standardInput()
{
    const Workplace place;
    CommandStart start;
    start.input = choicesOfFirst("\"deviceType\": 2");
    const QString ktl = place.path("out.ktl");
    const CommandRun run = runKtl({"convert", sample("io-block.xml"), "-o", ktl, "--choices", "-"}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(numberAt(contentOf(ktl), 24, 2), 2U); // the General item comes first
}

void tst_Choices::aboutIsPassedOver()
{
    const QByteArray about = R"("about": {"deviceType": 7, "any": [1, {"thing": null}]}, )";
    const QByteArray choices = "\xEF\xBB\xBF{" + about + R"("format": "kinetra-choices", "version": 1, "devices": [{)"
                               + about + R"("device": 1, "deviceType": "Special", "modules": [{)" + about
                               + R"("place": 0, "module": null}],
             "links": [{)" + about
                               + R"("pdo": 0, "entry": 0, "link": "DIN"}], "startup": {)" + about + R"("changed": [{)"
                               + about + R"("row": 0, "was": {)" + about + R"("subIndex": 0}, "data": 3}]}}]})";
    const Conversion conversion = converted({sample("bus-coupler.xml")}, choices);
    QCOMPARE(conversion.run.errors, QByteArray());
    QCOMPARE(conversion.typesAndAxes(), QStringLiteral("4 0"));
    QCOMPARE(conversion.commands().value(0), QStringLiteral("2 1c12:0 1 3"));
}

static const testMain::Registration<tst_Choices, QCoreApplication> registration;
#include "tst_Choices.moc"
