// Files made to do harm, or damaged: each ends in the stated way, soon, in little memory, and what was loaded before
// stays.
#include "esi/hostileFile.h"
#include "testMain.h"

#include <QtTest>

#include <sys/resource.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

class tst_HostileEsi : public QObject
{
    Q_OBJECT

private slots:
    static void init();
    static void noXml_data();
    static void noXml();
    static void bombs_data();
    static void bombs();
    static void largeButHarmless_data();
    static void largeButHarmless();
    static void oddBytes_data();
    static void oddBytes();
    static void oddValues_data();
    static void oddValues();
    static void unknownSyncManagers_data();
    static void unknownSyncManagers();
    static void slotsInNumbers();
    static void endlessOversampling();
    static void externalFileIsNotRead();
    static void truncatedAnywhere();
    static void oneByteChanged();
    static void cleanupTestCase();
};

namespace {

/// Bytes without any order, the same on each run.
QByteArray noise(int length)
{
    QByteArray bytes;
    std::uint32_t state = 1;
    for (int i = 0; i < length; ++i) {
        state = state * 1664525U + 1013904223U;
        bytes += static_cast<char>(state >> 24U);
    }
    return bytes;
}

} // namespace

void tst_HostileEsi::init()
{
    loadOneBefore();
}

void tst_HostileEsi::noXml_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const QString noElement = QStringLiteral("error occurred while parsing element");
    const QString noEnd = QStringLiteral("unexpected end of file");
    QTest::addRow("nothing") << QByteArray() << noEnd;
    QTest::addRow("a byte order mark only") << QByteArray("\xEF\xBB\xBF") << noEnd;
    QTest::addRow("blanks only") << QByteArray(100000, ' ') << noEnd;
    QTest::addRow("zeros") << QByteArray(1000000, '\0') << noElement;
    QTest::addRow("noise") << noise(1000000) << noElement;
    QTest::addRow("a program") << "\177ELF" + noise(10000) << noElement;
    QTest::addRow("a comment that never ends") << "<!--" + QByteArray(1000000, 'x') << noEnd;
    QTest::addRow("elements that never end") << "<EtherCATInfo>" + QByteArray("<a>").repeated(900) << noEnd;
    QTest::addRow("an attribute that never ends") << "<EtherCATInfo k='" + QByteArray(1000000, 'x') << noEnd;
    QTest::addRow("end tags only") << QByteArray("</a>").repeated(100000) << noElement;
}

void tst_HostileEsi::noXml()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const Ending ending = load(content);
    QVERIFY(ending.status == EsiLoadStatus::NotWellFormed);
    QCOMPARE(ending.error.text, message);
    QVERIFY(ending.error.line >= 1);
}

/// Files with a document type that multiplies what is in them, or never ends.
static void addDocumentTypeBombs()
{
    const QString tooLong = QStringLiteral("the document type declaration is longer than 4096 characters");
    const QString nested = QStringLiteral("the document type declaration has more than 4 references to entities");
    const QString parameter = QStringLiteral("the document type declaration refers to a parameter entity");
    const QString references = QStringLiteral("a file that declares entities has more than 250 references to entities");
    const QString recursive = QStringLiteral("recursive entities");
    const QByteArray threeThousand(3000, 'x');
    const QByteArray tenTimes = QByteArray("&x%2;").repeated(10);

    QTest::addRow("entities that multiply a text")
        << withDocumentType("<!ENTITY x0 'lol'>" + numbered("<!ENTITY x%1 '" + tenTimes + "'>", 1, 9), "&x9;")
        << nested;
    QTest::addRow("entities that multiply nothing")
        << withDocumentType("<!ENTITY x0 ''>" + numbered("<!ENTITY x%1 '" + tenTimes + "'>", 1, 9), "&x9;") << nested;
    QTest::addRow("entities that multiply after a number") << withDocumentType(
        "<!ENTITY x '" + threeThousand + "'><!ENTITY y '" + QByteArray("&#38;x;").repeated(100) + "'>", "&y;")
                                                           << nested;
    QTest::addRow("one long entity many times")
        << withDocumentType("<!ENTITY x '" + threeThousand + "'>", QByteArray("&x;").repeated(100000)) << references;
    QTest::addRow("one long entity many times in an attribute") << withDocumentType(
        "<!ENTITY x '" + threeThousand + "'>", "</Name><Sm k='" + QByteArray("&x;").repeated(100000) + "'/><Name>")
                                                                << references;
    QTest::addRow("elements in an entity many times") << withDocumentType(
        "<!ENTITY x '" + QByteArray("<a/>").repeated(1000) + "'>", QByteArray("&x;").repeated(10000))
                                                      << references;
    QTest::addRow("an entity in itself") << withDocumentType("<!ENTITY x '&x;'>", "&x;") << recursive;
    QTest::addRow("two entities in each other")
        << withDocumentType("<!ENTITY x '&y;'><!ENTITY y '&x;'>", "&x;") << recursive;
    QTest::addRow("parameter entities that multiply")
        << withDocumentType("<!ENTITY % x0 '" + threeThousand + "'><!ENTITY % y '%x0;%x0;%x0;'>%y;%y;", "")
        << parameter;
    QTest::addRow("a parameter entity that hides the end")
        << "<!DOCTYPE a [<!ENTITY % p '&#60;!-- '>%p;]><a> -->" + QByteArray("<!ENTITY x 'y'>").repeated(10000)
               + "]><a>&x;</a>"
        << parameter;
    QTest::addRow("parentheses") << withDocumentType(
        "<!ELEMENT a " + QByteArray(100000, '(') + "b" + QByteArray(100000, ')') + ">", "")
                                 << tooLong;
    QTest::addRow("parentheses never closed") << "<!DOCTYPE a [<!ELEMENT a " + QByteArray(1000000, '(') << tooLong;
    QTest::addRow("entities in numbers") << withDocumentType(numbered("<!ENTITY x%1 'y'>", 1, 20000), "&x1;")
                                         << tooLong;
    QTest::addRow("attribute lists in numbers")
        << withDocumentType(numbered("<!ATTLIST a k%1 CDATA '1'>", 1, 20000), "") << tooLong;
    QTest::addRow("a document type without end") << "<!DOCTYPE a [" + QByteArray(10000000, ' ') << tooLong;
}

void tst_HostileEsi::bombs_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const QString tooDeep = QStringLiteral("elements are nested deeper than 1000");
    const QString attributes = QStringLiteral("an element has more than 100 attributes");
    const QString prefixes = QStringLiteral("the file has more than 16 namespace prefixes");
    const QString nodes = QStringLiteral("the file has more than 2500000 elements, attributes and comments");
    const QString devices = QStringLiteral("the file has more than 100000 devices");
    const QString modules = QStringLiteral("the file has more than 500000 modules");

    QTest::addRow("deep nesting") << inDevice(QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000))
                                  << tooDeep;
    QTest::addRow("deep nesting never closed") << QByteArray("<a>").repeated(1000000) << tooDeep;
    QTest::addRow("deep nesting by an entity")
        << withDocumentType("<!ENTITY x '" + QByteArray("<a>").repeated(1000) + "'>", "&x;") << tooDeep;
    QTest::addRow("attributes") << inDevice("<Sm" + numbered(" k%1='1'", 1, 100000) + "/>") << attributes;
    QTest::addRow("one attribute repeated")
        << inDevice("<Sm" + QByteArray(" k='1'").repeated(100000) + "/>") << attributes;
    QTest::addRow("namespaces") << inDevice("<Sm" + numbered(" xmlns:k%1='urn:%1'", 1, 100000) + "/>") << prefixes;
    QTest::addRow("namespaces one by one") << inDevice(numbered("<Sm xmlns:k%1='urn:%1'/>", 1, 100000)) << prefixes;
    QTest::addRow("comments in numbers") << QByteArray("<!---->").repeated(3000000) << nodes;
    QTest::addRow("elements in numbers") << inDevice(QByteArray("<a/>").repeated(3000000)) << nodes;
    QTest::addRow("sections in devices in each other")
        << QByteArray("<Device>").repeated(8) + QByteArray("<Sm/>").repeated(1000000) << nodes;
    QTest::addRow("slots in lists in each other")
        << inDevice(QByteArray("<Slots><aDevice>").repeated(8) + QByteArray("<Slot/>").repeated(1000000)) << nodes;
    QTest::addRow("devices in numbers") << QByteArray("<a>") + QByteArray("<Device/>").repeated(200000) << devices;
    QTest::addRow("modules in numbers") << "<Modules>" + QByteArray("<Module/>x").repeated(1000000) << modules;
    addDocumentTypeBombs();
}

void tst_HostileEsi::bombs()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const Ending ending = load(content);
    QVERIFY(ending.status == EsiLoadStatus::NotWellFormed);
    QCOMPARE(ending.error.text, message);
    QCOMPARE(ending.error.line, 1);
    QVERIFY(ending.error.column >= 1);
}

void tst_HostileEsi::largeButHarmless_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addRow("a comment") << inDevice("<!--" + QByteArray(sized(50000000), 'x') + "-->");
    QTest::addRow("an attribute") << inDevice("<Sm k='" + QByteArray(sized(50000000), 'x') + "'/>");
    QTest::addRow("a name of an element") << inDevice("<" + QByteArray(sized(5000000), 'x') + "/>");
    QTest::addRow("an instruction") << inDevice("<?p " + QByteArray(sized(20000000), 'x') + "?>");
    QTest::addRow("a text in CDATA") << inDevice("<Type><![CDATA[" + QByteArray(sized(20000000), 'x') + "]]></Type>");
    QTest::addRow("line ends") << inDevice(QByteArray(sized(20000000), '\n'));
    QTest::addRow("blanks in a tag") << inDevice("<Sm" + QByteArray(sized(20000000), ' ') + "/>");
    QTest::addRow("a million children") << inDevice(QByteArray("<b/>").repeated(sized(1000000)));
    QTest::addRow("instructions in numbers") << inDevice(QByteArray("<?p x?>").repeated(sized(100000)));
    QTest::addRow("comments before the root") << QByteArray("<!---->").repeated(sized(100000)) + inDevice({});
    QTest::addRow("references to characters in numbers")
        << inDevice("<Type>" + QByteArray("&#65;").repeated(sized(500000)) + "</Type>");
    QTest::addRow("undeclared entities in numbers")
        << inDevice("<Type>" + QByteArray("&u;").repeated(sized(100000)) + "</Type>");
    QTest::addRow("names of elements in numbers") << inDevice(numbered("<b%1/>", 1, sized(100000)));
    QTest::addRow("sync managers in numbers") << inDevice(QByteArray("<Sm>Outputs</Sm>").repeated(sized(100000)));
    QTest::addRow("groups of modules in numbers")
        << "<EtherCATInfo><Vendor/><Device><Name/></Device><Descriptions><Modules>"
               + QByteArray("<!--c--><Module/>x<Other/>").repeated(sized(50000))
               + "</Modules></Descriptions></EtherCATInfo>";
}

void tst_HostileEsi::largeButHarmless()
{
    QFETCH(QByteArray, content);
    QVERIFY(load(content).status == EsiLoadStatus::Loaded);
    QVERIFY(!g_xmlfiledevices.at(1).device.empty());
}

void tst_HostileEsi::oddBytes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("status");
    const int loaded = static_cast<int>(EsiLoadStatus::Loaded);
    const int malformed = static_cast<int>(EsiLoadStatus::NotWellFormed);
    QTest::addRow("UTF-8 cut short in a name") << inDevice("<Name>\xE4\xBC</Name>") << loaded;
    QTest::addRow("a zero in a name") << inDevice(QByteArray("<Name>a\0b</Name>", 16)) << loaded;
    QTest::addRow("a zero before the root") << QByteArray(1, '\0') + inDevice({}) << malformed;
    QTest::addRow("noise in a text") << inDevice("<Name>" + noise(100000).replace('<', '_').replace('&', '_')
                                                 + "</Name>")
                                     << loaded;
    QTest::addRow("unknown encoding") << "<?xml version='1.0' encoding='NONE'?>" + inDevice({}) << loaded;
    QTest::addRow("encoding of a kilobyte")
        << "<?xml version='1.0' encoding='" + QByteArray(1000, 'x') + "'?>" + inDevice({}) << loaded;
    QTest::addRow("mark of UTF-8 against GB2312")
        << "\xEF\xBB\xBF<?xml version='1.0' encoding='GB2312'?>" + inDevice("<Name>\xE4\xBC\xBA</Name>") << loaded;
    QTest::addRow("mark of two bytes before single bytes") << "\xFF\xFE" + inDevice({}) << malformed;
    QTest::addRow("end of the parser's input in a name") << inDevice("<Name>\xEF\xBF\xBF</Name>") << malformed;
    QTest::addRow("number of a character out of range") << inDevice("<Name>&#x7FFFFFFFFFFFFFFF;</Name>") << malformed;
}

void tst_HostileEsi::oddBytes()
{
    QFETCH(QByteArray, content);
    QFETCH(int, status);
    const Ending ending = load(content);
    QCOMPARE(static_cast<int>(ending.status), status);
    QCOMPARE(ending.error.text.isEmpty(), ending.status == EsiLoadStatus::Loaded);
}

void tst_HostileEsi::oddValues_data()
{
    QTest::addColumn<QByteArray>("number");
    for (const char* number :
         {"4294967295", "4294967296", "-1", "-2147483648", "99999999999999999999999999", "#xFFFFFFFF", "#x1FFFFFFFF",
          "0x", "", " ", "1e400", "NaN", "65535", "65536", "\xE4\xB8\x80"})
        QTest::addRow("%s", number) << QByteArray(number);
    QTest::addRow("a million digits") << QByteArray(1000000, '9');
}

/// A value that does not convert becomes 0, and one that does is cut to its field; none of them moves anything else.
void tst_HostileEsi::oddValues()
{
    QFETCH(QByteArray, number);
    const QByteArray everywhere =
        QByteArray(
            "<Type ProductCode='N' RevisionNo='N'>T</Type><Profile><ProfileNo>N</ProfileNo></Profile>"
            "<Sm MinSize='N' MaxSize='N' DefaultSize='N' StartAddress='N' ControlByte='N'>MBoxOut</Sm>"
            "<Fmmu Sm='N' Su='N'>Outputs</Fmmu>"
            "<TxPdo><Index>N</Index><Entry><Index>N</Index><SubIndex>N</SubIndex><BitLen>N</BitLen></Entry></TxPdo>"
            "<Mailbox><CoE><InitCmd><Index>N</Index><SubIndex>N</SubIndex><Data>N</Data></InitCmd></CoE></Mailbox>"
            "<Dc><OpMode><AssignActivate>N</AssignActivate><CycleTimeSync0 Factor='N'>N</CycleTimeSync0>"
            "<Sm No='N'><Pdo OSFac='N'>N</Pdo></Sm></OpMode></Dc>"
            "<Slots MaxSlotCount='N' SlotPdoIncrement='N' SlotIndexIncrement='N' MaxSlotGroupCount='N'>"
            "<Slot MinInstances='N' MaxInstances='N' SlotGroup='N'><ModuleIdent Default='N'>N</ModuleIdent></Slot>"
            "</Slots>")
            .replace("'N'", "'" + number + "'")
            .replace(">N<", ">" + number + "<");
    QVERIFY(load(inDevice(everywhere)).status == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().vSM.size(), std::size_t{1});
    QCOMPARE(loadedDevice().TxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(loadedDevice().Slots.vslot.size(), std::size_t{1});
    QVERIFY2(loadedDevice().Slots.vslot[0].Attributes.MaxInstances <= 16, "the controller holds 16 places");
}

void tst_HostileEsi::unknownSyncManagers_data()
{
    QTest::addColumn<QByteArray>("syncManager");
    QTest::addColumn<QByteArray>("direction");
    for (const char* direction : {"RxPdo", "TxPdo"})
        for (const char* number : {"1", "4", "255", "65535", "2147483647"})
            QTest::addRow("%s %s", direction, number) << QByteArray(number) << QByteArray(direction);
}

/// The standard range error passes through; the window ends on it, and says which file it was.
void tst_HostileEsi::unknownSyncManagers()
{
    QFETCH(QByteArray, syncManager);
    QFETCH(QByteArray, direction);
    const QByteArray content = inDevice("<Sm>Outputs</Sm><" + direction + " Sm='" + syncManager + "'/>");
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(load(content)), std::out_of_range);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
    QCOMPARE(g_xmlfiledevices[0].device.at(0).Name, std::string("Loaded before"));
}

void tst_HostileEsi::slotsInNumbers()
{
    const QByteArray content =
        inDevice("<Profile><ProfileNo>402</ProfileNo></Profile><Slots>"
                 + QByteArray("<Slot MaxInstances='1'><ModuleIdent Default='1'>7</ModuleIdent></Slot>").repeated(70000)
                 + "</Slots>");
    QVERIFY(load(content).status == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().Slots.vslot.size(), std::size_t{70000});
}

/// The sample number has 16 bits, so a range up to 65535 could never be counted through; the PDO stays as declared.
void tst_HostileEsi::endlessOversampling()
{
    for (const char* last : {"65535", "65536", "2147483647"}) {
        loadOneBefore();
        const QByteArray content = inDevice(QByteArray("<TxPdo OSFac='1' OSMin='1' OSMax='") + last
                                            + "' OSIndexInc='1'><Index>#x1A00</Index></TxPdo>");
        QVERIFY(load(content).status == EsiLoadStatus::Loaded);
        QCOMPARE(loadedDevice().TxPdo.vpdo.size(), std::size_t{1});
    }
    loadOneBefore();
    QVERIFY(load(inDevice("<TxPdo OSFac='1' OSMin='1' OSMax='65534' OSIndexInc='1'/>")).status
            == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().TxPdo.vpdo.size(), std::size_t{65534});
}

void tst_HostileEsi::externalFileIsNotRead()
{
    const QTemporaryDir folder;
    const QByteArray place = QUrl::fromLocalFile(writeFile(folder, QStringLiteral("other.txt"), "secret")).toEncoded();
    QVERIFY(load(withDocumentType("<!ENTITY x SYSTEM '" + place + "'>", "a&x;b")).status == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().Name, std::string("ab"));
}

/// Only the file with its last bracket is whole.
void tst_HostileEsi::truncatedAnywhere()
{
    const QByteArray whole = "\xEF\xBB\xBF<?xml version=\"1.0\" encoding='UTF-8'?>\r\n<!-- c --><?p d?>"
                             "<!DOCTYPE a [<!ENTITY x \"y\">]>"
                             + inDevice("<Sm k='1&amp;'>Outputs</Sm><Name><![CDATA[\xE4\xBC\xBA]]>&#65;&x;&u;</Name>");
    for (int length = 0; length < whole.size(); ++length) {
        const Ending ending = load(whole.left(length));
        QVERIFY2(ending.status == EsiLoadStatus::NotWellFormed, qPrintable(QString::number(length)));
        QVERIFY2(!ending.error.text.isEmpty() && ending.error.line >= 1, qPrintable(QString::number(length)));
    }
    QVERIFY(load(whole).status == EsiLoadStatus::Loaded);
    QCOMPARE(QString::fromStdString(loadedDevice().Name), QStringLiteral("伺Ay"));
}

/// Whatever a single byte does to a file, it ends in one of the stated ways.
void tst_HostileEsi::oneByteChanged()
{
    const QByteArray whole = inDevice("<Sm k='1'>Outputs</Sm><RxPdo Sm='0'><Index>#x1600</Index></RxPdo>");
    int refused = 0;
    for (int position = 0; position < whole.size(); ++position)
        for (const char changed : {'<', '>', '&', '"', '9', ' ', '\0', '\xFF'}) {
            loadOneBefore();
            QByteArray content = whole;
            content[position] = changed;
            try {
                const Ending ending = load(content);
                QCOMPARE(ending.error.text.isEmpty(), ending.status != EsiLoadStatus::NotWellFormed);
                refused += ending.status == EsiLoadStatus::NotWellFormed ? 1 : 0;
            } catch (const std::out_of_range&) {
                QVERIFY2(g_xmlfiledevices.size() == 1, "a PDO on a sync manager that is not there");
            }
        }
    QVERIFY(refused > whole.size());
}

void tst_HostileEsi::cleanupTestCase()
{
    g_xmlfiledevices.clear();
    rusage usage{};
    QCOMPARE(getrusage(RUSAGE_SELF, &usage), 0);
    QVERIFY2(usage.ru_maxrss < 2 * 1024 * 1024, "the program took more than 2 GiB"); // the figure is in KiB
}

static const testMain::Registration<tst_HostileEsi, QCoreApplication> registration;
#include "tst_HostileEsi.moc"
