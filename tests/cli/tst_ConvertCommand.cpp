// `ktl convert`: ESI files in, a KTL file and its dump out.
#include "cli/commandRun.h"
#include "ktl/ktlItems.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

QString sample(const char* name)
{
    return QStringLiteral(KINETRA_SOURCE_DIR "/samples/") + QString::fromLatin1(name);
}

QByteArray fileContent(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// Vendor id and product code of each device of a KTL file.
QStringList devicesIn(const QByteArray& ktl)
{
    QString problem;
    QStringList devices;
    for (const KtlItem& item : itemsOf(ktl, &problem))
        if (item.type == 40000)
            devices.append(QStringLiteral("%1 %2")
                               .arg(item.u32(8), 8, 16, QLatin1Char('0'))
                               .arg(item.u32(12), 8, 16, QLatin1Char('0')));
    return problem.isEmpty() ? devices : QStringList{problem};
}

} // namespace

class tst_ConvertCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void oneFile_data();
    void oneFile();
    void severalFilesInTheirOrder();
    void sameFileTwice();
    void existingOutputIsReplaced();
    void dumpAgreesWithFile();
    void relativePaths();
    void namesOutsideAscii();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_ktl;
    QString m_dump;
};

void tst_ConvertCommand::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_ktl = m_folder->filePath(QStringLiteral("out.ktl"));
    m_dump = m_folder->filePath(QStringLiteral("out.ktl.txt"));
}

void tst_ConvertCommand::oneFile_data()
{
    QTest::addColumn<QString>("esi");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("optionFirst");
    const QString esi = sample("io-block.xml");
    QTest::addRow("option behind the file") << esi << QStringList{"-o"} << false;
    QTest::addRow("option before the sub-command") << esi << QStringList{"-o"} << true;
    QTest::addRow("long option") << esi << QStringList{"--output"} << false;
}

/// Every device of the file, and nothing on the terminal.
void tst_ConvertCommand::oneFile()
{
    QFETCH(QString, esi);
    QFETCH(QStringList, options);
    QFETCH(bool, optionFirst);
    const QStringList output = options + QStringList{m_ktl};
    const QStringList command{"convert", esi};
    const CommandRun run = runKtl(optionFirst ? output + command : command + output);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(fileContent(m_ktl)), (QStringList{"7e570003 16160001", "7e570003 05040002"}));
    QVERIFY(fileContent(m_dump).startsWith("KTL Version V1.0.28 \nItemHead-dec: 40000,Len: 52    General \r\n"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), (QStringList{"out.ktl", "out.ktl.txt"}));
}

void tst_ConvertCommand::severalFilesInTheirOrder()
{
    const CommandRun run = runKtl({"convert", sample("oversampling-terminal.xml"), sample("bus-coupler.xml"),
                                   sample("io-block.xml"), "-o", m_ktl});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QStringList vendors;
    for (const QString& device : devicesIn(fileContent(m_ktl)))
        vendors.append(device.left(8));
    QCOMPARE(vendors, (QStringList{"7e570004", "7e570004", "7e570002", "7e570003", "7e570003"}));
    QCOMPARE(fileContent(m_dump).count("ItemHead-dec: 0,"), 1); // one end item for all
}

void tst_ConvertCommand::sameFileTwice()
{
    const CommandRun run = runKtl({"convert", sample("io-block.xml"), sample("io-block.xml"), "-o", m_ktl});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(fileContent(m_ktl)),
             (QStringList{"7e570003 16160001", "7e570003 05040002", "7e570003 16160001", "7e570003 05040002"}));
}

/// A second run gives the same files as the first, whatever was there.
void tst_ConvertCommand::existingOutputIsReplaced()
{
    const QStringList arguments{"convert", sample("io-block.xml"), "-o", m_ktl};
    QCOMPARE(runKtl(arguments).exitCode, 0);
    const QByteArray ktl = fileContent(m_ktl);
    const QByteArray dump = fileContent(m_dump);
    for (const QString& path : {m_ktl, m_dump}) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::Append));
        file.write(QByteArray(10000, 'x'));
    }
    QCOMPARE(runKtl(arguments).exitCode, 0);
    QCOMPARE(fileContent(m_ktl), ktl);
    QCOMPARE(fileContent(m_dump), dump);
}

void tst_ConvertCommand::dumpAgreesWithFile()
{
    QCOMPARE(runKtl({"convert", sample("servo-drive.xml"), "-o", m_ktl}).exitCode, 0);
    QString problem;
    const std::vector<KtlItem> items = itemsOf(fileContent(m_ktl), &problem);
    const std::vector<DumpItem> shown = dumpItemsOf(fileContent(m_dump), &problem);
    QCOMPARE(problem, QString());
    QCOMPARE(shown.size(), items.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        QCOMPARE(shown[index].type, qint64(items[index].type));
        QCOMPARE(shown[index].words.size(), std::size_t(items[index].content.size() - 8) / 4);
        for (std::size_t word = 0; word < shown[index].words.size(); ++word)
            QCOMPARE(shown[index].words[word], items[index].u32(static_cast<int>(8 + 4 * word)));
    }
}

void tst_ConvertCommand::relativePaths()
{
    QVERIFY(QFile::copy(sample("io-block.xml"), m_folder->filePath(QStringLiteral("in.xml"))));
    const CommandRun run = runKtl({"convert", "in.xml", "-o", "out.ktl"}, m_folder->path());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(fileContent(m_ktl)).size(), 2);
}

void tst_ConvertCommand::namesOutsideAscii()
{
    const QString esi = m_folder->filePath(QString::fromUtf8("设备 描述.xml"));
    const QString ktl = m_folder->filePath(QString::fromUtf8("输出 é.ktl"));
    QVERIFY(QFile::copy(sample("io-block.xml"), esi));
    const CommandRun run = runKtl({"convert", esi, "-o", ktl});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(fileContent(ktl)).size(), 2);
    QVERIFY(QFile::exists(ktl + QStringLiteral(".txt")));
}

QTEST_GUILESS_MAIN(tst_ConvertCommand)
#include "tst_ConvertCommand.moc"
