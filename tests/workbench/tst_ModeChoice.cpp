// Choosing an operation mode of the distributed clocks: the chosen mode moves to the front.
#include "testMain.h"
#include "workbench/deviceWindow.h"
#include "workbench/dialogDriver.h"

#include <QCheckBox>
#include <QLineEdit>

#include <memory>

class tst_ModeChoice : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
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
    QComboBox* modeList() { return m_window->find<QComboBox>("comboBox_Dc"); }
    /// What the tab shows of the modes: the texts in order, the value, and the check boxes.
    QStringList shownModes();

    std::unique_ptr<DeviceWindow> m_window;
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

void tst_ModeChoice::init()
{
    m_window = std::make_unique<DeviceWindow>();
    showTab(m_window->window, 0);
}

void tst_ModeChoice::cleanup()
{
    m_window.reset();
}

QStringList tst_ModeChoice::shownModes()
{
    QStringList shown;
    for (int index = 0; index < modeList()->count(); ++index)
        shown.append(modeList()->itemText(index));
    shown.append(modeList()->currentText());
    shown.append(m_window->find<QLineEdit>("SyncEdit")->text());
    QString checks;
    for (const char* name : {"checkBox_Dc1", "checkBox_Dc2", "checkBox_Dc3"})
        checks += m_window->find<QCheckBox>(name)->isChecked() ? 'x' : '-';
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
    m_window->show({deviceWithModes()});
    choose(modeList(), entry);
    QTEST(modesOf(DeviceWindow::device()), "order");
    QTEST(shownModes(), "shown");
    QCOMPARE(modeList()->currentIndex(), 0);
    for (int index = 0; index < 3; ++index)
        QCOMPARE(modeList()->itemData(index, Qt::UserRole), QVariant(index));
    // The whole mode moves, not its words alone.
    const Struct_DCOpMode& front = DeviceWindow::device().vopmode.front();
    QCOMPARE(front.Name, "name of " + front.Desc);
}

void tst_ModeChoice::choicesFollowEachOther()
{
    m_window->show({deviceWithModes()});
    choose(modeList(), 2); // m2 m1 m0
    choose(modeList(), 1); // m1 m2 m0
    QCOMPARE(modesOf(DeviceWindow::device()), QStringList({"m1", "m2", "m0"}));
    QCOMPARE(shownModes(), QStringList({"m1", "m2", "m0", "m1", "0x200", "-x-"}));
    QTest::keyClick(modeList(), Qt::Key_Down); // m2 m1 m0
    QCOMPARE(modesOf(DeviceWindow::device()), QStringList({"m2", "m1", "m0"}));
    QCOMPARE(shownModes(), QStringList({"m2", "m1", "m0", "m2", "0x400", "--x"}));
}

void tst_ModeChoice::choiceSurvivesTheNextClick()
{
    m_window->show({deviceWithModes(), deviceNamed("Other")});
    choose(modeList(), 1);
    m_window->click(1);
    QCOMPARE(shownModes(), QStringList({"", "", "---"}));
    m_window->click(0);
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
    m_window->show({deviceWithModes()});
    DeviceWindow::device().vopmode.resize(static_cast<std::size_t>(modesLeft));
    const QStringList before = modesOf(DeviceWindow::device());
    DialogDriver driver({pressing(QMessageBox::Ok)});
    choose(modeList(), 2, driver);
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QString("xml parser"));
    QCOMPARE(box.text, QStringLiteral("超出DC选择范围 Drive:\n"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_window->widget());
    QCOMPARE(modesOf(DeviceWindow::device()), before);
    QCOMPARE(shownModes(), QStringList({"m0", "m1", "m2", "m2", "0x100", "x--"})); // nothing is shown anew
}

void tst_ModeChoice::modeNeedsADevice_data()
{
    addSelectionsWithoutADevice();
}

void tst_ModeChoice::modeNeedsADevice()
{
    m_window->show({deviceWithModes()});
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    choose(modeList(), 2);
    QCOMPARE(modesOf(DeviceWindow::device()), QStringList({"m0", "m1", "m2"}));
    QCOMPARE(shownModes(), QStringList({"m0", "m1", "m2", "m2", "0x100", "x--"}));
}

void tst_ModeChoice::clearingTheModesIsNoChoice()
{
    m_window->show({deviceWithModes()});
    DialogDriver driver({});
    driver.during([this] {
        m_window->click(0);
        m_window->click(-1);
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(modesOf(DeviceWindow::device()), QStringList({"m0", "m1", "m2"}));
    QCOMPARE(shownModes(), QStringList({"", "", "---"}));
    QVERIFY(callSlot(m_window->window, "on_comboBox_Dc_currentIndexChanged", Q_ARG(int, -1)));
    QCOMPARE(modesOf(DeviceWindow::device()), QStringList({"m0", "m1", "m2"}));
}

static const testMain::Registration<tst_ModeChoice, QApplication> registration;
#include "tst_ModeChoice.moc"
