// `ktl convert`: the warnings of the export, and what `--strict` makes of them.
#include "cli/commandRun.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"

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
    void choicesForNothing();
};

static QByteArray deviceWith(const QByteArray& name, const QByteArray& content)
{
    return "<Device><Type>A</Type><Name>" + name + "</Name>" + content + "</Device>\n";
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
                                   << QByteArray("存在设备sm通道大于4个，控制器不支持sm 大于4个以上。请谨慎操作 D:");
    QTest::addRow("PDO increment") << slotsWith("SlotGroupPdoIncrement=\"2\"")
                                   << QByteArray(
                                          "存在设备多个slot的SlotPdoIncrement不一致，控制器不支持。请谨慎操作 D:");
    QTest::addRow("index increment") << slotsWith("SlotGroupIndexIncrement=\"32\"")
                                     << QByteArray(
                                            "存在设备多个slot的SlotIndexIncrement不一致，控制器不支持。请谨慎操作 D:");
    const QByteArray command = "<InitCmd><Transition>PS</Transition><Index>#x2000</Index><SubIndex>1</SubIndex>"
                               "<Data>01</Data></InitCmd>";
    QTest::addRow("startup commands") << "<Mailbox><CoE>" + command.repeated(255) + "</CoE></Mailbox>"
                                      << QByteArray("设备的startup启动项超过254个。固件必须升级大于20240929 D:");
}

/// The words of the window on one line, without its line feed; the files are written all the same.
void tst_ConvertWarnings::texts()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, warning);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("D", content)));
    const CommandRun run = runKtl({"convert", "in.xml", "-o", "out.ktl"}, place.folder());
    QCOMPARE(QString::fromUtf8(run.errors), QString::fromUtf8("in.xml: warning: " + warning + "\n"));
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
    const CommandRun run = runKtl({"convert", "b.xml", "a.xml", "-o", "out.ktl"}, place.folder());
    QStringList order;
    for (const QByteArray& line : run.errors.split('\n'))
        if (!line.isEmpty())
            order += QString::fromUtf8(line).section(QLatin1Char(':'), 0, 0) + QLatin1Char(' ')
                     + QString::fromUtf8(line).section(QLatin1Char(' '), -1);
    QCOMPARE(order, (QStringList{"b.xml B1:", "b.xml B1:", "b.xml B2:", "a.xml A:"}));
    QVERIFY(run.errors.indexOf("sm通道") < run.errors.indexOf("SlotPdoIncrement"));
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
    const CommandRun run = runKtl(QStringList{"convert", "in.xml", "-o", "out.ktl"} + options, place.folder());
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(QFile::exists(place.path(QStringLiteral("out.ktl"))), exitCode != 2);
    QCOMPARE(QFile::exists(place.path(QStringLiteral("out.ktl.txt"))), exitCode != 2);
}

/// A device that is chosen for and not written.
void tst_ConvertWarnings::choicesForNothing()
{
    const Workplace place;
    place.make(QStringLiteral("in.xml"), esiWith(deviceWith("A", "") + deviceWith("B", "")));
    place.make(QStringLiteral("choices.json"), R"({"format": "kinetra-choices", "version": 1,
                                                   "devices": [{"device": "A"}, {"device": "B"}]})");
    const QStringList arguments{"convert", "in.xml", "-o", "out.ktl", "--choices", "choices.json", "--strict"};
    const CommandRun run = runKtl(arguments + QStringList{"--device", "B"}, place.folder());
    QCOMPARE(run.errors, QByteArray("choices.json: warning: devices[0].device: \"A\" is left out by --device\n"));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(runKtl(arguments + QStringList{"--force"}, place.folder()).exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_ConvertWarnings)
#include "tst_ConvertWarnings.moc"
