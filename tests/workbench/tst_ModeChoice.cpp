// Choosing an operation mode of the distributed clocks: the chosen mode moves to the front.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/tabFixture.h"

#include <QCheckBox>
#include <QLineEdit>

class tst_ModeChoice : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(GeneralTab); }
    void cleanup() { end(); }
    static void chosenMode_data();
    void chosenMode();
    void choicesFollowEachOther();
    void choiceSurvivesTheNextClick();
    static void modeOutOfRange_data();
    void modeOutOfRange();
    static void modeNeedsADevice_data();
    void modeNeedsADevice();
    void clearingTheModesIsNoChoice();

private:
    QComboBox& modeList() { return *part<QComboBox>(window(), "comboBox_Dc"); }
    /// What the tab shows of the modes: the texts in order, the value, and the check boxes.
    QStringList shownModes();
};

/// A device with three modes "m0", "m1", "m2", whose words activate SYNC signals by one bit each.
static struct_EtherCatDevice deviceWithModes()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    for (std::uint32_t number = 0; number < 3; ++number) {
        device.vopmode.emplace_back();
        device.vopmode.back().Name = "name of m" + std::to_string(number);
        device.vopmode.back().Desc = "m" + std::to_string(number);
        device.vopmode.back().AssignActivate = 0x100U << number;
    }
    return device;
}

static QStringList modesOf(const struct_EtherCatDevice& device)
{
    QStringList modes;
    for (const Struct_DCOpMode& mode : device.vopmode)
        modes.append(QString::fromStdString(mode.Desc));
    return modes;
}

QStringList tst_ModeChoice::shownModes()
{
    QStringList shown;
    for (int index = 0; index < modeList().count(); ++index)
        shown.append(modeList().itemText(index));
    shown.append(modeList().currentText());
    shown.append(part<QLineEdit>(window(), "SyncEdit")->text());
    QString checks;
    for (const char* name : {"checkBox_Dc1", "checkBox_Dc2", "checkBox_Dc3"})
        checks += part<QCheckBox>(window(), name)->isChecked() ? 'x' : '-';
    shown.append(checks);
    return shown;
}

void tst_ModeChoice::chosenMode_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QStringList>("order");
    QTest::addColumn<QStringList>("shown");
    QTest::addRow("current one") << 0 << QStringList{"m0", "m1", "m2"}
                                 << QStringList{"m0", "m1", "m2", "m0", "0x100", "x--"};
    QTest::addRow("second") << 1 << QStringList{"m1", "m0", "m2"}
                            << QStringList{"m1", "m0", "m2", "m1", "0x200", "-x-"};
    QTest::addRow("third: the two change places")
        << 2 << QStringList{"m2", "m1", "m0"} << QStringList{"m2", "m1", "m0", "m2", "0x400", "--x"};
}

void tst_ModeChoice::chosenMode()
{
    QFETCH(int, entry);
    show({deviceWithModes()});
    choose(modeList(), entry);
    QTEST(modesOf(loadedDevice()), "order");
    QTEST(shownModes(), "shown");
    QCOMPARE(modeList().currentIndex(), 0);
    for (int index = 0; index < 3; ++index)
        QCOMPARE(modeList().itemData(index, Qt::UserRole), QVariant(index));
    // The whole mode moves, not its words alone.
    const Struct_DCOpMode& front = loadedDevice().vopmode.front();
    QCOMPARE(front.Name, "name of " + front.Desc);
}

void tst_ModeChoice::choicesFollowEachOther()
{
    show({deviceWithModes()});
    choose(modeList(), 2); // m2 m1 m0
    choose(modeList(), 1); // m1 m2 m0
    QCOMPARE(modesOf(loadedDevice()), QStringList({"m1", "m2", "m0"}));
    QCOMPARE(shownModes(), QStringList({"m1", "m2", "m0", "m1", "0x200", "-x-"}));
    QTest::keyClick(&modeList(), Qt::Key_Down); // m2 m1 m0
    QCOMPARE(modesOf(loadedDevice()), QStringList({"m2", "m1", "m0"}));
    QCOMPARE(shownModes(), QStringList({"m2", "m1", "m0", "m2", "0x400", "--x"}));
}

void tst_ModeChoice::choiceSurvivesTheNextClick()
{
    show({deviceWithModes(), deviceNamed("Other")});
    choose(modeList(), 1);
    clickDevice(1);
    QCOMPARE(shownModes(), QStringList({"", "", "---"}));
    clickDevice(0);
    QCOMPARE(shownModes(), QStringList({"m1", "m0", "m2", "m1", "0x200", "-x-"}));
}

void tst_ModeChoice::modeOutOfRange_data()
{
    QTest::addColumn<int>("modesLeft");
    QTest::addRow("one mode left") << 1;
    QTest::addRow("as many as the position") << 2;
    QTest::addRow("no mode left") << 0;
}

void tst_ModeChoice::modeOutOfRange()
{
    QFETCH(int, modesLeft);
    show({deviceWithModes()});
    loadedDevice().vopmode.resize(static_cast<std::size_t>(modesLeft));
    const QStringList before = modesOf(loadedDevice());
    DialogDriver driver({pressing(QMessageBox::Ok)});
    choose(modeList(), 2, driver);
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QString("xml parser"));
    QCOMPARE(box.text, QStringLiteral("超出DC选择范围 Drive:\n"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, &window());
    QCOMPARE(modesOf(loadedDevice()), before);
    QCOMPARE(shownModes(), QStringList({"m0", "m1", "m2", "m2", "0x100", "x--"})); // nothing is shown again
}

void tst_ModeChoice::modeNeedsADevice_data()
{
    addSelectionsWithoutADevice();
}

void tst_ModeChoice::modeNeedsADevice()
{
    show({deviceWithModes()});
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    choose(modeList(), 2);
    QCOMPARE(modesOf(loadedDevice()), QStringList({"m0", "m1", "m2"}));
    QCOMPARE(shownModes(), QStringList({"m0", "m1", "m2", "m2", "0x100", "x--"}));
}

void tst_ModeChoice::clearingTheModesIsNoChoice()
{
    show({deviceWithModes()});
    DialogDriver driver({});
    driver.during([this] {
        clickDevice(0);
        clickDevice(-1);
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(modesOf(loadedDevice()), QStringList({"m0", "m1", "m2"}));
    QCOMPARE(shownModes(), QStringList({"", "", "---"}));
    QVERIFY(callSlot(window(), "on_comboBox_Dc_currentIndexChanged", Q_ARG(int, -1)));
    QCOMPARE(modesOf(loadedDevice()), QStringList({"m0", "m1", "m2"}));
}

static const testMain::Registration<tst_ModeChoice, QApplication> registration;
#include "tst_ModeChoice.moc"
