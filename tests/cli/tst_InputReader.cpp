// Files that are read several at a time: results are those of reading one after the other.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_InputReader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void anyNumberOfCores_data();
    void anyNumberOfCores();
    void roads_data();
    void roads();

private:
    QStringList m_files;
    Workplace m_place;
};

/// Good files of different sizes, with broken ones, one that is missing, and a KTL file between them.
void tst_InputReader::init()
{
    const QByteArray drive = "<Device><Type>D</Type><Name>Drive</Name></Device>";
    m_files.clear();
    for (int number = 0; number < 12; ++number)
        m_files +=
            m_place.make(QStringLiteral("file%1.xml").arg(number), esiWith(drive.repeated(1 + 40 * (number % 3))));
    m_files.insert(2, m_place.make("broken.xml", "<EtherCATInfo><Vendor>"));
    m_files.insert(5, m_place.path("gone.xml"));
    m_files.insert(7, m_place.make("end.ktl", QByteArray::fromHex("000000000C00000000000000")));
    m_files.insert(9, m_place.make("other.xml", "<a/>"));
    m_files.insert(11, m_place.make("range.xml", esiWith("<Device><Sm>Outputs</Sm><RxPdo Sm='4'/></Device>")));
}

void tst_InputReader::anyNumberOfCores_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addRow("show") << QStringList{"show", "--json"};
    QTest::addRow("choices") << QStringList{"choices"};
    QTest::addRow("convert") << QStringList{"convert", "-o", m_place.path("out.ktl")};
}

/// Results and messages are the same, in the order of the arguments.
void tst_InputReader::anyNumberOfCores()
{
    QFETCH(QStringList, command);
    const CommandRun alone = runHere(command + m_files);
    QCOMPARE(alone.exitCode, 2);
    QCOMPARE(alone.errors.count("\n"), command.contains("show") ? 4 : 5);
    QVERIFY(alone.errors.indexOf("broken.xml:1:") < alone.errors.indexOf("gone.xml: error: "));
    QVERIFY(alone.errors.indexOf("gone.xml: error: ") < alone.errors.indexOf("range.xml: error: "));
    for (const std::size_t cores : {std::size_t{2}, std::size_t{5}, std::size_t{64}}) {
        const CommandRun together = runHere(command + m_files, {}, cores);
        QCOMPARE(together.output, alone.output);
        QCOMPARE(together.errors, alone.errors);
        QCOMPARE(together.exitCode, alone.exitCode);
    }
}

void tst_InputReader::roads_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("throughDocuments");
    QTest::addRow("plain") << esiWith("<Device/>") << 0;
    QTest::addRow("with a document type") << "<!DOCTYPE EtherCATInfo>" + esiWith("<Device/>") << 1;
    QTest::addRow("in another encoding") << "<?xml version='1.0' encoding='windows-1252'?>" + esiWith("<Device/>") << 1;
}

void tst_InputReader::roads()
{
    QFETCH(QByteArray, file);
    const QString path = m_place.make("road.xml", file);
    for (const QStringList& command : {QStringList{"show"}, QStringList{"choices"}}) {
        const CommandRun run = runHere(command + QStringList{path, sample()});
        QCOMPARE(run.exitCode, 0);
        QTEST(static_cast<int>(run.throughDocuments), "throughDocuments");
    }
}

static const testMain::Registration<tst_InputReader, QCoreApplication> registration;
#include "tst_InputReader.moc"
