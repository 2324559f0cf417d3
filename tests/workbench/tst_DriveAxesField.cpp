// The drive axes on the General tab: counted when the type is chosen, or typed.
#include "testMain.h"
#include "workbench/editorParts.h"
#include "workbench/tabFixture.h"

class tst_DriveAxesField : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(GeneralTab); }
    void cleanup() { end(); }
    static void axesOfSlots_data();
    void axesOfSlots();
    static void driveAxes_data();
    void driveAxes();
    void driveAxesAreStoredWhenTheFieldIsLeft();
    static void driveAxesOfOtherTypes_data();
    void driveAxesOfOtherTypes();
    void singleDriverForcesOneAxis();
    static void driveAxesNeedADevice_data();
    void driveAxesNeedADevice();

private:
    QLineEdit* axesField() { return part<QLineEdit>(window(), "DriveAxies"); }
    [[nodiscard]] static int axes() { return loadedDevice().m_iDriveAxies; }
};

/// A slot as "group name".
static struct_Slot slotFrom(const QString& text)
{
    struct_Slot slot;
    slot.Attributes.m_SlotGroup = text.section(' ', 0, 0).toInt();
    slot.Name = text.section(' ', 1).toStdString();
    return slot;
}

void tst_DriveAxesField::axesOfSlots_data()
{
    QTest::addColumn<unsigned int>("groups");
    QTest::addColumn<QStringList>("slotTexts");
    QTest::addColumn<int>("driveAxes");
    QTest::addRow("no groups: the number of slots") << 0U << QStringList{"-1 A", "0 Axis", "5 B"} << 3;
    QTest::addRow("no groups, no slots") << 0U << QStringList{} << 0;
    QTest::addRow("groups: highest number and 1") << 2U << QStringList{"0 Axis 1", "1 Axis 2"} << 2;
    QTest::addRow("only slots named with Axis") << 3U << QStringList{"0 Axis 1", "1 Encoder", "2 IO"} << 1;
    QTest::addRow("other case does not count") << 3U << QStringList{"0 axis", "1 AXIS"} << 0;
    QTest::addRow("part of a name counts") << 3U << QStringList{"1 X-Axis->left"} << 2;
    QTest::addRow("slots in no group do not count") << 3U << QStringList{"-1 Axis", "-2 Axis"} << 0;
    QTest::addRow("a group counts once") << 3U << QStringList{"0 Axis out", "0 Axis in"} << 1;
    QTest::addRow("in any order") << 3U << QStringList{"2 Axis", "0 Axis", "1 Axis"} << 3;
    QTest::addRow("groups, no slots") << 3U << QStringList{} << 0;
}

void tst_DriveAxesField::axesOfSlots()
{
    QFETCH(unsigned int, groups);
    QFETCH(QStringList, slotTexts);
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_IOBlock);
    device.Slots.Attributes.m_MaxSlotGroupCount = groups;
    for (const QString& text : slotTexts)
        device.Slots.vslot.push_back(slotFrom(text));
    show({device});
    choose(*part<QComboBox>(window(), "comboBox_DeviceType"), KTL_DEVICE_TYPE_MultiDriver);
    QTEST(axes(), "driveAxes");
}

void tst_DriveAxesField::driveAxes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addRow("decimal") << "3" << 3 << "0x3";
    QTest::addRow("hexadecimal") << "0x10" << 16 << "0x10";
    QTest::addRow("hexadecimal mark of ESI files") << "#x1F" << 31 << "0x1f";
    QTest::addRow("digits of a hexadecimal number") << "1a" << 26 << "0x1a";
    QTest::addRow("none") << "0" << 0 << "0x00";
    QTest::addRow("empty") << "" << 0 << "0x00";
    QTest::addRow("no number") << "xyz" << 0 << "0x00";
    QTest::addRow("no upper limit") << "65535" << 65535 << "0xffff";
    QTest::addRow("above 16 bits: the low 16 are kept") << "65536" << 0 << "0x00";
    QTest::addRow("above 16 bits") << "0x1FFFE" << 65534 << "0xfffe";
    QTest::addRow("above 32 bits is no number") << "4294967296" << 0 << "0x00";
}

void tst_DriveAxesField::driveAxes()
{
    QFETCH(QString, typed);
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_MultiDriver);
    device.m_iDriveAxies = 9;
    show({device});
    typeInto(axesField(), typed);
    QCOMPARE(axes(), 9); // not before the editing is finished
    QTest::keyClick(axesField(), Qt::Key_Return);
    QTEST(axes(), "stored");
    QTEST(axesField()->text(), "shown");
}

void tst_DriveAxesField::driveAxesAreStoredWhenTheFieldIsLeft()
{
    show({deviceOfType(KTL_DEVICE_TYPE_MultiDriver)});
    typeInto(axesField(), "12");
    QTest::keyClick(axesField(), Qt::Key_Tab);
    QCOMPARE(axes(), 12);
    QCOMPARE(axesField()->text(), QString("0xc"));
}

void tst_DriveAxesField::driveAxesOfOtherTypes_data()
{
    QTest::addColumn<int>("ofDevice");
    for (const int other : {0, 1, 3, 4, 5, 9})
        QTest::addRow("type %d", other) << other;
}

void tst_DriveAxesField::driveAxesOfOtherTypes()
{
    QFETCH(int, ofDevice);
    show({deviceOfType(ofDevice)});
    loadedDevice().m_iDriveAxies = 3;
    axesField()->setText("5");
    QVERIFY(callSlot(window(), "on_DriveAxies_editingFinished"));
    QCOMPARE(axes(), 0);
    QCOMPARE(axesField()->text(), QString("0x00"));
}

void tst_DriveAxesField::singleDriverForcesOneAxis()
{
    show({deviceOfType(KTL_DEVICE_TYPE_MultiDriver)});
    typeInto(axesField(), "9");
    choose(*part<QComboBox>(window(), "comboBox_DeviceType"), KTL_DEVICE_TYPE_SingleDriver);
    QCOMPARE(axes(), 1);
    QCOMPARE(axesField()->text(), QString("0x1"));
    QCOMPARE(axesField()->isEnabled(), false);
}

void tst_DriveAxesField::driveAxesNeedADevice_data()
{
    addSelectionsWithoutADevice();
}

void tst_DriveAxesField::driveAxesNeedADevice()
{
    struct_EtherCatDevice drive = deviceOfType(KTL_DEVICE_TYPE_MultiDriver);
    drive.m_iDriveAxies = 4;
    show({drive});
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    axesField()->setText("5");
    QVERIFY(callSlot(window(), "on_DriveAxies_editingFinished"));
    QCOMPARE(axes(), 4);
    QCOMPARE(axesField()->text(), QString("5"));
}

static const testMain::Registration<tst_DriveAxesField, QApplication> registration;
#include "tst_DriveAxesField.moc"
