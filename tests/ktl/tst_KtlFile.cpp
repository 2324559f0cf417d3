// Saving to disk: the file, its dump beside it, and what goes wrong with real files.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/writing/ktlFile.h"
#include "testMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <stdexcept>

#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(KtlSaveMode)

namespace {

const QByteArray endItem = bytes("00 00 00 00  0C 00 00 00  00 00 00 00");
const QByteArray firstLine = "KTL Version V1.0.28 \n";
const QByteArray endText = "ItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n";

/// A run that is nothing but its end item.
bool writeEnd(std::FILE* out, int* /*errorCode*/)
{
    KTL_write_device_end(out);
    return true;
}

QByteArray fileContent(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

bool haveFullDisk()
{
    return QFileInfo::exists(QStringLiteral("/dev/full"));
}

/// Another user than root as long as an object of this class lives, since root may read everything.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const QString& folderToOwn)
        : m_wasRoot(::geteuid() == 0)
    {
        constexpr uid_t nobody = 65534;
        m_isOrdinary = !m_wasRoot
                       || (::chown(QFile::encodeName(folderToOwn).constData(), nobody, static_cast<gid_t>(-1)) == 0
                           && ::setresuid(static_cast<uid_t>(-1), nobody, static_cast<uid_t>(-1)) == 0);
    }
    ~OrdinaryUser()
    {
        if (m_wasRoot && ::geteuid() != 0 && ::setresuid(static_cast<uid_t>(-1), 0, static_cast<uid_t>(-1)) != 0)
            qFatal("cannot become root again");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    [[nodiscard]] bool isOrdinary() const { return m_isOrdinary; }

private:
    bool m_wasRoot;
    bool m_isOrdinary = false;
};

} // namespace

class tst_KtlFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void dumpPath();
    void newFile_data();
    void newFile();
    void errorCodeStartsAtZero();
    void overwrite();
    void append();
    void appendAfterWhatIsNoItem();
    void fullDisk();
    void fullDiskShowsLate();
    void fullDiskForDump();
    void dumpCannotBeMade();
    void vanishedFolder();
    void pathIsAFolder();
    void readOnlyFile();
    void unreadableAfterWriting();
    void runFails();
    void rangeError();
    void otherErrorsGoThrough();

private:
    [[nodiscard]] QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    [[nodiscard]] KtlSaveResult save(const QString& file, KtlSaveMode mode = KtlSaveMode::Overwrite) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_ktl;
    QString m_dump;
};

void tst_KtlFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_ktl = path("a.ktl");
    m_dump = path("a.ktl.txt");
}

KtlSaveResult tst_KtlFile::save(const QString& file, KtlSaveMode mode) const
{
    return saveKtlFile(QFile::encodeName(file).toStdString(), mode, writeEnd);
}

void tst_KtlFile::dumpPath()
{
    QCOMPARE(QByteArray(dumpPathOf("folder/a.ktl").c_str()), QByteArray("folder/a.ktl.txt"));
    QCOMPARE(QByteArray(dumpPathOf("folder.x/no ending").c_str()), QByteArray("folder.x/no ending.txt"));
}

void tst_KtlFile::newFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<KtlSaveMode>("mode");
    QTest::addRow("overwrite mode") << "a.ktl" << KtlSaveMode::Overwrite;
    QTest::addRow("append mode") << "a.ktl" << KtlSaveMode::Append;
    QTest::addRow("no ending") << "export" << KtlSaveMode::Overwrite;
    QTest::addRow("Chinese name with a blank") << QString::fromUtf8("设备 1.ktl") << KtlSaveMode::Overwrite;
}

void tst_KtlFile::newFile()
{
    QFETCH(QString, name);
    QFETCH(KtlSaveMode, mode);
    const QString file = m_folder->filePath(name);
    const KtlSaveResult result = save(file, mode);
    QCOMPARE(int(result.status), int(KtlSaveStatus::Saved));
    QCOMPARE(QString::fromStdString(result.reason), QString());
    QCOMPARE(fileContent(file), endItem);
    QCOMPARE(fileContent(file + QStringLiteral(".txt")), firstLine + endText);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 2); // and no other file
}

void tst_KtlFile::errorCodeStartsAtZero()
{
    int seen = -77;
    const auto look = [&](std::FILE* out, int* errorCode) {
        seen = *errorCode;
        return writeEnd(out, errorCode);
    };
    const KtlSaveResult result = saveKtlFile(QFile::encodeName(m_ktl).toStdString(), KtlSaveMode::Overwrite, look);
    QCOMPARE(int(result.status), int(KtlSaveStatus::Saved));
    QCOMPARE(seen, 0);
}

void tst_KtlFile::overwrite()
{
    writeFile(m_ktl, QByteArray(5000, 'x'));
    writeFile(m_dump, QByteArray(5000, 'y'));
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::Saved));
    QCOMPARE(fileContent(m_ktl), endItem);
    QCOMPARE(fileContent(m_dump), firstLine + endText);
}

/// The dump is made from the file on disk, so it shows the earlier run too, and only once.
void tst_KtlFile::append()
{
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::Saved));
    QCOMPARE(int(save(m_ktl, KtlSaveMode::Append).status), int(KtlSaveStatus::Saved));
    QCOMPARE(fileContent(m_ktl), endItem + endItem);
    QCOMPARE(fileContent(m_dump), firstLine + endText + endText);
}

/// What the file held before is not looked at; that the dump ends there is no failure of the export.
void tst_KtlFile::appendAfterWhatIsNoItem()
{
    const QByteArray earlier = bytes("41 9C 00 00  04 00 00 00");
    writeFile(m_ktl, earlier);
    QCOMPARE(int(save(m_ktl, KtlSaveMode::Append).status), int(KtlSaveStatus::Saved));
    QCOMPARE(fileContent(m_ktl), earlier + endItem);
    QCOMPARE(fileContent(m_dump), firstLine + "Err para: Id value-dec: 40001,Len: 4\r\n  \r\n");
}

/// The device takes everything until the C library hands it the first bytes, when the file is closed.
void tst_KtlFile::fullDisk()
{
    QVERIFY2(haveFullDisk(), "this system has no /dev/full that acts as a full disk");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), m_ktl));
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::CannotWrite));
    QVERIFY(!QFileInfo::exists(m_dump));
}

/// The run cannot tell a full disk, as it tests none but General items; the file tells it.
void tst_KtlFile::fullDiskShowsLate()
{
    QVERIFY2(haveFullDisk(), "this system has no /dev/full that acts as a full disk");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), m_ktl));
    const auto unbuffered = [](std::FILE* out, int* errorCode) {
        std::setvbuf(out, nullptr, _IONBF, 0); // the write fails, and nothing is left for the close
        return writeEnd(out, errorCode);
    };
    const KtlSaveResult result =
        saveKtlFile(QFile::encodeName(m_ktl).toStdString(), KtlSaveMode::Overwrite, unbuffered);
    QCOMPARE(int(result.status), int(KtlSaveStatus::CannotWrite));
    QVERIFY(!QFileInfo::exists(m_dump));
}

void tst_KtlFile::fullDiskForDump()
{
    QVERIFY2(haveFullDisk(), "this system has no /dev/full that acts as a full disk");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), m_dump));
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::CannotWriteDump));
    QCOMPARE(fileContent(m_ktl), endItem);
}

void tst_KtlFile::dumpCannotBeMade()
{
    QVERIFY(QDir().mkdir(m_dump)); // a folder is where the dump belongs
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::CannotWriteDump));
    QCOMPARE(fileContent(m_ktl), endItem);
}

void tst_KtlFile::vanishedFolder()
{
    QVERIFY(QDir().mkdir(path("gone")));
    QVERIFY(QDir().rmdir(path("gone")));
    QCOMPARE(int(save(path("gone/a.ktl")).status), int(KtlSaveStatus::CannotWrite));
    QCOMPARE(int(save(path("gone/a.ktl"), KtlSaveMode::Append).status), int(KtlSaveStatus::CannotWrite));
    QVERIFY(!QFileInfo::exists(path("gone")));
}

void tst_KtlFile::pathIsAFolder()
{
    QCOMPARE(int(save(m_folder->path()).status), int(KtlSaveStatus::CannotWrite));
    QVERIFY(!QFileInfo::exists(m_folder->path() + QStringLiteral(".txt")));
}

void tst_KtlFile::readOnlyFile()
{
    const OrdinaryUser user(m_folder->path());
    QVERIFY2(user.isOrdinary(),
             "root may write read-only files, and this system does not let the test become another user");
    writeFile(m_ktl, "earlier");
    QCOMPARE(::chmod(QFile::encodeName(m_ktl).constData(), S_IRUSR), 0);
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::CannotWrite));
    QCOMPARE(fileContent(m_ktl), QByteArray("earlier"));
    QVERIFY(!QFileInfo::exists(m_dump));
}

void tst_KtlFile::unreadableAfterWriting()
{
    const OrdinaryUser user(m_folder->path());
    QVERIFY2(user.isOrdinary(), "root may read every file, and this system does not let the test become another user");
    writeFile(m_ktl, "earlier");
    QCOMPARE(::chmod(QFile::encodeName(m_ktl).constData(), S_IWUSR), 0); // may be written and not be read
    QCOMPARE(int(save(m_ktl).status), int(KtlSaveStatus::CannotReopen));
    QVERIFY(!QFileInfo::exists(m_dump));
    QCOMPARE(::chmod(QFile::encodeName(m_ktl).constData(), S_IRUSR), 0);
    QCOMPARE(fileContent(m_ktl), endItem); // complete all the same
}

/// The file stays as far as it was written.
void tst_KtlFile::runFails()
{
    const auto failing = [](std::FILE* out, int* errorCode) { return writeEnd(out, errorCode) && false; };
    const KtlSaveResult result = saveKtlFile(QFile::encodeName(m_ktl).toStdString(), KtlSaveMode::Overwrite, failing);
    QCOMPARE(int(result.status), int(KtlSaveStatus::CannotWrite));
    QCOMPARE(fileContent(m_ktl), endItem);
    QVERIFY(!QFileInfo::exists(m_dump));
}

void tst_KtlFile::rangeError()
{
    std::vector<struct_FilenameDevice> files(1);
    files[0].device.resize(1);
    files[0].device[0].vSM.resize(1);
    files[0].device[0].RxPdo.vpdo.resize(1);
    files[0].device[0].RxPdo.vpdo[0].Attributes.SM = 3;
    const auto all = [](std::size_t, std::size_t) { return true; };
    const KtlSaveResult result =
        saveKtlFile(QFile::encodeName(m_ktl).toStdString(), KtlSaveMode::Overwrite,
                    [&](std::FILE* out, int* errorCode) { return writeDevices(out, files, all, errorCode); });
    QCOMPARE(int(result.status), int(KtlSaveStatus::CannotWrite));
    QCOMPARE(QString::fromStdString(result.reason),
             QStringLiteral("vector::_M_range_check: __n (which is 3) >= this->size() (which is 1)"));
    QCOMPARE(fileContent(m_ktl).size(), 52 + 28); // General and SM come before the PDO
    QVERIFY(!QFileInfo::exists(m_dump));
}

/// Only the range error is known as a failure of a run; what else is thrown is none of this function's business.
void tst_KtlFile::otherErrorsGoThrough()
{
    const auto throwing = [](std::FILE*, int*) -> bool { throw std::runtime_error("something else"); };
    QVERIFY_EXCEPTION_THROWN(
        static_cast<void>(saveKtlFile(QFile::encodeName(m_ktl).toStdString(), KtlSaveMode::Overwrite, throwing)),
        std::runtime_error);
    QVERIFY(!QFileInfo::exists(m_dump));
}

static const testMain::Registration<tst_KtlFile, QCoreApplication> registration;
#include "tst_KtlFile.moc"
