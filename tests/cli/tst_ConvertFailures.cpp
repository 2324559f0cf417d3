// `ktl convert`: what it says, and what it leaves behind, when a file cannot be read or written.
#include "cli/commandRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QByteArray endItem = QByteArray::fromHex("000000000C00000000000000");

QString sample()
{
    return QStringLiteral(KINETRA_SOURCE_DIR "/samples/io-block.xml");
}

QByteArray fileContent(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// An ESI file with the given text in its list of devices.
QByteArray esiWith(const QByteArray& devices)
{
    return "<EtherCATInfo>\n<Vendor><Id>#x7E570009</Id></Vendor>\n<Descriptions><Devices>\n" + devices
           + "\n</Devices></Descriptions>\n</EtherCATInfo>\n";
}

} // namespace

class tst_ConvertFailures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fileThatCannotBeLoaded_data();
    void fileThatCannotBeLoaded();
    void existingOutputStaysWhenLoadingFails();
    void lineOfTheError();
    void deepNesting();
    void noDevices();
    void outputCannotBeMade_data();
    void outputCannotBeMade();
    void fullDisk();
    void fullDiskForDump();
    void undeclaredSyncManager_data();
    void undeclaredSyncManager();
    void outputIsAnInput();

private:
    [[nodiscard]] QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    QString makeFile(const char* name, const QByteArray& content) const;
    void expectNoOutput() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_ktl;
    QString m_dump;
};

void tst_ConvertFailures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_ktl = path("out.ktl");
    m_dump = path("out.ktl.txt");
}

QString tst_ConvertFailures::makeFile(const char* name, const QByteArray& content) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
}

void tst_ConvertFailures::expectNoOutput() const
{
    QVERIFY(!QFileInfo::exists(m_ktl));
    QVERIFY(!QFileInfo::exists(m_dump));
}

void tst_ConvertFailures::fileThatCannotBeLoaded_data()
{
    QTest::addColumn<QByteArray>("content"); // null: there is no such file
    QTest::addColumn<QString>("message"); // pattern of what stands behind the file
    QTest::addRow("no such file") << QByteArray() << ": error: .+";
    QTest::addRow("not well-formed") << QByteArray("<EtherCATInfo>\n<Vendor>\n</Wendor>\n") << ":3:\\d+: error: .+";
    QTest::addRow("no XML at all") << QByteArray("plain text") << ":1:\\d+: error: .+";
    QTest::addRow("empty file") << QByteArray("") << ":\\d+:\\d+: error: .+";
    QTest::addRow("XML, but no ESI file") << QByteArray("<html>\n<body/>\n</html>\n") << ": error: .+";
}

/// Exit code 1, one line on standard error that begins with the file, and nothing written for the good files either.
void tst_ConvertFailures::fileThatCannotBeLoaded()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QString bad = path("bad.xml");
    if (!content.isNull())
        QCOMPARE(makeFile("bad.xml", content), bad);
    const QRegularExpression wanted(QLatin1Char('^') + QRegularExpression::escape(bad) + message
                                    + QStringLiteral("\n$"));
    for (const QStringList& files : {QStringList{bad}, QStringList{sample(), bad}, QStringList{bad, sample()}}) {
        const CommandRun run = runKtl(QStringList{"convert"} + files + QStringList{"-o", m_ktl});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(wanted.match(QString::fromUtf8(run.errors)).hasMatch(), run.errors.constData());
        QCOMPARE(run.errors.count('\n'), 1);
        QCOMPARE(run.output, QByteArray());
        expectNoOutput();
    }
}

void tst_ConvertFailures::existingOutputStaysWhenLoadingFails()
{
    makeFile("out.ktl", "earlier");
    makeFile("out.ktl.txt", "earlier dump");
    QCOMPARE(runKtl({"convert", sample(), path("missing.xml"), "-o", m_ktl}).exitCode, 1);
    QCOMPARE(fileContent(m_ktl), QByteArray("earlier"));
    QCOMPARE(fileContent(m_dump), QByteArray("earlier dump"));
}

void tst_ConvertFailures::lineOfTheError()
{
    const QString bad = makeFile("bad.xml", esiWith("<Device>\n<Type>A</Type>\n<Name>B</Device>\n"));
    const CommandRun run = runKtl({"convert", bad, "-o", m_ktl});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(bad.toUtf8() + ":6:"),
             run.errors.constData()); // three lines stand before the device
    expectNoOutput();
}

/// More than 1,000 elements in one another are refused where they pass the limit.
void tst_ConvertFailures::deepNesting()
{
    const int depth = 1200;
    const QString bad = makeFile("deep.xml", QByteArray("<a>\n").repeated(depth) + QByteArray("</a>").repeated(depth));
    const CommandRun run = runKtl({"convert", bad, "-o", m_ktl});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(bad.toUtf8() + ":1001:"), run.errors.constData());
    expectNoOutput();
}

void tst_ConvertFailures::noDevices()
{
    const QString empty = makeFile("empty.xml", esiWith(""));
    const CommandRun run = runKtl({"convert", empty, "-o", m_ktl});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.contains("error: "), run.errors.constData());
    QVERIFY2(run.errors.contains("no device"), run.errors.constData());
    expectNoOutput();
    // A file without devices beside one that has some is no failure.
    QCOMPARE(runKtl({"convert", empty, sample(), "-o", m_ktl}).exitCode, 0);
    QVERIFY(fileContent(m_ktl).endsWith(endItem));
}

void tst_ConvertFailures::outputCannotBeMade_data()
{
    QTest::addColumn<QString>("output"); // in the folder of the test
    QTest::addRow("folder that is not there") << "gone/out.ktl";
    QTest::addRow("a file where a folder should be") << "plain/out.ktl";
    QTest::addRow("a folder where the file should be") << "folder";
}

void tst_ConvertFailures::outputCannotBeMade()
{
    QFETCH(QString, output);
    makeFile("plain", "");
    QVERIFY(QDir().mkdir(path("folder")));
    const QString ktl = m_folder->filePath(output);
    const CommandRun run = runKtl({"convert", sample(), "-o", ktl});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(ktl.toUtf8() + ": error: "), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             (QStringList{"folder", "plain"}));
    QVERIFY(QDir(path("folder")).isEmpty());
}

void tst_ConvertFailures::fullDisk()
{
    if (!QFileInfo::exists(QStringLiteral("/dev/full")))
        QSKIP("this system has no /dev/full that stands for a full disk");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), m_ktl));
    const CommandRun run = runKtl({"convert", sample(), "-o", m_ktl});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(m_ktl.toUtf8() + ": error: "), run.errors.constData());
    QVERIFY(!QFileInfo::exists(m_dump));
}

void tst_ConvertFailures::fullDiskForDump()
{
    if (!QFileInfo::exists(QStringLiteral("/dev/full")))
        QSKIP("this system has no /dev/full that stands for a full disk");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), m_dump));
    const CommandRun run = runKtl({"convert", sample(), "-o", m_ktl});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(m_dump.toUtf8() + ": error: "), run.errors.constData());
    QVERIFY(fileContent(m_ktl).endsWith(endItem)); // the KTL file itself is complete
}

void tst_ConvertFailures::undeclaredSyncManager_data()
{
    QTest::addColumn<QByteArray>("pdo");
    QTest::addColumn<QByteArray>("reason");
    QTest::addRow("output PDO") << QByteArray("<RxPdo Sm=\"5\"><Index>#x1600</Index></RxPdo>")
                                << QByteArray("vector::_M_range_check: __n (which is 5) >= this->size() (which is 2)");
    QTest::addRow("input PDO") << QByteArray("<TxPdo Sm=\"2\"><Index>#x1A00</Index></TxPdo>")
                               << QByteArray("vector::_M_range_check: __n (which is 2) >= this->size() (which is 2)");
}

/// A range error at load is told with the file and its reason, as any other error of a file is.
void tst_ConvertFailures::undeclaredSyncManager()
{
    QFETCH(QByteArray, pdo);
    QFETCH(QByteArray, reason);
    const QString bad =
        makeFile("range.xml", esiWith("<Device><Type>A</Type><Sm>Outputs</Sm><Sm>Inputs</Sm>" + pdo + "</Device>"));
    const CommandRun run = runKtl({"convert", sample(), bad, "-o", m_ktl});
    QVERIFY(run.hasEnded);
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(bad.toUtf8() + ": error: "), run.errors.constData());
    QVERIFY2(run.errors.contains(reason), run.errors.constData());
    expectNoOutput();
}

/// The command never writes over what it reads: neither under the same name nor through a link.
void tst_ConvertFailures::outputIsAnInput()
{
    const QString input = makeFile("input.xml", esiWith("<Device><Type>A</Type></Device>"));
    const QByteArray before = fileContent(input);
    const QString link = input + ".link";
    QVERIFY(QFile::link(input, link));
    for (const QString& output : {input, link}) {
        const CommandRun run = runKtl({"convert", sample(), input, "-o", output});
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.startsWith(input.toUtf8() + ": error: "), run.errors.constData());
        QCOMPARE(fileContent(input), before);
        QVERIFY(!QFile::exists(output + ".txt"));
    }
}

QTEST_GUILESS_MAIN(tst_ConvertFailures)
#include "tst_ConvertFailures.moc"
