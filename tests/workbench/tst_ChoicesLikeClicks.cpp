// A choices file gives the bytes that the same choices give by clicks and keys in the window, for each sample.
#include "testMain.h"
#include "workbench/windowAndCommand.h"

class tst_ChoicesLikeClicks : public WindowAndCommandFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void servoDrive();
    void dualAxisDrive();
    void dualAxisDriveModules();
    void dualAxisDriveAsIoBlock();
    void busCoupler();
    void busCouplerModules();
    void busCouplerAsSpecialDevice();
    void busCouplerModuleLinks();
    void busCouplerBecomesDriveAndCouplerAgain();
    void busCouplerWithoutModuleList();
    void busCouplerMinSizes();
    void busCouplerEntriesOfModules();
    void ioBlock();
    void ioBlockEntries();
    void modesOneAfterTheOther();
    void uncheckedStartupValues();
    void oversamplingTerminal();
    void severalFiles();
    void indexesOfDevicesInTurn();
    static void axesOfClicks_data();
    void axesOfClicks();
};

void tst_ChoicesLikeClicks::servoDrive()
{
    open(samplePath("servo-drive"));
    select(0);
    setDeviceType(2);
    setDriveAxes(QStringLiteral("3"));
    setOperationMode(2);
    setLink(0, 3, QStringLiteral("AOUT32 Type"));
    setLink(3, 7, QStringLiteral("DIN Type"));
    changeCommand(1, {QStringLiteral("#x6060"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("9")});
    addCommand(2, {QStringLiteral("0x2011"), QStringLiteral("7"), QStringLiteral("2"), QStringLiteral("500")});
    deleteCommand(5); // in the file it is row 4, before the new one
    changeCommand(37, {QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("65536")}); // EoE
    compareWithChoices({samplePath("servo-drive")}, R"({
        "device": "0x7e570001:0x10400", "deviceType": "MultiDriver", "driveAxes": 3, "dcMode": "SmSync",
        "links": [{"pdo": "0x1600", "entry": "0x607a:0", "link": "AOUT32"}, {"pdo": 3, "entry": 7, "link": "DIN"}],
        "startup": {
            "changed": [{"row": 1, "was": {"index": "#x6060"}, "data": 9},
                        {"row": 37, "subIndex": 3, "dataBytes": 4, "data": 65536}],
            "added": [{"behind": 2, "index": "0x2011", "subIndex": 7, "dataBytes": 2, "data": 500}],
            "removed": [{"row": 4, "was": {"comment": "Application tag of eight bytes"}}]}})");
}

void tst_ChoicesLikeClicks::dualAxisDrive()
{
    open(samplePath("dual-axis-drive"));
    select(0);
    setDeviceType(4);
    setLink(0, 0, QStringLiteral("AIN16 Type"));
    setLink(1, 1, QStringLiteral("AOUT32 Type"));
    changeCommand(0, {QStringLiteral("#x2001"), QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("3")});
    addCommand(1, {QStringLiteral("#x2002"), QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("4294967295")});
    deleteCommand(3); // row 2 of the file
    addCommand(3, {QStringLiteral("#x6072"), QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("1000")});
    changeCommand(5, {QStringLiteral("#x6860"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("10")});
    compareWithChoices({samplePath("dual-axis-drive")}, R"({
        "device": 1, "deviceType": 4, "dcMode": 0,
        "links": [{"pdo": 0, "entry": 0, "link": "AIN16"}, {"pdo": "0x1600", "entry": 1, "link": -8}],
        "startup": {
            "changed": [{"row": 0, "dataBytes": 2, "data": 3}, {"row": 4, "was": {"index": "0x6860"}, "data": 10}],
            "removed": [{"row": 2, "was": {"index": "0x1c13"}}],
            "added": [{"behind": 1, "index": "#x2002", "subIndex": 1, "dataBytes": 4, "data": 4294967295},
                      {"behind": 3, "index": "#x6072", "dataBytes": 2, "data": 1000}]}})");
}

void tst_ChoicesLikeClicks::dualAxisDriveModules()
{
    open(samplePath("dual-axis-drive"));
    select(0);
    insertModule(1, 0, 3);
    insertModule(3, 0, 3);
    insertModule(2, 0, 2);
    deleteModule(0);
    setDriveAxes(QStringLiteral("1"));
    setLink(1, 1, QStringLiteral("FAOUT Type"));
    compareWithChoices({samplePath("dual-axis-drive")}, R"({
        "device": 1, "driveAxes": 1,
        "modules": [{"place": 0, "module": null}, {"place": 1, "module": "0x20011"}, {"place": 2, "module": "CST"},
                    {"place": 3, "module": "ENC"}],
        "links": [{"pdo": 1, "object": "0x6871:0", "entry": 1, "link": "FAOUT"}]})");
}

/// A multi-axis drive whose axes are typed keeps them; another type takes its own, and so does the way back.
void tst_ChoicesLikeClicks::dualAxisDriveAsIoBlock()
{
    open(samplePath("dual-axis-drive"));
    select(0);
    setDeviceType(0);
    compareWithChoices({samplePath("dual-axis-drive")}, R"({"device": 1, "deviceType": "IOBlock"})");
}

void tst_ChoicesLikeClicks::busCoupler()
{
    const DialogAnswer ok = pressing(QMessageBox::Ok);
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(5, {ok});
    setLink(0, 3, QStringLiteral("AIN32 Type"));
    setLinks(2, {0, 15}, QStringLiteral("DIN Type"));
    changeCommand(0, {QStringLiteral("0x1c12"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("255")});
    addCommand(0, {QStringLiteral("f030"), QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("16")});
    deleteCommand(2); // row 1 of the file
    deleteCommand(3); // row 3 of the file
    compareWithChoices({samplePath("bus-coupler")}, R"({
        "device": "MB-C100 bus coupler for 16 modules", "deviceType": "ManualIOBlock",
        "links": [{"pdo": 0, "entry": 3, "link": "AIN32"}, {"pdo": 2, "entry": 0, "link": "DIN"},
                  {"pdo": 2, "entry": 15, "link": "DIN"}],
        "startup": {
            "changed": [{"row": 0, "data": 255}],
            "added": [{"behind": 0, "index": "0xf030", "subIndex": 1, "dataBytes": 4, "data": 16}],
            "removed": [{"row": 1}, {"row": 3, "was": {"index": "0x1c13", "subIndex": 2}}]}})");
}

void tst_ChoicesLikeClicks::busCouplerModules()
{
    const std::vector<DialogAnswer> ok{pressing(QMessageBox::Ok)};
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(5, ok);
    insertModule(5, 3, 1, ok);
    insertModule(2, 3, 0, ok);
    insertModule(1, 2, 1, ok);
    insertModule(15, 1, 0, ok);
    deleteModule(0);
    deleteModule(3);
    compareWithChoices({samplePath("bus-coupler")}, R"({
        "device": 1, "deviceType": 5,
        "modules": [{"place": 0, "module": null}, {"place": 1, "module": "MB-DO16"}, {"place": 2, "module": "MB-AI04"},
                    {"place": 3, "module": null}, {"place": 5, "module": "MB-AO04"},
                    {"place": 15, "module": "MB-DI08"}]})");
}

void tst_ChoicesLikeClicks::busCouplerAsSpecialDevice()
{
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(4);
    insertModule(3, 3, 1, {pressing(QMessageBox::Ok)});
    setLink(3, 2, QStringLiteral("DIN Type"));
    changeCommand(2, {QStringLiteral("#x8030"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("7")});
    compareWithChoices({samplePath("bus-coupler")}, R"({
        "device": 1, "deviceType": "Special", "modules": [{"place": 3, "module": "0x404"}],
        "links": [{"pdo": 3, "entry": 2, "link": "DIN"}],
        "startup": {"changed": [{"row": 2, "was": {"index": "0x8030", "subIndex": 1}, "data": 7}]}})");
}

/// A link of a module as the file declares it reaches the block of the module, and the module that is put in after it.
void tst_ChoicesLikeClicks::busCouplerModuleLinks()
{
    const std::vector<DialogAnswer> ok{pressing(QMessageBox::Ok)};
    open(samplePath("bus-coupler"));
    select(0);
    setModuleLink(3, 1, 0, 1, QStringLiteral("AOUT16 Type")); // MB-AO04
    setModuleLink(1, 1, 0, 15, QStringLiteral("DIN Type")); // MB-DI16, which is at place 1 already
    setDeviceType(5, ok);
    insertModule(2, 3, 1, ok);
    const QByteArray links = R"("moduleLinks": [{"module": "0x404", "pdo": "0x1600", "entry": 1, "link": "AOUT16"},
        {"module": "MB-DI16", "pdo": 0, "entry": "0x6000:16", "link": "DIN"}], )";
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "deviceType": 5, )" + links
                                                        + R"("modules": [{"place": 2, "module": "0x404"}]})");
    setDeviceType(4);
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "deviceType": 4, )" + links
                                                        + R"("modules": [{"place": 2, "module": "0x404"}]})");
    insertModule(1, 1, 1, ok); // put in again, it brings its link along
    compareWithChoices({samplePath("bus-coupler")},
                       R"({"device": 1, "deviceType": 4, )" + links
                           + R"("modules": [{"place": 2, "module": "0x404"}, {"place": 1, "module": "MB-DI16"}]})");
}

/// The type that the device has in the end is what counts.
void tst_ChoicesLikeClicks::busCouplerBecomesDriveAndCouplerAgain()
{
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(2);
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "deviceType": 2})");
    setDeviceType(3);
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "deviceType": 3})");
}

/// Without the list of modules there is no advice, neither on the type nor on a module.
void tst_ChoicesLikeClicks::busCouplerWithoutModuleList()
{
    open(samplePath("bus-coupler"));
    select(0);
    clickModuleList();
    setDeviceType(5);
    insertModule(2, 3, 1);
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "takesModuleList": false, "deviceType": 5,
                                                 "modules": [{"place": 2, "module": "0x404"}]})");
    clickModuleList();
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "takesModuleList": true, "deviceType": 5,
                                                 "modules": [{"place": 2, "module": "0x404"}]})");
}

void tst_ChoicesLikeClicks::busCouplerMinSizes()
{
    open(samplePath("bus-coupler"));
    select(0);
    setMinSize(2, QStringLiteral("64"));
    setMinSize(0, QStringLiteral("65535"));
    setMinSize(1, QStringLiteral("none")); // no number, so it becomes 0
    compareWithChoices({samplePath("bus-coupler")},
                       R"({"device": 1, "syncManagers": [{"syncManager": "Outputs", "minSize": 64},
                    {"syncManager": 1, "name": "MBoxIn", "minSize": 0}, {"syncManager": 0, "minSize": "0xFFFF"}]})");
}

/// The PDOs of modules come behind that of the coupler: the power feed, the inputs, and the new outputs before both.
void tst_ChoicesLikeClicks::busCouplerEntriesOfModules()
{
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(4);
    insertModule(3, 3, 1, {pressing(QMessageBox::Ok)});
    addEntry(1, 3, QStringLiteral("AOUT16 Type"));
    deleteEntry(1, 0);
    setLink(3, 15, QStringLiteral("DIN Type"));
    addEntry(3, 15, QStringLiteral("ENCODER32 Type"));
    deleteEntry(3, 3);
    compareWithChoices({samplePath("bus-coupler")}, R"({
        "device": 1, "deviceType": "Special", "modules": [{"place": 3, "module": "0x404"}],
        "links": [{"pdo": 3, "entry": 15, "link": "DIN"}],
        "entries": {"removed": [{"pdo": 1, "entry": 0}, {"pdo": 3, "entry": 3}],
                    "added": [{"pdo": 1, "behind": 3, "link": "AOUT16"}, {"pdo": 3, "behind": 15, "link": -10}]}})");
}

void tst_ChoicesLikeClicks::ioBlock()
{
    open(samplePath("io-block"));
    select(0);
    setDeviceType(1);
    setLink(0, 1, QStringLiteral("DOUT Type"));
    select(1);
    setLinks(1, {4, 5}, QStringLiteral("AIN16 Type"));
    compareWithChoices({samplePath("io-block")}, R"(
        {"device": 1, "deviceType": 1, "links": [{"pdo": "0x1600", "entry": "0x7000:2", "link": "DOUT"}]},
        {"device": 2, "links": [{"pdo": 1, "entry": 4, "name": "Actual value", "link": "AIN16"},
                                {"pdo": 1, "entry": 5, "name": "Raw value", "link": "AIN16"}]})");
}

/// The entry that is added last stands first, and all entries of a PDO can go.
void tst_ChoicesLikeClicks::ioBlockEntries()
{
    open(samplePath("io-block"));
    select(0);
    addEntry(0, 0, QStringLiteral("DOUT Type"));
    addEntry(0, 0, QStringLiteral("AOUT16 Type"));
    addEntry(0, 3, QStringLiteral("NONE Type"));
    deleteEntry(0, 0);
    deleteEntry(1, 1);
    deleteEntry(1, 0);
    compareWithChoices({samplePath("io-block")}, R"({"device": 1, "entries": {
        "removed": [{"pdo": 0, "entry": 0}, {"pdo": 1, "entry": 0}, {"pdo": 1, "entry": 1}],
        "added": [{"pdo": 0, "behind": 0, "link": "AOUT16"}, {"pdo": 0, "behind": 0, "link": "DOUT"},
                  {"pdo": 0, "behind": 1}]}})");
}

void tst_ChoicesLikeClicks::modesOneAfterTheOther()
{
    open(samplePath("servo-drive"));
    select(0);
    setOperationMode(2);
    setOperationMode(1);
    setOperationMode(2);
    compareWithChoices({samplePath("servo-drive")}, R"({"device": 1, "dcMode": [2, "DcSync01", 2]})");
}

/// What is typed is cut to the width of its field, and need not agree: rows of the coupler, and one of its modules.
void tst_ChoicesLikeClicks::uncheckedStartupValues()
{
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(4);
    changeCommand(0, {QStringLiteral("#x1c12"), QStringLiteral("258"), QStringLiteral("1"), QStringLiteral("65535")});
    changeCommand(2, {QStringLiteral("#x1c13"), QStringLiteral("513"), QStringLiteral("9"), QStringLiteral("1")});
    addCommand(1, {QStringLiteral("0x2000"), QStringLiteral("65535"), QStringLiteral("65535"), QStringLiteral("1")});
    compareWithChoices({samplePath("bus-coupler")}, R"({"device": 1, "deviceType": 4, "startup": {
        "changed": [{"row": 0, "subIndex": 258, "data": 65535, "unchecked": true},
                    {"row": 2, "index": "0x1c13", "subIndex": 513, "dataBytes": 9, "data": 1, "unchecked": true}],
        "added": [{"behind": 1, "index": "0x2000", "subIndex": 65535, "dataBytes": 65535, "data": 1,
                   "unchecked": true}]}})");
}

void tst_ChoicesLikeClicks::oversamplingTerminal()
{
    open(samplePath("oversampling-terminal"));
    select(0);
    setDeviceType(3);
    setOperationMode(2);
    setLink(2, 0, QStringLiteral("AOUT16 Type"));
    select(1);
    setDeviceType(2);
    setDriveAxes(QStringLiteral("#x12"));
    setOperationMode(1);
    setLink(4, 1, QStringLiteral("ENCODER32 Type"));
    compareWithChoices({samplePath("oversampling-terminal")}, R"(
        {"device": 1, "deviceType": 3, "dcMode": 2, "links": [{"pdo": 2, "entry": 0, "link": "AOUT16"}]},
        {"device": 2, "deviceType": 2, "driveAxes": "#x12", "dcMode": "4 samples per cycle",
         "links": [{"pdo": 4, "entry": 1, "link": "ENCODER32"}]})");
}

/// Some devices are clicked, in another order than that of the files, and others are not.
void tst_ChoicesLikeClicks::severalFiles()
{
    const QStringList files{samplePath("dual-axis-drive"), samplePath("bus-coupler"), samplePath("io-block")};
    for (const QString& file : files)
        open(file);
    select(1, 2);
    setDeviceType(4);
    select(0, 0);
    compareWithChoices(files, R"({"device": 4, "deviceType": 4}, {"device": 1})");
    select(0, 1);
    compareWithChoices(files, R"({"device": 4, "deviceType": 4}, {"device": 1}, {"device": 2})");
}

/// Typed module indexes are stored when another device is clicked; they must not reach that one.
void tst_ChoicesLikeClicks::indexesOfDevicesInTurn()
{
    open(samplePath("bus-coupler"));
    open(samplePath("io-block"));
    select(0, 0);
    part<QLineEdit>(*m_window, "ConfigModuleEdit")->setText(QStringLiteral("#xF030"));
    part<QLineEdit>(*m_window, "DetectModuleEdit")->setText(QStringLiteral("0xF050"));
    select(0, 1);
    QCOMPARE(int(g_xmlfiledevices[0].device[0].configindex), 0xF030);
    compareWithChoices({samplePath("bus-coupler"), samplePath("io-block")},
                       R"({"device": 1, "configIndex": "#xF030", "detectIndex": "0xF050"}, {"device": 2})");
}

void tst_ChoicesLikeClicks::axesOfClicks_data()
{
    QTest::addColumn<QList<int>>("clicked");
    QTest::addColumn<QString>("axes"); // of all devices
    QTest::addRow("none") << QList<int>{} << "1 1 1";
    QTest::addRow("the type of the list at the start") << QList<int>{0} << "1 1 1";
    QTest::addRow("another type, then back") << QList<int>{1, 0} << "0 0 1";
    QTest::addRow("the same type in turn") << QList<int>{1, 2} << "1 0 1";
    QTest::addRow("in the other order") << QList<int>{2, 1} << "1 1 0";
    QTest::addRow("all") << QList<int>{0, 1, 2} << "1 0 1";
}

/// The second profile number sets the type and leaves the axis of the first: a block and two special devices with one
/// axis each. Whether a click takes it depends on the device that was clicked before.
void tst_ChoicesLikeClicks::axesOfClicks()
{
    QFETCH(QList<int>, clicked);
    QFETCH(QString, axes);
    const auto device = [](int profile) {
        return QStringLiteral("<Device><Type>T</Type><Profile><ProfileNo>402</ProfileNo></Profile>"
                              "<Profile><ProfileNo>%1</ProfileNo></Profile></Device>")
            .arg(profile);
    };
    openText(QStringLiteral("profiles.xml"),
             QStringLiteral("<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>") + device(0)
                 + device(100) + device(100) + QStringLiteral("</Devices></Descriptions></EtherCATInfo>"));
    QByteArrayList choices;
    for (const int number : clicked) {
        select(number);
        choices += "{\"device\": " + QByteArray::number(number + 1) + '}';
    }
    compareWithChoices({QDir(m_folder->path()).filePath(QStringLiteral("profiles.xml"))}, choices.join(','));
    QString problem;
    QStringList written;
    for (const KtlItem& item : itemsOf(contentOfFile(m_command), &problem))
        if (item.type == 40000)
            written += QString::number(item.u16(48));
    QCOMPARE(written.join(QLatin1Char(' ')), axes);
}

static const testMain::Registration<tst_ChoicesLikeClicks, QApplication> registration;
#include "tst_ChoicesLikeClicks.moc"
