// The CoE tab: what it shows of the dictionary of the device that is clicked.
// Covers dictionaryTree.cpp, mainwindow_coe.cpp.
#include "model/dictionaryBuilders.h"
#include "testMain.h"
#include "workbench/coeTreeParts.h"
#include "workbench/dictionaryReference.h"
#include "workbench/elision.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QTabWidget>

#include <limits>
#include <memory>
#include <random>

using Objects = QVector<ShownObject>;

Q_DECLARE_METATYPE(DeviceDictionary)
Q_DECLARE_METATYPE(Objects)

class tst_CoeTab : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    static void tree_data();
    void tree();
    void randomDictionaries();
    void objectsAreExpanded();
    void rowsAreReadOnly();
    void fillKeepsTheWidths();
    static void indexesAreNotCutOff_data();
    void indexesAreNotCutOff();
    void dictionaryOfThePreviousDeviceGoes();
    void fileShowsNothing();
    static void harmfulDictionaries_data();
    void harmfulDictionaries();

private:
    [[nodiscard]] QTreeWidget* coeTree() const { return part<QTreeWidget>(*m_window, "CoeTree"); }
    void show(const DeviceDictionary& dictionary) { clickDeviceWith(*m_window, dictionary); }
    [[nodiscard]] Objects shown() const;

    std::unique_ptr<MainWindow> m_window;
    const QFont m_fontBefore = QApplication::font();
};

void tst_CoeTab::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_CoeTab::cleanup()
{
    m_window.reset();
    resetModel();
    QApplication::setFont(m_fontBefore);
}

Objects tst_CoeTab::shown() const
{
    Objects objects;
    for (int row = 0; row < coeTree()->topLevelItemCount(); ++row)
        objects << shownObject(coeTree()->topLevelItem(row));
    return objects;
}

/// An object with defaults of its own.
static struct_Object withOwnDefault(struct_Object object, std::uint32_t number, const std::string& text)
{
    object.Info.DefaultValue = number;
    object.Info.DefaultString = text;
    return object;
}

/// Widths of the first columns.
static QVector<int> widthsOf(const QTreeWidget& tree, int columns)
{
    QVector<int> widths;
    for (int column = 0; column < columns; ++column)
        widths << tree.columnWidth(column);
    return widths;
}

static void addObjectsAndArrays()
{
    QTest::addRow("empty dictionary, as of a device from a KTL file") << DeviceDictionary{} << Objects{};
    QTest::addRow("data types alone") << DeviceDictionary{{array("DT1", 1, 4)}, {}} << Objects{};
    QTest::addRow("simple type") << DeviceDictionary{{sized("UDINT", 32)},
                                                     {withOwnDefault(object(0x1000, "UDINT", "Device type"), 0x20192,
                                                                     "unused")}}
                                 << Objects{{{"0x1000:0", "Device type", "ro", "32", "UDINT", "131474"}, {}}};
    QTest::addRow("text") << DeviceDictionary{{}, {withOwnDefault(object(0x1008, "STRING(12)", "Name"), 5, "电机")}}
                          << Objects{{{"0x1008:0", "Name", "ro", "32", "STRING(12)", "电机"}, {}}};
    QTest::addRow("array from 1 to 4") << DeviceDictionary{{array("DT1003ARR", 1, 4, "UINT"), sized("UINT", 16)},
                                                           {withOwnDefault(object(0x1003, "DT1003ARR", "Errors"), 9,
                                                                           "")}}
                                       << Objects{{{"0x1003:0", "Errors", "ro", "32", "", "9"},
                                                   {{"0x1003:1", "SubIndex 1", "ro", "16", "UINT"},
                                                    {"0x1003:2", "SubIndex 2", "ro", "16", "UINT"},
                                                    {"0x1003:3", "SubIndex 3", "ro", "16", "UINT"},
                                                    {"0x1003:4", "SubIndex 4", "ro", "16", "UINT"}}}};
    QTest::addRow("array with the lower bound above the elements")
        << DeviceDictionary{{array("DT1003ARR", 5, 4)}, {object(0x1003, "DT1003ARR")}}
        << Objects{{{"0x1003:0", "object", "ro", "32", "", "0"}, {}}};
}

static void addRecords()
{
    const DataTypeSubItem count = subItem(0, "USINT", "count");
    QTest::addRow("record, its count on the object")
        << DeviceDictionary{{record("DT1018", {count, subItem(1, "UDINT", "Vendor"), subItem(2, "STRING(4)", "Text")})},
                            {objectWithDefaults(0x1018, "DT1018", {2, 17, 18})}}
        << Objects{{{"0x1018:0", "object", "ro", "32", "", "2"},
                    {{"0x1018:1", "Vendor", "rw", "16", "UDINT", "17"},
                     {"0x1018:2", "Text", "rw", "16", "STRING(4)", "text 18"}}}};
    QTest::addRow("count that is a text")
        << DeviceDictionary{{record("DT1018", {subItem(0, "STRING(1)")})}, {objectWithDefaults(0x1018, "DT1018", {2})}}
        << Objects{{{"0x1018:0", "object", "ro", "32", "", "text 2"}, {}}};
    QTest::addRow("count without a sub-item in the object")
        << DeviceDictionary{{record("DT1018", {subItem(4, "USINT"), subItem(1, "UINT")}),
                             record("DT1", {subItem(0, "STRING(1)")})},
                            {withOwnDefault(objectWithDefaults(0x1018, "DT1018", {2, 3}), 77, "own"),
                             withOwnDefault(object(1, "DT1"), 77, "own")}}
        << Objects{{{"0x1018:0", "object", "ro", "32", "", "0"}, {{"0x1018:1", "item", "rw", "16", "UINT", "3"}}},
                   {{"0x1:0", "object", "ro", "32", "", ""}, {}}};
    QTest::addRow("values come from the object in the name of the type")
        << DeviceDictionary{{record("DT1C12", {count, subItem(1, "UINT", "a")})},
                            {objectWithDefaults(0x1C13, "DT1C12", {5, 6}), objectWithDefaults(0x1C12, "UINT", {1, 2})}}
        << Objects{{{"0x1c13:0", "object", "ro", "32", "", "1"}, {{"0x1c13:1", "a", "rw", "16", "UINT", "2"}}},
                   {{"0x1c12:0", "object", "ro", "32", "UINT", "0"}, {}}};
    QTest::addRow("name without a number, no object 0")
        << DeviceDictionary{{record("IdentityDT", {count, subItem(1, "UINT", "a")})},
                            {objectWithDefaults(0x1018, "IdentityDT", {5, 6})}}
        << Objects{{{"0x1018:0", "object", "ro", "32", "", "0"}, {{"0x1018:1", "a", "rw", "16", "UINT", "0"}}}};
    QTest::addRow("name without a number, object 0 is there")
        << DeviceDictionary{{record("IdentityDT", {count, subItem(1, "UINT", "a")})},
                            {objectWithDefaults(0x1018, "IdentityDT", {5, 6}), objectWithDefaults(0, "BOOL", {7, 8})}}
        << Objects{{{"0x1018:0", "object", "ro", "32", "", "7"}, {{"0x1018:1", "a", "rw", "16", "UINT", "8"}}},
                   {{"0x00:0", "object", "ro", "32", "BOOL", "0"}, {}}};
    QTest::addRow("record within a record hangs under the same object and puts its count there")
        << DeviceDictionary{{record("DT1600", {count, subItem(1, "DT1601"), subItem(2, "UINT", "b")}),
                             record("DT1601", {count, subItem(1, "UINT", "a")})},
                            {objectWithDefaults(0x1600, "DT1600", {2, 3, 4}),
                             objectWithDefaults(0x1601, "BOOL", {5, 6})}}
        << Objects{{{"0x1600:0", "object", "ro", "32", "", "5"},
                    {{"0x1600:1", "a", "rw", "16", "UINT", "6"}, {"0x1600:2", "b", "rw", "16", "UINT", "4"}}},
                   {{"0x1601:0", "object", "ro", "32", "BOOL", "0"}, {}}};
}

void tst_CoeTab::tree_data()
{
    QTest::addColumn<DeviceDictionary>("dictionary");
    QTest::addColumn<Objects>("expected");
    addObjectsAndArrays();
    addRecords();
}

void tst_CoeTab::tree()
{
    QFETCH(DeviceDictionary, dictionary);
    QFETCH(Objects, expected);
    show(dictionary);
    const Objects found = shown();
    QCOMPARE(found.size(), expected.size());
    for (int row = 0; row < expected.size(); ++row) {
        QCOMPARE(found[row].texts, expected[row].texts);
        QCOMPARE(found[row].children, expected[row].children);
    }
    QVERIFY(DictionaryReference(dictionary).objects() == expected); // the reference below knows the rules too
}

/// Small dictionaries with names that meet often: types that name each other and themselves, names and indexes that are
/// there twice, look-ups that fail.
static DeviceDictionary randomDictionary(std::mt19937& generator)
{
    const auto below = [&](unsigned int limit) { return static_cast<std::uint32_t>(generator() % limit); };
    const char* const names[] = {"DT1", "DT2", "DT1C12", "xDT", "DT3STRING", "UINT", "STRING(4)", "BOOL", ""};
    const auto name = [&] { return std::string(names[below(9)]); };
    const std::uint16_t indexes[] = {0, 1, 2, 3, 0x1C12};
    const NMTOKEN rights[] = {ro, rw, wo, UnknownType};
    DeviceDictionary dictionary;
    for (std::uint32_t left = below(8); left > 0; --left) {
        struct_DataTypes dataType = sized(name(), static_cast<int>(below(64)));
        dataType.BaseType = name();
        for (std::uint32_t items = below(4); items > 0; --items) {
            dataType.vsubitem.push_back(subItem(below(5), name(), "item " + std::to_string(below(100))));
            dataType.vsubitem.back().flag.Access = rights[below(4)];
        }
        for (std::uint32_t bounds = below(3); bounds > 0; --bounds)
            dataType.varrayinfo.push_back({static_cast<int>(below(5)) - 2, static_cast<int>(below(5)) - 1});
        dictionary.vdatatype.push_back(dataType);
    }
    for (std::uint32_t left = below(6); left > 0; --left) {
        std::vector<std::uint32_t> defaults(below(5));
        for (std::uint32_t& number : defaults)
            number = below(1000);
        dictionary.vobject.push_back(objectWithDefaults(indexes[below(5)], name(), defaults));
        dictionary.vobject.back().flags.Access = rights[below(4)];
    }
    return dictionary;
}

void tst_CoeTab::randomDictionaries()
{
    constexpr int dictionaries = 500;
    std::mt19937 generator(20240929);
    int rows = 0;
    g_xmlfiledevices = {fileWith("a.xml", {"Drive"})};
    currentfileindex = 0;
    currentdeviceindex = 0;
    for (int number = 0; number < dictionaries; ++number) {
        DeviceDictionary& dictionary = g_xmlfiledevices[0].device[0].Dictionary;
        dictionary = randomDictionary(generator);
        QVERIFY(callSlot(*m_window, "device_CoE_display"));
        const Objects expected = DictionaryReference(dictionary).objects();
        QVERIFY2(shown() == expected, qPrintable(QStringLiteral("dictionary %1").arg(number)));
        for (const ShownObject& object : expected)
            rows += object.children.size();
    }
    QVERIFY(rows > dictionaries); // or the dictionaries would show little
}

void tst_CoeTab::objectsAreExpanded()
{
    show({{array("DT1", 1, 2)}, {object(0x1000, "DT1"), object(0x1001, "UINT"), object(0x1002, "DT1")}});
    for (int row = 0; row < 3; ++row)
        QVERIFY(coeTree()->topLevelItem(row)->isExpanded());
    QVERIFY(!coeTree()->topLevelItem(0)->child(0)->isExpanded());
}

void tst_CoeTab::rowsAreReadOnly()
{
    show({{array("DT1", 1, 2)}, {object(0x1000, "DT1")}});
    QVERIFY(!coeTree()->topLevelItem(0)->flags().testFlag(Qt::ItemIsEditable));
    QVERIFY(!coeTree()->topLevelItem(0)->child(0)->flags().testFlag(Qt::ItemIsEditable));
}

void tst_CoeTab::fillKeepsTheWidths()
{
    show({{array("DT1", 250, 255)}, {object(0xDDDD, "DT1", "a name that needs more room than its column has")}});
    QCOMPARE(widthsOf(*coeTree(), 4), QVector<int>({120, 250, 80, 80}));
    const QVector<int> dragged{40, 300, 50, 90, 30, 60}; // narrower and wider than what is in them
    for (int column = 0; column < dragged.size(); ++column)
        coeTree()->setColumnWidth(column, dragged[column]);
    const QVector<int> before = widthsOf(*coeTree(), 6); // the last one takes what room is left
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QCOMPARE(widthsOf(*coeTree(), 6), before);
    QCOMPARE(widthsOf(*coeTree(), 5), dragged.mid(0, 5));
}

void tst_CoeTab::indexesAreNotCutOff_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {8, 12, 14, 20, 30})
        QTest::addRow("%d point", points) << points;
}

void tst_CoeTab::indexesAreNotCutOff()
{
    QFETCH(int, points);
    QApplication::setFont(QFont(m_fontBefore.family(), points));
    show({{array("DT1", 250, 255)}, {object(0xDDDD, "DT1")}});
    part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(4);
    QTreeWidget& tree = *coeTree();
    const QModelIndex index = tree.model()->index(5, 0, tree.model()->index(0, 0));
    QCOMPARE(index.data().toString(), QStringLiteral("0xdddd:255"));
    QVERIFY(!isElided(tree, index));
    QVERIFY(tree.font().pointSize() <= points);
    tree.setColumnWidth(0, 60);
    QVERIFY(isElided(tree, index)); // or the check above would show nothing
}

void tst_CoeTab::dictionaryOfThePreviousDeviceGoes()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"})};
    g_xmlfiledevices[0].device[0].Dictionary.vobject = {object(0x1000, "UINT"), object(0x1001, "UINT")};
    g_xmlfiledevices[0].device[1].Dictionary.vobject = {object(0x1002, "UINT")};
    m_window->DeviceDisplayUpdate();
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(coeTree()->topLevelItemCount(), 1);
    QCOMPARE(coeTree()->topLevelItem(0)->text(0), QStringLiteral("0x1002:0"));
    QVERIFY(callSlot(*m_window, "device_CoE_display")); // a fill by itself empties the tree first
    QCOMPARE(coeTree()->topLevelItemCount(), 1);
}

void tst_CoeTab::fileShowsNothing()
{
    show({{}, {object(0x1000, "UINT")}});
    clickItem(*m_window, treeItem(*m_window, 0));
    QCOMPARE(coeTree()->topLevelItemCount(), 0);
}

void tst_CoeTab::harmfulDictionaries_data()
{
    QTest::addColumn<DeviceDictionary>("dictionary");
    QTest::addColumn<int>("rows");
    const DataTypeSubItem count = subItem(0, "USINT");
    const DataTypeSubItem row = subItem(1, "UINT");
    const std::vector<struct_Object> objects{object(0x1000, "DT1")};
    QTest::addRow("type that names itself")
        << DeviceDictionary{{record("DT1", {count, subItem(1, "DT1"), row})}, objects} << 1;
    QTest::addRow("types that name each other") << DeviceDictionary{
        {record("DT1", {count, subItem(1, "DT2"), row}), record("DT2", {count, subItem(1, "DT1"), row, row})},
        objects} << 3;
    constexpr int largest = std::numeric_limits<int>::max();
    QTest::addRow("billions of elements") << DeviceDictionary{{array("DT1", -largest, largest)}, objects} << 65'536;
    DeviceDictionary longChain{{}, objects};
    constexpr int length = 100'000;
    for (int number = 1; number < length; ++number)
        longChain.vdatatype.push_back(
            record("DT" + std::to_string(number), {count, subItem(1, "DT" + std::to_string(number + 1)), row}));
    QTest::addRow("long chain of names") << longChain << 65'536;
    longChain.vdatatype.resize(50'000); // the last one names a type that is not there
    QTest::addRow("half of it") << longChain << 50'000;
}

void tst_CoeTab::harmfulDictionaries()
{
    QFETCH(DeviceDictionary, dictionary);
    QFETCH(int, rows);
    show(dictionary);
    QCOMPARE(coeTree()->topLevelItemCount(), 1);
    QCOMPARE(coeTree()->topLevelItem(0)->childCount(), rows);
}

static const testMain::Registration<tst_CoeTab, QApplication> registration;
#include "tst_CoeTab.moc"
