// Warnings of devices before they are exported: which devices, in which order, by which number.
#include "cli/deviceWarnings.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"

#include <QtTest>

#include <sstream>

namespace {

/// Two files with two devices each; each device has the number of sync managers that its name begins with.
std::vector<struct_FilenameDevice> twoFiles()
{
    std::vector<struct_FilenameDevice> files{fileWith("a.xml", {"4A", "5B"}), fileWith("b.xml", {"6C", "7D"})};
    for (struct_FilenameDevice& file : files)
        for (struct_EtherCatDevice& device : file.device)
            device.vSM.resize(static_cast<std::size_t>(device.Name[0] - '0'));
    return files;
}

const std::string fiveOfB =
    "a.xml: warning: device 2 \"5B\" (0x00:0x00:0x00): 5 sync managers, the controller handles 4 "
    "[sync-managers]\n";
const std::string sixOfC =
    "b.xml: warning: device 3 \"6C\" (0x00:0x00:0x00): 6 sync managers, the controller handles 4 "
    "[sync-managers]\n";

} // namespace

class tst_DeviceWarnings : public QObject
{
    Q_OBJECT

private slots:
    static void chosenDevices_data()
    {
        QTest::addColumn<QList<int>>("devices"); // file times ten, and place in the file
        QTest::addColumn<QByteArray>("lines");
        QTest::addRow("none") << QList<int>{} << QByteArray();
        QTest::addRow("one without a fault") << QList<int>{0} << QByteArray();
        QTest::addRow("one") << QList<int>{10} << QByteArray::fromStdString(sixOfC);
        QTest::addRow("two, in the order of the files")
            << QList<int>{10, 1} << QByteArray::fromStdString(fiveOfB + sixOfC);
    }

    static void chosenDevices()
    {
        QFETCH(QList<int>, devices);
        QFETCH(QByteArray, lines);
        std::set<choices::DevicePosition> chosen;
        for (const int device : devices)
            chosen.emplace(device / 10, device % 10);
        std::ostringstream out;
        cli::Messages messages(out);
        cli::warnOfDevices(twoFiles(), chosen, messages);
        QCOMPARE(QByteArray::fromStdString(out.str()), lines);
    }

    /// What a template does not need to know.
    static void lostValuesOnly()
    {
        std::ostringstream out;
        cli::Messages messages(out);
        cli::warnOfLostValues(twoFiles(), messages);
        QCOMPARE(out.str(), std::string());
    }
};

static const testMain::Registration<tst_DeviceWarnings, testMain::NoApplication> registration;
#include "tst_DeviceWarnings.moc"
