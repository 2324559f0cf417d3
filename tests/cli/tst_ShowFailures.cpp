// `ktl show`: bad arguments, files that cannot be read, files that are cut short or made to do harm, a full disk.
// Covers openShownFile.cpp, showCommand.cpp.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QDir>
#include <QtTest>

class tst_ShowFailures : public QObject
{
    Q_OBJECT

private slots:
    void badArguments_data();
    void badArguments();
    void missingFileBetweenOthers();
    void neitherKind_data();
    void neitherKind();
    void emptyFile();
    void brokenEsi_data();
    void brokenEsi();
    void brokenEnd_data();
    void brokenEnd();
    void cutAtEveryByte();
    void hostileSizes_data();
    void hostileSizes();
    void missingSyncManager();
    void fullDisk_data();
    void fullDisk();
    void moreItemsThanTheReaderTakes();

private:
    QTemporaryDir m_folder;
};

namespace {

QByteArray endItem()
{
    return bytes("00 00 00 00 0C 00 00 00 00 00 00 00");
}

QByteArray fmmuItem()
{
    return bytes("4E 9C 00 00 14 00 00 00 01 00 00 00 01 02 03 04 00 00 00 00");
}

/// The shell's command that limits memory to 400 MB. The sanitizers reserve more than any limit, and have one of their
/// own.
QString memoryLimit()
{
#if defined(KINETRA_SANITIZED)
    return "export ASAN_OPTIONS=max_allocation_size_mb=400";
#else
    return "ulimit -v 400000";
#endif
}

/// How many items `--json` shows of one file; -1 if the file is not shown.
int itemsShown(const CommandRun& run)
{
    const QJsonArray files = filesIn(run);
    return files.isEmpty() ? -1 : files.at(0).toObject().value("items").toArray().size();
}

} // namespace

void tst_ShowFailures::badArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const QString esi = sample("io-block.xml");
    QTest::addRow("no file") << QStringList{} << QByteArray("no file is given");
    QTest::addRow("JSON and CSV") << QStringList{"--json", "--csv", "pdo", esi}
                                  << QByteArray("--json and --csv cannot be given together");
    QTest::addRow("table that is none") << QStringList{"--csv", "sm", esi}
                                        << QByteArray("\"sm\" is no table; there are dictionary, pdo and startup");
    QTest::addRow("table without a name")
        << QStringList{"--csv", "", esi} << QByteArray("\"\" is no table; there are dictionary, pdo and startup");
    QTest::addRow("option without its value")
        << QStringList{esi, "--csv"} << QByteArray("the option --csv needs a value");
    QTest::addRow("two tables") << QStringList{esi, "--csv", "pdo", "--csv", "startup"}
                                << QByteArray("--csv can be given once only");
    QTest::addRow("option that is none") << QStringList{"--yaml", esi} << QByteArray("there is no option --yaml");
    for (const auto& [first, second] :
         {std::pair("full", "json"), std::pair("full", "csv"), std::pair("items", "json"), std::pair("items", "csv"),
          std::pair("full", "items"), std::pair("items", "device")}) {
        QStringList arguments{QStringLiteral("--") + first, QStringLiteral("--") + second, esi};
        if (qstrcmp(second, "csv") == 0 || qstrcmp(second, "device") == 0)
            arguments.insert(2, qstrcmp(second, "csv") == 0 ? "pdo" : "1");
        QTest::addRow("%s and %s", first, second)
            << arguments << QByteArray("--") + first + " and --" + second + " cannot be given together";
    }
    QTest::addRow("standard input twice")
        << QStringList{"-", "-"} << QByteArray("standard input can be read once only");
}

void tst_ShowFailures::badArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const CommandRun run = runShow(arguments);
    QCOMPARE(run.errors, "ktl: error: " + message + " (see: ktl show --help)\n");
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

/// The others are shown all the same.
void tst_ShowFailures::missingFileBetweenOthers()
{
    const QString missing = m_folder.filePath("missing.ktl");
    const CommandRun run = runShow({"--json", sample("io-block.xml"), missing, sample("servo-drive.xml")});
    QCOMPARE(run.errors, missing.toUtf8() + ": error: the file cannot be read: No such file or directory\n");
    QCOMPARE(run.exitCode, 2);
    const QJsonArray files = filesIn(run);
    QCOMPARE(files.size(), 2);
    QCOMPARE(files.at(1).toObject().value("file").toString(), sample("servo-drive.xml"));
}

void tst_ShowFailures::neitherKind_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addRow("blanks only") << QByteArray(" \n\t");
    QTest::addRow("three bytes of a type") << bytes("40 9C 00");
    QTest::addRow("text") << QByteArray("KTL Version V1.0.28 \n");
    QTest::addRow("type below those of the format") << bytes("3F 9C 00 00 08 00 00 00");
    QTest::addRow("type above those of the format") << bytes("28 A0 00 00 08 00 00 00");
    QTest::addRow("negative type") << bytes("40 9C 00 80 08 00 00 00");
}

void tst_ShowFailures::neitherKind()
{
    QFETCH(QByteArray, content);
    const QString path = writtenFile(m_folder, "neither.xml", content);
    const CommandRun run = runShow({"--json", path});
    QCOMPARE(run.errors, path.toUtf8() + ": error: this is neither an ESI file nor a KTL file\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray("{\"files\": [\n]}\n"));
}

void tst_ShowFailures::emptyFile()
{
    const QString path = writtenFile(m_folder, "empty.xml", {});
    const CommandRun run = runShow({path});
    QCOMPARE(run.errors, path.toUtf8() + ": error: the file is empty\n");
    QCOMPARE(run.exitCode, 2);
}

void tst_ShowFailures::brokenEsi_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("message");
    QTest::addRow("not well-formed") << QByteArray("<a>\n</b>") << QByteArray(":2:");
    QTest::addRow("other XML") << QByteArray("<a/>") << QByteArray(": error: this is no ESI file");
}

void tst_ShowFailures::brokenEsi()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, message);
    const QString path = writtenFile(m_folder, "broken.xml", content);
    const CommandRun run = runShow({path});
    QVERIFY2(run.errors.startsWith(path.toUtf8() + message), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
}

void tst_ShowFailures::brokenEnd_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("items");
    QTest::addColumn<QByteArray>("message");
    const QByteArray impossible = "the item head at 0x14 cannot be right";
    QTest::addRow("no End item") << fmmuItem() << 1
                                 << QByteArray("the last run has no End item: the file was cut short");
    QTest::addRow("items after the last End item")
        << endItem() + fmmuItem() << 2 << QByteArray("the last run has no End item: the file was cut short");
    QTest::addRow("item that is cut") << fmmuItem() + fmmuItem().left(13) << 2
                                      << QByteArray("the file ends at 0x21, inside an item");
    QTest::addRow("head that is cut") << fmmuItem() + fmmuItem().left(7) << 1
                                      << QByteArray("the file ends inside the item head at 0x14");
    QTest::addRow("size of 7") << fmmuItem() + le32(40001) + le32(7) + endItem() << 1 << impossible;
    QTest::addRow("size of 0") << fmmuItem() + le32(40001) + le32(0) + endItem() << 1 << impossible;
    QTest::addRow("negative size") << fmmuItem() + le32(40001) + le32(0x80000008) + endItem() << 1 << impossible;
    QTest::addRow("negative type") << fmmuItem() + le32(0x80009C41) + le32(12) + endItem() << 1 << impossible;
}

/// What could be read is shown, as text too, and the exit status tells.
void tst_ShowFailures::brokenEnd()
{
    QFETCH(QByteArray, content);
    QFETCH(int, items);
    QFETCH(QByteArray, message);
    const QString path = writtenFile(m_folder, "broken.ktl", content);
    const CommandRun run = runShow({"--json", path});
    QCOMPARE(run.errors, path.toUtf8() + ": error: " + message + '\n');
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(itemsShown(run), items);
    QCOMPARE(filesIn(run).at(0).toObject().value("complete").toBool(true), false);
    const CommandRun textRun = runShow({"--full", path});
    QCOMPARE(textRun.output.count("\n@0x"), items);
    QCOMPARE(textRun.exitCode, 2);
}

/// Whatever is left of a file, each of its bytes is shown once: an item has as many as `present` says.
void tst_ShowFailures::cutAtEveryByte()
{
    const QString whole = m_folder.filePath("whole.ktl");
    QCOMPARE(runHere({"convert", sample("io-block.xml"), "--device", "1", "-o", whole}).exitCode, 0);
    QFile file(whole);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QCOMPARE(content.size(), 300);
    for (int size = 4; size < content.size(); size += 3) {
        const CommandRun run = runShow({"--json", writtenFile(m_folder, "cut.ktl", content.left(size))});
        QCOMPARE(run.exitCode, 2);
        int shown = 0;
        for (const QJsonValue& item : filesIn(run).at(0).toObject().value("items").toArray()) {
            QCOMPARE(item.toObject().value("offset").toInt(), shown);
            shown += item.toObject().value("present").toInt();
        }
        QVERIFY2(size - shown < 8, qPrintable(QString::number(size))); // a head that is cut is reported, not shown
    }
}

void tst_ShowFailures::hostileSizes_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray huge = le32(0x7FFFFFFF);
    QTest::addRow("size of two gigabytes") << le32(40014) + huge + le32(0xFFFFFFFF) + zeros(8);
    QTest::addRow("CoE of two gigabytes, commands counted by the size")
        << le32(40006) + huge + zeros(7) + "\xFF" + zeros(4);
    QTest::addRow("slots of two gigabytes") << le32(40007) + huge + zeros(12);
    QTest::addRow("unknown item of two gigabytes") << le32(40500) + huge + zeros(12);
    QTest::addRow("text of two gigabytes") << le32(40016) + huge + zeros(16) + "A";
}

/// The run may not take more memory than a small file needs.
void tst_ShowFailures::hostileSizes()
{
    QFETCH(QByteArray, content);
    const QString path = writtenFile(m_folder, "hostile.ktl", content);
    QProcess process;
    process.start("sh", {"-c", memoryLimit() + "; exec \"$0\" show --json \"$1\"", KTL_PROGRAM, path});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardError(), path.toUtf8() + ": error: the file ends at 0x"
                                                 + QByteArray::number(content.size(), 16) + ", inside an item\n");
    QVERIFY(process.readAllStandardOutput().endsWith("]}\n"));
}

/// As for an export of it.
void tst_ShowFailures::missingSyncManager()
{
    const QByteArray esi = "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device>"
                           "<Type ProductCode=\"2\">D</Type><Name>Dev</Name><Sm StartAddress=\"#x1000\">Outputs</Sm>"
                           "<RxPdo Sm=\"4\"><Index>#x1600</Index><Name>Out</Name><Entry><Index>#x7000</Index>"
                           "<BitLen>8</BitLen></Entry></RxPdo></Device></Devices></Descriptions></EtherCATInfo>";
    const QString path = writtenFile(m_folder, "missing-sm.xml", esi);
    const CommandRun run = runShow({"--json", path});
    QCOMPARE(run.errors, path.toUtf8()
                             + ": error: device \"Dev\": PDO 0x1600 \"Out\" names sync manager 4, which the "
                               "device does not declare: it has 1\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(filesIn(run).size(), 0);
}

void tst_ShowFailures::fullDisk_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addRow("text") << QStringList{};
    QTest::addRow("JSON") << QStringList{"--json"};
    QTest::addRow("CSV") << QStringList{"--csv", "pdo"};
}

void tst_ShowFailures::fullDisk()
{
    QFETCH(QStringList, options);
    CommandStart start;
    start.outputFile = QStringLiteral("/dev/full");
    const CommandRun run = runShow(options + QStringList{sample("servo-drive.xml")}, start);
    QCOMPARE(run.errors, QByteArray("ktl: error: standard output cannot be written: No space left on device\n"));
    QCOMPARE(run.exitCode, 3);
}

void tst_ShowFailures::moreItemsThanTheReaderTakes()
{
    QByteArray content;
    for (int item = 0; item < 2500; ++item)
        content += fmmuItem();
    const CommandRun run = runShow({"--json", writtenFile(m_folder, "many.ktl", content + endItem())});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(itemsShown(run), 2501);
}

static const testMain::Registration<tst_ShowFailures, QCoreApplication> registration;
#include "tst_ShowFailures.moc"
