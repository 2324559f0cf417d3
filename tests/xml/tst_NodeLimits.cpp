// How much a file may hold: the last node, device and module that is read, the first that is not, and where it is.
#include "esi/xml/xmlLimits.h"
#include "testMain.h"
#include "xml/parsedFile.h"

#include <QtTest>

class tst_NodeLimits : public QObject
{
    Q_OBJECT

private slots:
    static void nodes_data();
    static void nodes();
    static void records_data();
    static void records();
    static void deviceParents_data();
    static void deviceParents();
};

static_assert(maxNodes == 2500000 && maxDevices == 100000 && maxModules == 500000);

namespace {

const QString tooManyNodes = QStringLiteral("the file has more than 2500000 elements, attributes and comments");
const QString tooManyTexts = QStringLiteral("the file has more than 2500000 texts");
const QString tooManyDevices = QStringLiteral("the file has more than 100000 devices");
const QString tooManyModules = QStringLiteral("the file has more than 500000 modules");

/// Eight devices in each other. What is in them counts for each, so that a few megabytes come near a limit.
QString eightDevices(const QString& content)
{
    return QStringLiteral("<Device>").repeated(8) + content + QStringLiteral("</Device>").repeated(8);
}

} // namespace

void tst_NodeLimits::nodes_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("piece");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("message");
    QTest::addRow("comments up to the limit") << ""
                                              << "<!---->" << 2499999 << QString(); // and the root
    // 1 for the root, 1 + 2 + ... + 8 for the devices, 8 for each element: 37 + 8 * 312493 is 2499981, and 19 fit.
    const QString nodes = eightDevices(QStringLiteral("<b/>").repeated(312493));
    QTest::addRow("one comment more") << nodes << "<!---->" << 20 << tooManyNodes;
    QTest::addRow("one element more") << nodes << "<b/>" << 20 << tooManyNodes;
    QTest::addRow("one instruction more") << nodes << "<?p?>" << 20 << tooManyNodes;
    QTest::addRow("one CDATA section more") << nodes << "<![CDATA[x]]>" << 20 << tooManyNodes;
    QTest::addRow("one undeclared entity more") << nodes << "&u;" << 20 << tooManyNodes;
    QTest::addRow("attributes count") << nodes << "<b k='' l='' m=''/>" << 5 << tooManyNodes;
    // 16 texts for each of these: 16 * 156248 is 2499968, and 32 fit.
    const QString texts = eightDevices(QStringLiteral("<b>x</b>x").repeated(156248));
    QTest::addRow("texts count for themselves") << texts << "<b>x</b>x" << 17 << tooManyTexts;
    const QString devices = QStringLiteral("<Device>").repeated(8);
    QTest::addRow("in devices in each other up to the limit") << devices << "<b/>" << 312495 << QString();
    QTest::addRow("one more in devices in each other") << devices << "<b/>" << 312496 << tooManyNodes;
}

void tst_NodeLimits::nodes()
{
    QFETCH(QString, before);
    QFETCH(QString, piece);
    QFETCH(int, count);
    QFETCH(QString, message);
    const QString start = "<a>\n" + before;
    const QString end = QStringLiteral("</Device>").repeated(before.count("<Device>") - before.count("</Device>"));
    const Parsed result = parsed(start + piece.repeated(count) + end + "</a>");
    QCOMPARE(result.error.message, message);
    QCOMPARE(result.isRead, message.isEmpty());
    if (!result.isRead) { // at the last piece
        QCOMPARE(result.error.line, 2);
        QVERIFY(result.error.column > before.size() + piece.size() * (count - 1));
    }
}

void tst_NodeLimits::records_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString inModules = QStringLiteral("<a>\n<Modules>%1</Modules>%2</a>");
    const QString most = QStringLiteral("<b/>").repeated(500000);
    QTest::addRow("devices up to the limit")
        << "<a>\n" + QStringLiteral("<Device/>").repeated(100000) + "</a>" << QString();
    QTest::addRow("one device more") << "<a>\n" + QStringLiteral("<Device/>").repeated(100001) + "</a>"
                                     << tooManyDevices;
    QTest::addRow("modules up to the limit") << inModules.arg(most, "<b/>") << QString();
    QTest::addRow("one module more, whatever its name") << inModules.arg(most + "<b/>", "") << tooManyModules;
    QTest::addRow("further down is no module") << inModules.arg(most.chopped(4) + "<b><b/></b>", "") << QString();
    QTest::addRow("in two lists") << inModules.arg(most, "<Modules><b/></Modules>") << tooManyModules;
    QTest::addRow("after a list inside the list") << inModules.arg("<b><Modules/></b>" + most, "") << tooManyModules;
}

void tst_NodeLimits::records()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    const Parsed result = parsed(content);
    QCOMPARE(result.error.message, message);
    QCOMPARE(result.isRead, message.isEmpty());
    QVERIFY(message.isEmpty() || result.error.line == 2);
}

void tst_NodeLimits::deviceParents_data()
{
    QTest::addColumn<QString>("pair"); // with "%1" for what is inside
    QTest::addColumn<int>("times");
    QTest::addColumn<bool>("isRead");
    QTest::addRow("up to the limit") << "<Name><aDevice>%1</aDevice></Name>" << 16 << true;
    QTest::addRow("one more") << "<Name><aDevice>%1</aDevice></Name>" << 17 << false;
    QTest::addRow("beside each other") << "<xDevices/><xDevices/>%1" << 100 << true;
    QTest::addRow("in a prefix") << "<Device:Name xmlns:Device='urn:d'>%1</Device:Name>" << 100 << true;
    QTest::addRow("in a prefix that is not declared") << "<Device:Name>%1</Device:Name>" << 100 << true;
    QTest::addRow("one more after a prefix") << "<d:aDevice xmlns:d='urn:d'>%1</d:aDevice>" << 17 << false;
    QTest::addRow("one more after a prefix that is not declared") << "<d:aDevice>%1</d:aDevice>" << 17 << false;
    QTest::addRow("other names") << "<Name><device>%1</device></Name>" << 100 << true;
}

/// Each of them asks for the sections of a device in itself, so they multiply what is inside.
void tst_NodeLimits::deviceParents()
{
    QFETCH(QString, pair);
    QFETCH(int, times);
    QFETCH(bool, isRead);
    QString content = QStringLiteral("text");
    for (int time = 0; time < times; ++time)
        content = pair.arg(content);
    const Parsed result = parsed("<a>" + content + "</a>");
    QCOMPARE(result.isRead, isRead);
    QCOMPARE(result.error.message,
             isRead ? QString()
                    : QStringLiteral("more than 16 elements with \"Device\" in their names stand in each other"));
}

static const testMain::Registration<tst_NodeLimits, QCoreApplication> registration;
#include "tst_NodeLimits.moc"
