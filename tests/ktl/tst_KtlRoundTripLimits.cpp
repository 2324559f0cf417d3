// Exports at the limits of the format, and several in one file, read back.
#include "ktl/ktlItems.h"
#include "ktl/ktlReading.h"
#include "ktl/writing/ktlFile.h"

#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstddef>

namespace {

constexpr std::uint32_t productCode = 0x2A;

/// A file of one device.
std::vector<struct_FilenameDevice> filesWith(const struct_EtherCatDevice& device)
{
    std::vector<struct_FilenameDevice> files(1);
    files[0].device = {device};
    return files;
}

struct_EtherCatDevice plainDevice()
{
    struct_EtherCatDevice device;
    device.TypeAttributes.Product_Code = productCode;
    return device;
}

/// A device with output PDOs in numbers; each has one entry, and so an item of its own.
struct_EtherCatDevice deviceWithPdos(std::size_t count)
{
    struct_EtherCatDevice device = plainDevice();
    device.RxPdo.vpdo.resize(count);
    for (struct_PDOList& pdo : device.RxPdo.vpdo)
        pdo.Entry.vPdo_c.resize(1);
    return device;
}

bool writeAll(std::FILE* out, std::vector<struct_FilenameDevice>& files, int* errorCode)
{
    return writeDevices(
        out, files, [](std::size_t /*file*/, std::size_t /*device*/) { return true; }, errorCode);
}

QByteArray exported(std::vector<struct_FilenameDevice> files)
{
    int errorCode = 0;
    return writtenBy([&](std::FILE* out) { QVERIFY(writeAll(out, files, &errorCode)); });
}

std::size_t itemCount(const QByteArray& file)
{
    QString problem;
    const std::size_t count = itemsOf(file, &problem).size();
    return problem.isEmpty() ? count : 0;
}

} // namespace

class tst_KtlRoundTripLimits : public QObject
{
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void items_data();
    void items();
    void appended();
};

void tst_KtlRoundTripLimits::commands_data()
{
    QTest::addColumn<int>("count");
    QTest::addRow("none") << 0;
    QTest::addRow("one") << 1;
    QTest::addRow("254, the most that the count in one byte tells") << 254;
    QTest::addRow("255") << 255;
    QTest::addRow("256, whose low byte is 0") << 256;
    QTest::addRow("320") << 320;
}

/// However many commands there are, all of them come back.
void tst_KtlRoundTripLimits::commands()
{
    QFETCH(int, count);
    struct_EtherCatDevice device = plainDevice();
    for (int number = 0; number < count; ++number) {
        struct_InitCmd command;
        command.Index = static_cast<std::uint16_t>(0x2000 + number);
        command.DataBytes = 4;
        command.Data = static_cast<std::uint32_t>(number);
        device.Mailbox.COE.InitCmd.vinitcmd.push_back(command);
    }
    device.Mailbox.COE.Attributes.SdoInfo = true;
    const Reading reading = readingOf(exported(filesWith(device)));
    QCOMPARE(reading.files.size(), std::size_t{1});
    const std::vector<struct_InitCmd>& commands = reading.files[0].device.at(0).Mailbox.COE.InitCmd.vinitcmd;
    QCOMPARE(commands.size(), static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) {
        const struct_InitCmd& command = commands[static_cast<std::size_t>(number)];
        QCOMPARE(int{command.Index}, 0x2000 + number);
        QCOMPARE(command.Data, static_cast<std::uint32_t>(number));
    }
}

void tst_KtlRoundTripLimits::items_data()
{
    QTest::addColumn<std::size_t>("count");
    QTest::addColumn<std::size_t>("read");
    QTest::addRow("2000 items, the end item is the last that is read") << std::size_t{2000} << std::size_t{1};
    QTest::addRow("2001 items, the end item is not read") << std::size_t{2001} << std::size_t{0};
}

/// A file with one item too many reads like one that is cut short: nothing of it is there, and no error is told.
void tst_KtlRoundTripLimits::items()
{
    QFETCH(std::size_t, count);
    QFETCH(std::size_t, read);
    const std::size_t withoutPdos = itemCount(exported(filesWith(plainDevice())));
    QVERIFY(withoutPdos > 0);
    const QByteArray file = exported(filesWith(deviceWithPdos(count - withoutPdos)));
    QCOMPARE(itemCount(file), count);
    const Reading reading = readingOf(file);
    QVERIFY(reading.isComplete);
    QCOMPARE(reading.errorCode, 0);
    QCOMPARE(reading.files.size(), read);
    if (read > 0)
        QCOMPARE(reading.files[0].device.at(0).RxPdo.vpdo.size(), count - withoutPdos);
}

/// Each run of a file comes back as a file of its own, with the same path.
void tst_KtlRoundTripLimits::appended()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("runs.ktl"));
    for (const std::size_t pdos : {std::size_t{1}, std::size_t{2}, std::size_t{3}}) {
        std::vector<struct_FilenameDevice> files = filesWith(deviceWithPdos(pdos));
        const auto writeRun = [&](std::FILE* out, int* errorCode) { return writeAll(out, files, errorCode); };
        const KtlSaveMode mode = pdos == 1 ? KtlSaveMode::Overwrite : KtlSaveMode::Append;
        QVERIFY(saveKtlFile(QFile::encodeName(path).toStdString(), mode, writeRun).status == KtlSaveStatus::Saved);
    }
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const Reading reading = readingOf(file.readAll());
    QVERIFY(reading.isComplete);
    QCOMPARE(reading.files.size(), std::size_t{3});
    for (std::size_t run = 0; run < 3; ++run) {
        QCOMPARE(reading.files[run].xmlfilepath, reading.files[0].xmlfilepath);
        QCOMPARE(reading.files[run].device.size(), std::size_t{1});
        QCOMPARE(reading.files[run].device[0].RxPdo.vpdo.size(), run + 1);
    }
}

static const testMain::Registration<tst_KtlRoundTripLimits, QCoreApplication> registration;
#include "tst_KtlRoundTripLimits.moc"
