// The worked example of docs/ktl-format.md: what the page shows is what the product writes.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "loadedFiles.h"
#include "testMain.h"

#include <QFile>
#include <QtTest>

class tst_KtlFormatDoc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void bytesOfTheExample();
    void dumpOfTheExample();

private:
    QByteArray m_page;
    QByteArray m_written; ///< export of the first device of the sample alone
};

/// Lines between the fence of a name and the next fence.
static QList<QByteArray> fencedLines(const QByteArray& page, const QByteArray& name)
{
    const QByteArray open = "\n```" + name + '\n';
    const int begin = page.indexOf(open) + open.size();
    const int end = page.indexOf("\n```", begin);
    return begin < open.size() || end < 0 ? QList<QByteArray>() : page.mid(begin, end - begin).split('\n');
}

void tst_KtlFormatDoc::initTestCase()
{
    QFile file(QStringLiteral(KINETRA_SOURCE_DIR "/docs/ktl-format.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_page = file.readAll();
    const EsiLoadResult loaded = loadIntoList(QStringLiteral(KINETRA_SOURCE_DIR "/samples/io-block.xml"));
    QCOMPARE(int(loaded.status), int(EsiLoadStatus::Loaded));
    const auto firstOnly = [](std::size_t fileIndex, std::size_t device) { return fileIndex == 0 && device == 0; };
    int code = -77;
    m_written = writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, g_xmlfiledevices, firstOnly, &code)); });
    QCOMPARE(code, 1);
}

void tst_KtlFormatDoc::bytesOfTheExample()
{
    const QList<QByteArray> lines = fencedLines(m_page, "ktl-hex");
    QVERIFY(!lines.isEmpty());
    QByteArray shown;
    for (const QByteArray& line : lines)
        shown += line.simplified() + ' ';
    QCOMPARE(m_written.toHex(' ').toUpper(), shown.trimmed());
}

/// Each line of the block is one line of the dump with its line end and tabs written out.
void tst_KtlFormatDoc::dumpOfTheExample()
{
    const QList<QByteArray> lines = fencedLines(m_page, "ktl-dump");
    QVERIFY(!lines.isEmpty());
    const QByteArray shown = lines.join().replace("\\r", "\r").replace("\\n", "\n").replace("\\t", "\t");
    const FileHandle ktl = streamWith(m_written);
    int code = -77;
    const QByteArray dump = writtenBy([&](std::FILE* log) { QVERIFY(KTL_write_log_devices(log, ktl.get(), &code)); });
    QCOMPARE(dump, shown);
}

static const testMain::Registration<tst_KtlFormatDoc, QCoreApplication> registration;
#include "tst_KtlFormatDoc.moc"
