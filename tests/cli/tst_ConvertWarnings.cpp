// `ktl convert`: the warnings of the export, and what `--strict` makes of them.
// Covers itemLimit.cpp.
#include "cli/commandInProcess.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_ConvertWarnings : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void order();
    void strict_data();
    void strict();
    void ignore_data();
    void ignore();
    void choicesForNothing();
    void lostValues_data();
    void lostValues();
    void lostValuesOfEveryDevice();
    void lostValuesInTheTemplate();
    void itemCount_data();
    void itemCount();
    void itemCountAfterAppend_data();
    void itemCountAfterAppend();
    void sameInput_data();
    void sameInput();
};

static QByteArray deviceWith(const QByteArray& name, const QByteArray& content)
{
    return "<Device><Type>T</Type><Name>" + name + "</Name>" + content + "</Device>\n";
}

static QByteArray fiveSyncManagers()
{
    return QByteArray("<Sm>Outputs</Sm>").repeated(5);
}

/// A slot in a group takes the steps of groups, which the device declares apart from those of slots.
static QByteArray slotsWith(const QByteArray& groupStep)
{
    return "<Slots MaxSlotGroupCount=\"1\" SlotPdoIncrement=\"1\" SlotIndexIncrement=\"16\" " + groupStep
           + "><Slot MinInstances=\"1\" MaxInstances=\"1\" SlotGroup=\"0\"><Name>S</Name></Slot></Slots>";
}

void tst_ConvertWarnings::texts_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("warning");
    QTest::addRow("sync managers") << fiveSyncManagers()
                                   << QByteArray("5 sync managers, the controller handles 4 [sync-managers]");
    QTest::addRow("PDO increment") << slotsWith("SlotGroupPdoIncrement=\"2\"")
                                   << QByteArray("slots with another SlotPdoIncrement than the device, the controller "
                                                 "handles one [slot-pdo-increment]");
    QTest::addRow("index increment") << slotsWith("SlotGroupIndexIncrement=\"32\"")
                                     << QByteArray("slots with another SlotIndexIncrement than the device, the "
                                                   "controller handles one [slot-index-increment]");
    const QByteArray command = "<InitCmd><Transition>PS</Transition><Index>#x2000</Index><SubIndex>1</SubIndex>"
                               "<Data>01</Data></InitCmd>";
    QTest::addRow("startup commands") << "<Mailbox><CoE>" + command.repeated(255) + "</CoE></Mailbox>"
                                      << QByteArray("255 startup commands, more than 254 need firmware later than "
                                                    "20240929 [startup-commands]");
    QTest::addRow("more startup commands than a byte counts")
        << "<Mailbox><CoE>" + command.repeated(511) + "</CoE></Mailbox>"
        << QByteArray("511 startup commands, more than 254 need firmware later than 20240929 [startup-commands]");
}

/// On one line, with the device and the code; the files are written all the same.
void tst_ConvertWarnings::texts()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, warning);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("D", content)));
    const CommandRun run = runHere({"convert", "in.xml", "-o", "out.ktl"}, place.folder());
    QCOMPARE(run.errors, "in.xml: warning: device 1 \"D\" (0x7e570009:0x00:0x00): " + warning + '\n');
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))).size(), 1);
}

/// Device by device, in the order of the files; all warnings of a device before those of the next one.
void tst_ConvertWarnings::order()
{
    const Workplace place;
    place.make(QStringLiteral("b.xml"),
               esiWith(deviceWith("B1", fiveSyncManagers() + slotsWith("SlotGroupPdoIncrement=\"2\""))
                       + deviceWith("fine", "") + deviceWith("B2", fiveSyncManagers())));
    place.make(QStringLiteral("a.xml"), esiWith(deviceWith("A", fiveSyncManagers())));
    const CommandRun run = runHere({"convert", "b.xml", "a.xml", "-o", "out.ktl"}, place.folder());
    QStringList order; // file, number and name of the device, code
    for (const QString& line : QString::fromUtf8(run.errors).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        order += line.section(QLatin1Char(':'), 0, 0) + line.section(QStringLiteral("device"), 1, 1).section('(', 0, 0)
                 + line.section(QLatin1Char(' '), -1);
    QCOMPARE(order, (QStringList{"b.xml 1 \"B1\" [sync-managers]", "b.xml 1 \"B1\" [slot-pdo-increment]",
                                 "b.xml 3 \"B2\" [sync-managers]", "a.xml 4 \"A\" [sync-managers]"}));
}

void tst_ConvertWarnings::strict_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("exitCode");
    QTest::addRow("warnings") << fiveSyncManagers() << QStringList{"--strict"} << 1;
    QTest::addRow("no warnings") << QByteArray() << QStringList{"--strict"} << 0;
    QTest::addRow("warnings that nobody asks for") << fiveSyncManagers() << QStringList{} << 0;
    QTest::addRow("an error counts more") << fiveSyncManagers() << QStringList{"--strict", "gone.xml"} << 2;
}

/// With warnings alone the files are written.
void tst_ConvertWarnings::strict()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, options);
    QFETCH(int, exitCode);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("D", content)));
    const CommandRun run = runHere(QStringList{"convert", "in.xml", "-o", "out.ktl"} + options, place.folder());
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(QFile::exists(place.path(QStringLiteral("out.ktl"))), exitCode != 2);
    QCOMPARE(QFile::exists(place.path(QStringLiteral("out.ktl.txt"))), exitCode != 2);
}

void tst_ConvertWarnings::ignore_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("exitCode");
    QTest::addRow("the only warning") << QStringList{"--strict", "--ignore", "sync-managers"} << 0;
    QTest::addRow("another one") << QStringList{"--strict", "--ignore", "startup-data"} << 1;
    QTest::addRow("several") << QStringList{"--strict", "--ignore", "startup-data", "--ignore=sync-managers"} << 0;
    QTest::addRow("without strict") << QStringList{"--ignore", "startup-data"} << 0;
    QTest::addRow("no code") << QStringList{"--ignore", "sync-manager"} << 2;
    QTest::addRow("empty") << QStringList{"--ignore="} << 2;
}

/// What is ignored is shown all the same. A word that is no code is refused, with the codes that there are.
void tst_ConvertWarnings::ignore()
{
    QFETCH(QStringList, options);
    QFETCH(int, exitCode);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("D", fiveSyncManagers())));
    const CommandRun run = runHere(QStringList{"convert", "in.xml", "-o", "out.ktl"} + options, place.folder());
    QCOMPARE(run.exitCode, exitCode);
    if (exitCode == 2)
        QVERIFY2(run.errors.startsWith("ktl: error: \"") && run.errors.contains(" is no code of a warning; there are ")
                     && run.errors.contains(" sync-managers, "),
                 run.errors.constData());
    else
        QVERIFY2(run.errors.endsWith("[sync-managers]\n"), run.errors.constData());
}

/// A device that is chosen for and not written.
void tst_ConvertWarnings::choicesForNothing()
{
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("A", "") + deviceWith("B", "")));
    place.make(QStringLiteral("choices.json"), R"({"format": "kinetra-choices", "version": 1,
                                                   "devices": [{"device": "A"}, {"device": "B"}]})");
    const QStringList arguments{"convert", "in.xml", "-o", "out.ktl", "--choices", "choices.json", "--strict"};
    const CommandRun run = runHere(arguments + QStringList{"--device", "B"}, place.folder());
    QCOMPARE(run.errors,
             QByteArray("choices.json: warning: devices[0].device: device 1 \"A\" (0x7e570009:0x00:0x00) is "
                        "left out by --device [left-out]\n"));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(runHere(arguments + QStringList{"--force"}, place.folder()).exitCode, 0);
}

static QByteArray coeCommand(const QByteArray& data, const QByteArray& comment = {})
{
    return "<InitCmd><Transition>PS</Transition><Index>#x2F10</Index><SubIndex>3</SubIndex><Data>" + data
           + "</Data><Comment>" + comment + "</Comment></InitCmd>";
}

static QByteArray coeWith(const QByteArray& commands)
{
    return "<Mailbox><CoE>" + commands + "</CoE></Mailbox>";
}

void tst_ConvertWarnings::lostValues_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("told"); // what is lost; empty if nothing is
    const auto row = [](const char* name, const QByteArray& content, const QByteArray& told) {
        QTest::addRow("%s", name) << content << told;
    };
    row("four bytes", coeWith(coeCommand("01020304")), {});
    row("four zeros", coeWith(coeCommand("00000000")), {});
    row("four bytes and a mark that counts as one", coeWith(coeCommand("#x01020304")), {});
    row("four bytes and zeros after them", coeWith(coeCommand("010203040000")), {});
    row("five bytes", coeWith(coeCommand("0102030405", "Tag")),
        "1 of the device; the first is 0x2f10:3 \"Tag\", 5 bytes");
    row("no comment", coeWith(coeCommand("0102030405")), "1 of the device; the first is 0x2f10:3, 5 bytes");
    row("the first of several",
        coeWith(coeCommand("01") + coeCommand("010203040506", "A") + coeCommand("0102030405", "B")),
        "2 of the device; the first is 0x2f10:3 \"A\", 6 bytes");
    row("a long comment", coeWith(coeCommand("0102030405", QByteArray(100, 'c'))),
        "1 of the device; the first is 0x2f10:3 \"" + QByteArray(80, 'c') + "...\", 5 bytes");
}

void tst_ConvertWarnings::lostValues()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, told);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("D", content)));
    const CommandRun run = runHere({"convert", "in.xml", "-o", "out.ktl", "--strict"}, place.folder());
    QCOMPARE(run.errors, told.isEmpty()
                             ? QByteArray()
                             : "in.xml: warning: device 1 \"D\" (0x7e570009:0x00:0x00): startup commands with a value "
                               "that the format does not carry: "
                                   + told + " [startup-data]\n");
    QCOMPARE(run.exitCode, told.isEmpty() ? 0 : 1);
}

/// A coupler, which is exported with the modules of its file, beside a device of the same file that is not.
static QByteArray couplerFile()
{
    const QByteArray coupler =
        "<Device><Type>C</Type><Name>C</Name><Profile><ProfileNo>5001</ProfileNo><AddInfo>100</AddInfo></Profile>"
        + coeWith(coeCommand("0102030405"))
        + "<Slots MaxSlotCount=\"1\"><Slot MinInstances=\"0\" MaxInstances=\"1\"><Name>S</Name>"
          "<ModuleClass><Class>M</Class></ModuleClass></Slot></Slots></Device>\n";
    const QByteArray module = "<Module><Type ModuleIdent=\"#x11\" ModuleClass=\"M\">M</Type><Name>M</Name>"
                              + coeWith(coeCommand("01020304050607") + coeCommand("010203040506")) + "</Module>\n";
    return "<EtherCATInfo>\n<Vendor><Id>#x7E570009</Id></Vendor>\n<Descriptions><Devices>\n" + deviceWith("A", "")
           + coupler + "</Devices><Modules>\n" + module + "</Modules></Descriptions>\n</EtherCATInfo>\n";
}

/// Those of a coupler count the modules that are written with it.
void tst_ConvertWarnings::lostValuesOfEveryDevice()
{
    const Workplace place;
    place.make(QStringLiteral("in.xml"), couplerFile());
    const CommandRun run = runHere({"convert", "in.xml", "-o", "out.ktl"}, place.folder());
    QCOMPARE(
        run.errors,
        QByteArray("in.xml: warning: device 2 \"C\" (0x7e570009:0x00:0x00): startup commands with a value that the "
                   "format does not carry: 1 of the device, 2 of the modules in its file; the first is 0x2f10:3, "
                   "5 bytes [startup-data]\n"));
    QCOMPARE(runHere({"convert", "in.xml", "-o", "one.ktl", "--device", "1"}, place.folder()).errors, QByteArray());
}

/// A template comes with the warning too, and is whole.
void tst_ConvertWarnings::lostValuesInTheTemplate()
{
    const Workplace place;
    place.make(QStringLiteral("in.xml"),
               esiWith(deviceWith("D", coeWith(coeCommand("0102030405") + coeCommand("01")))));
    const CommandRun run = runHere({"choices", "in.xml"}, place.folder());
    QVERIFY2(run.errors.endsWith(": 1 of the device; the first is 0x2f10:3, 5 bytes [startup-data]\n"),
             run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.trimmed().endsWith('}'));
}

/// A device without anything is three items: General, EoE and CoE; the End item of a run is one more.
static QByteArray manyDevices(int count)
{
    return esiWith(deviceWith("D", "").repeated(count));
}

void tst_ConvertWarnings::itemCount_data()
{
    QTest::addColumn<int>("devices");
    QTest::addColumn<QByteArray>("errors");
    QTest::addRow("1999 items") << 666 << QByteArray();
    QTest::addRow("2002 items") << 667
                                << QByteArray(
                                       "out.ktl: warning: the file has 2002 items; the dump shows the first 2000, "
                                       "and the workbench reads no run that ends after them [item-count]\n");
}

void tst_ConvertWarnings::itemCount()
{
    QFETCH(int, devices);
    QFETCH(QByteArray, errors);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), manyDevices(devices));
    const CommandRun run = runHere({"convert", "in.xml", "-o", "out.ktl", "--strict"}, place.folder());
    QCOMPARE(run.errors, errors);
    QCOMPARE(run.exitCode, errors.isEmpty() ? 0 : 1);
    QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))).size(), devices);
}

void tst_ConvertWarnings::itemCountAfterAppend_data()
{
    QTest::addColumn<int>("devices"); // of a run
    QTest::addColumn<QByteArray>("count"); // of both runs; empty without a warning
    QTest::addRow("two runs of 1000 items") << 333 << QByteArray();
    QTest::addRow("two runs of 1201 items") << 400 << QByteArray("2402");
}

/// What the file held before counts too.
void tst_ConvertWarnings::itemCountAfterAppend()
{
    QFETCH(int, devices);
    QFETCH(QByteArray, count);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), manyDevices(devices));
    QCOMPARE(runHere({"convert", "in.xml", "-o", "out.ktl"}, place.folder()).errors, QByteArray());
    const CommandRun run = runHere({"convert", "in.xml", "-o", "out.ktl", "--append"}, place.folder());
    if (count.isEmpty())
        QCOMPARE(run.errors, QByteArray());
    else
        QVERIFY2(run.errors.startsWith("out.ktl: warning: the file has " + count + " items;"), run.errors.constData());
}

void tst_ConvertWarnings::sameInput_data()
{
    QTest::addColumn<QStringList>("inputs");
    QTest::addColumn<QByteArray>("warned");
    QTest::addRow("the same name") << QStringList{"in.xml", "in.xml"} << QByteArray("in.xml");
    QTest::addRow("another way to it") << QStringList{"in.xml", "./in.xml"} << QByteArray("./in.xml");
    QTest::addRow("a link to it") << QStringList{"in.xml", "link.xml"} << QByteArray("link.xml");
    QTest::addRow("three times: told once") << QStringList{"in.xml", "in.xml", "link.xml"} << QByteArray("in.xml");
    QTest::addRow("a copy is another file") << QStringList{"in.xml", "copy.xml"} << QByteArray();
}

void tst_ConvertWarnings::sameInput()
{
    QFETCH(QStringList, inputs);
    QFETCH(QByteArray, warned);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("D", "")));
    place.make(QStringLiteral("copy.xml"), esiWith(deviceWith("D", "")));
    QVERIFY(QFile::link(place.path(QStringLiteral("in.xml")), place.path(QStringLiteral("link.xml"))));
    const CommandRun run = runHere(QStringList{"convert", "-o", "out.ktl", "--strict"} + inputs, place.folder());
    QCOMPARE(run.errors, warned.isEmpty()
                             ? QByteArray()
                             : warned
                                   + ": warning: the file is given more than once, its devices are written "
                                     "as often [same-input]\n");
    QCOMPARE(run.exitCode, warned.isEmpty() ? 0 : 1);
    QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))).size(), inputs.size());
}

static const testMain::Registration<tst_ConvertWarnings, QCoreApplication> registration;
#include "tst_ConvertWarnings.moc"
