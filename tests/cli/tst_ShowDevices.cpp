// `ktl show`: the devices that are asked for, in each form, and the parts of a KTL file.
// Covers showCommand.cpp, showRequest.cpp, showWriter.cpp, namedDevice.cpp.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowDevices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void selected_data();
    void selected();
    void unusableSelectors();
    void selectorsOverBrokenFiles();
    void json();
    void tables_data();
    void tables();
    void full();
    void ktlFile();
    void namesOfKtlDevices_data();
    void namesOfKtlDevices();
    void itemsOfEsiFiles();
    void linesOfAPipe();

private:
    QTemporaryDir m_folder;
    QString m_io = sample("io-block.xml"); ///< two devices
    QString m_terminals = sample("oversampling-terminal.xml"); ///< two devices
    QString m_ktl; ///< of these two files
};

namespace {

/// The lines that begin a device or file, without the folders of files.
QStringList headingsIn(const QByteArray& text)
{
    QStringList headings;
    for (const QString& line : QString::fromUtf8(text).split('\n'))
        if (line.startsWith("Device ") || line.startsWith('/'))
            headings.append(line.mid(line.lastIndexOf('/') + 1));
    return headings;
}

const char* const ioHeading = "io-block.xml: ESI file, 2 devices";
const char* const terminalHeading = "oversampling-terminal.xml: ESI file, 2 devices";
const char* const io2 = "Device 2 of 2: 0x7e570003:0x5040002:0x20001";
const char* const terminal1 = "Device 1 of 2: 0x7e570004:0x4020001:0x10001";

} // namespace

void tst_ShowDevices::initTestCase()
{
    m_ktl = m_folder.filePath("all.ktl");
    QCOMPARE(runHere({"convert", m_io, m_terminals, "-o", m_ktl}).exitCode, 0);
}

void tst_ShowDevices::selected_data()
{
    QTest::addColumn<QStringList>("selectors");
    QTest::addColumn<QStringList>("headings");
    QTest::addRow("number over all files") << QStringList{"3"} << QStringList{terminalHeading, terminal1};
    QTest::addRow("type") << QStringList{"FB-0504M"} << QStringList{ioHeading, io2};
    QTest::addRow("identity") << QStringList{"0x7e570003:0x5040002:0x20001"} << QStringList{ioHeading, io2};
    QTest::addRow("several, in the order of the files")
        << QStringList{"FT-AO02", "2"} << QStringList{ioHeading, io2, terminalHeading, terminal1};
    QTest::addRow("pattern") << QStringList{"FT-AO*"} << QStringList{terminalHeading, terminal1};
}

/// A file none of whose devices is meant is not shown.
void tst_ShowDevices::selected()
{
    QFETCH(QStringList, selectors);
    QFETCH(QStringList, headings);
    QStringList arguments{m_io, m_terminals};
    for (const QString& selector : selectors)
        arguments += {"--device", selector};
    const CommandRun run = runShow(arguments);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(headingsIn(run.output), headings);
}

void tst_ShowDevices::unusableSelectors()
{
    for (const QStringList& form : {QStringList{}, QStringList{"--json"}, QStringList{"--csv", "pdo"}}) {
        const CommandRun run = runShow(form + QStringList{m_io, "--device", "none"});
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.contains("none"), run.errors.constData());
        QCOMPARE(run.output, QByteArray());
    }
}

/// Devices of the others are shown.
void tst_ShowDevices::selectorsOverBrokenFiles()
{
    const QString missing = m_folder.filePath("missing.xml");
    const CommandRun run = runShow({missing, m_io, "--device", "2"});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.errors, missing.toUtf8() + ": error: the file cannot be read: No such file or directory\n");
    QCOMPARE(headingsIn(run.output), (QStringList{ioHeading, io2}));
}

/// The devices are those of the whole file, with their numbers; items and modules are left out.
void tst_ShowDevices::json()
{
    for (const QString& path : {m_io, m_ktl}) {
        const QJsonObject all = shownFile(path);
        const QJsonArray files = filesIn(runShow({"--json", path, "--device", "2"}));
        QCOMPARE(files.size(), 1);
        const QJsonObject file = files.at(0).toObject();
        QCOMPARE(file.value("devices").toArray().size(), 1);
        QJsonObject device = file.value("devices").toArray().at(0).toObject();
        QCOMPARE(device.take("device").toInt(), 2);
        QCOMPARE(device, all.value("devices").toArray().at(1).toObject());
        QCOMPARE(file.value("vendorId"), all.value("vendorId"));
        QCOMPARE(file.value("complete"), QJsonValue(true));
        QVERIFY(!file.contains("items") && !file.contains("moduleGroups"));
    }
}

void tst_ShowDevices::tables_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::addRow("dictionary") << QStringLiteral("dictionary") << QStringLiteral("servo-drive.xml")
                                << QStringLiteral("SX1-400");
    QTest::addRow("pdo") << QStringLiteral("pdo") << QStringLiteral("bus-coupler.xml") << QStringLiteral("MB-C100");
    QTest::addRow("startup") << QStringLiteral("startup") << QStringLiteral("bus-coupler.xml")
                             << QStringLiteral("MB-C100");
}

/// The rows of the device, and no others.
void tst_ShowDevices::tables()
{
    QFETCH(QString, table);
    QFETCH(QString, name);
    QFETCH(QString, type);
    QByteArrayList expected;
    for (const QByteArray& row : runShow({"--csv", table, sample(name)}).output.split('\n'))
        if (!row.contains(".xml,,"))
            expected.append(row);
    QVERIFY(expected.size() > 3);
    QCOMPARE(runShow({"--csv", table, sample(name), m_io, "--device", type}).output.split('\n'), expected);
}

void tst_ShowDevices::full()
{
    const QByteArray all = runShow({"--full", m_io}).output;
    const int second = all.indexOf("\nDevice 2 of 2\n");
    const int end = all.indexOf("\n\nFile\n") + 1;
    QVERIFY(second > 0 && end > second);
    QCOMPARE(runShow({"--full", m_io, "--device", "2"}).output,
             m_io.toUtf8() + ": ESI file, 2 devices\n" + all.mid(second, end - second));
    const QByteArray ktl = runShow({"--full", m_ktl, "--device", "2"}).output;
    QVERIFY2(ktl.startsWith(m_ktl.toUtf8() + ": KTL file, 4 devices\n\nDevice 2 of 4\n"), ktl.constData());
    QCOMPARE(headingsIn(ktl).size(), 2);
}

/// Its devices; in full its items first; its items alone.
void tst_ShowDevices::ktlFile()
{
    const QByteArray summary = runShow({m_ktl}).output;
    QCOMPARE(headingsIn(summary).size(), 5);
    QVERIFY(!summary.contains("@0x"));
    const QByteArray all = runShow({"--full", m_ktl}).output;
    const QByteArray items = runShow({"--items", m_ktl}).output;
    QVERIFY(items.contains("\n\n@0x00000000 40000 General, "));
    QVERIFY(!items.contains("\nDevice "));
    QVERIFY(all.startsWith(items + "\nDevice 1 of 4\n"));
}

void tst_ShowDevices::namesOfKtlDevices_data()
{
    QTest::addColumn<QByteArray>("names");
    QTest::addRow("line feed") << QByteArray("Name\nLine2");
    QTest::addRow("carriage return") << QByteArray("Name\rLine2");
    QTest::addRow("NUL") << QByteArray("Name\0Line2", 10);
}

/// The name of a device is the first line of its names, whatever ends it, for every sub-command.
void tst_ShowDevices::namesOfKtlDevices()
{
    QFETCH(QByteArray, names);
    const QByteArray end = zeros(4) + le32(12) + zeros(4);
    const QByteArray moreInfo = le32(40016) + le32(static_cast<std::uint32_t>(24 + names.size() + 1)) + zeros(16);
    const QString path =
        writtenFile(m_folder, "names.ktl",
                    le32(40000) + le32(52) + le32(1) + le32(2) + zeros(36) + moreInfo + names + zeros(1) + end);
    for (const char* const command : {"show", "image"}) {
        const CommandRun run = runHere({command, path, "--device", "Name"});
        QCOMPARE(run.errors, QByteArray());
        QVERIFY2(run.output.contains("0x1:0x2:0x00"), run.output.constData());
        QVERIFY2(!run.output.contains("Line2"), run.output.constData());
    }
}

/// The items of the others are shown.
void tst_ShowDevices::itemsOfEsiFiles()
{
    const CommandRun run = runShow({"--items", m_io, m_ktl});
    QCOMPARE(run.errors, m_io.toUtf8() + ": error: an ESI file has no items\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, runShow({"--items", m_ktl}).output);
}

/// They are those of a terminal of 80 columns.
void tst_ShowDevices::linesOfAPipe()
{
    for (const QString& name : sampleNames()) {
        QByteArrayList lines = runShow({sample(name)}).output.split('\n');
        lines.removeFirst(); // it has the path, which is not broken
        for (const QByteArray& line : lines) {
            int taken = 0;
            for (const QChar character : QString::fromUtf8(line))
                taken += character.unicode() < 0x1100 ? 1 : 2; // the samples have no other wide ones than Chinese
            QVERIFY2(taken <= 80, line.constData());
        }
    }
}

static const testMain::Registration<tst_ShowDevices, QCoreApplication> registration;
#include "tst_ShowDevices.moc"
