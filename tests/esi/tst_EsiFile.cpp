// Loading one ESI file: how it ends, and what is in the list of files then.
#include "esi/esiFile.h"
#include "esi/fileBeingRead.h"
#include "esi/terminationReason.h"
#include "model/XMLParsing.h"
#include "testMain.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QtTest>

#include <cstddef>
#include <stdexcept>

class tst_EsiFile : public QObject
{
    Q_OBJECT

private slots:
    static void init();
    static void success();
    static void pathIsStoredUnchanged();
    static void twice();
    static void filesKnowNothingOfEachOther();
    static void crLfFile();
    static void prefixedFile();
    static void cannotOpen_data();
    static void cannotOpen();
    static void malformed();
    static void tooDeep();
    static void noVendor();
    static void filesBeforeAFailureStay();
    static void unknownSyncManager();
    static void samples_data();
    static void samples();
    static void sampleSlots_data();
    static void sampleSlots();
    static void sampleRanges_data();
    static void sampleRanges();
};

namespace {

const QByteArray goodFile = "<EtherCATInfo><Vendor><Id>5</Id></Vendor><Descriptions><Devices><Device>"
                            "<Name>Drive</Name></Device></Devices></Descriptions></EtherCATInfo>";
const QByteArray badSyncManager = "<EtherCATInfo><Vendor><Id>5</Id></Vendor><Descriptions><Devices><Device>"
                                  "<Sm>Outputs</Sm><RxPdo Sm=\"4\"/></Device></Devices></Descriptions></EtherCATInfo>";

/// Loads a file whose document is of no interest.
EsiLoadResult loaded(const QString& path)
{
    QDomDocument document;
    return loadEsiFile(path, document);
}

} // namespace

void tst_EsiFile::init()
{
    g_xmlfiledevices.clear();
    domDocument = QDomDocument();
}

void tst_EsiFile::success()
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder, QStringLiteral("drive.xml"), goodFile);
    QDomDocument document;
    const EsiLoadResult loaded = loadEsiFile(path, document);
    QVERIFY(loaded.status == EsiLoadStatus::Loaded);
    QCOMPARE(QString::fromStdString(loaded.file.xmlfilepath), path);
    QCOMPARE(loaded.file.Vendor_Id, 5U);
    QCOMPARE(QString::fromStdString(loaded.file.device.at(0).Name), QStringLiteral("Drive"));
    QVERIFY2(FileBeingRead::path().isEmpty(), "no file is being read any more");
    QVERIFY2(document.documentElement().tagName() == "EtherCATInfo", "the document that was parsed is handed out");
    QVERIFY2(g_xmlfiledevices.empty() && domDocument.isNull(), "nothing else is touched");
}

void tst_EsiFile::pathIsStoredUnchanged()
{
    const QTemporaryDir folder;
    static_cast<void>(writeFile(folder, QStringLiteral("伺服 1.XML"), goodFile));
    const QString path = folder.path() + QStringLiteral("//./伺服 1.XML");
    QCOMPARE(QString::fromStdString(loaded(path).file.xmlfilepath), path);
}

void tst_EsiFile::twice()
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder, QStringLiteral("drive.xml"), goodFile);
    EsiLoadResult first = loaded(path);
    first.file.device.at(0).Name = "changed";
    const EsiLoadResult second = loaded(path);
    QCOMPARE(QString::fromStdString(second.file.device.at(0).Name), QStringLiteral("Drive"));
    QCOMPARE(QString::fromStdString(first.file.device.at(0).Name), QStringLiteral("changed"));
}

/// Two files whose slots take the module of ident 1 as default, of which the first declares it and the second does
/// not. Each loads as if it were alone, before and after the other, and after one that fails half-way.
void tst_EsiFile::filesKnowNothingOfEachOther()
{
    const QTemporaryDir folder;
    const QByteArray device = "<Devices><Device><Name>Coupler</Name><Slots><Slot MaxInstances=\"1\">"
                              "<ModuleIdent Default=\"1\">1</ModuleIdent></Slot></Slots>"
                              "<Profile><ProfileNo>5001</ProfileNo></Profile></Device></Devices>";
    const auto file = [&](const char* name, const QByteArray& modules) {
        return writeFile(folder, QString::fromLatin1(name),
                         "<EtherCATInfo><Vendor><Id>5</Id></Vendor><Descriptions>" + device + modules
                             + "</Descriptions></EtherCATInfo>");
    };
    const QString with =
        file("with.xml", "<Modules><Module><Type ModuleIdent=\"1\"/><Name>M</Name></Module></Modules>");
    const QString without = file("without.xml", "");
    const QString bad = writeFile(folder, QStringLiteral("bad.xml"), badSyncManager);
    const auto modulesIn = [](const QString& path) {
        const EsiLoadResult result = loaded(path);
        return QStringLiteral("%1/%2")
            .arg(result.file.vcommentmodule.size())
            .arg(result.file.device.at(0).Slots.vslot.at(0).slotmodule.size());
    };
    QCOMPARE(modulesIn(without), QStringLiteral("0/0"));
    QCOMPARE(modulesIn(with), QStringLiteral("1/1"));
    QCOMPARE(modulesIn(without), QStringLiteral("0/0"));
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(loaded(bad)), std::out_of_range);
    QCOMPARE(modulesIn(with), QStringLiteral("1/1"));
    QCOMPARE(modulesIn(without), QStringLiteral("0/0"));
}

void tst_EsiFile::crLfFile()
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder, QStringLiteral("crlf.xml"),
                                   "<EtherCATInfo>\r\n<Vendor>\r\n<Id>5</Id>\r\n</Vendor>\r\n<Descriptions>\r\n"
                                   "<Devices>\r\n<Device>\r\n<Name>Drive\r\nwith two lines</Name>\r\n</Device>\r\n"
                                   "</Devices>\r\n<Modules>\r\n<!--first\r\nsecond-->\r\n<Module/>\r\n</Modules>\r\n"
                                   "</Descriptions>\r\n</EtherCATInfo>\r\n");
    const struct_FilenameDevice file = loaded(path).file;
    QCOMPARE(QString::fromStdString(file.device.at(0).Name), QStringLiteral("Drive\r\nwith two lines"));
    QCOMPARE(file.vcommentmodule.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(file.vcommentmodule[0].comment), QStringLiteral("first\r\nsecond"));
}

void tst_EsiFile::prefixedFile()
{
    const QTemporaryDir folder;
    const QString path =
        writeFile(folder, QStringLiteral("prefixed.xml"),
                  R"(<?xml version="1.0"?><e:EtherCATInfo xmlns:e="urn:example"><e:Vendor><e:Id>5</e:Id>
                                   </e:Vendor><e:Device><e:Type e:ProductCode="#x10">ED</e:Type><e:Name>Drive</e:Name>
                                   </e:Device></e:EtherCATInfo>)");
    const struct_FilenameDevice file = loaded(path).file;
    const struct_EtherCatDevice& device = file.device.at(0);
    QCOMPARE(QString::fromStdString(device.Name), QStringLiteral("Drive"));
    QCOMPARE(device.TypeAttributes.Product_Code, 16U);
    QCOMPARE(file.Vendor_Id, 5U);
}

void tst_EsiFile::cannotOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("missing file") << "missing.xml";
    QTest::addRow("missing folder") << "missing/drive.xml";
    QTest::addRow("folder") << "";
}

void tst_EsiFile::cannotOpen()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    const EsiLoadResult result = loaded(path);
    QVERIFY(result.status == EsiLoadStatus::CannotOpen);
    QFile file(path);
    QVERIFY(!file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(result.reason.text, file.errorString());
    QVERIFY(!result.reason.text.isEmpty());
    QVERIFY(result.file.device.empty());
    QVERIFY(FileBeingRead::path().isEmpty());
}

void tst_EsiFile::malformed()
{
    const QByteArray content = "<EtherCATInfo>\n<Vendor>\n<Id>5</Di>\n</Vendor>\n</EtherCATInfo>\n";
    const QTemporaryDir folder;
    const EsiLoadResult result = loaded(writeFile(folder, QStringLiteral("malformed.xml"), content));
    QVERIFY(result.status == EsiLoadStatus::NotWellFormed);
    QCOMPARE(result.reason.line, 3);
    QDomDocument document;
    QString message;
    int line = 0;
    int column = 0;
    QVERIFY(!document.setContent(content, true, &message, &line, &column));
    QCOMPARE(result.reason.text, message);
    QCOMPARE(result.reason.column, column);
    QVERIFY(result.file.device.empty());
    QVERIFY(FileBeingRead::path().isEmpty());
}

void tst_EsiFile::tooDeep()
{
    const QTemporaryDir folder;
    const QByteArray content = "<EtherCATInfo><Vendor/>" + QByteArray("\n<a>").repeated(1000)
                               + QByteArray("</a>").repeated(1000) + "</EtherCATInfo>";
    const EsiLoadResult result = loaded(writeFile(folder, QStringLiteral("deep.xml"), content));
    QVERIFY(result.status == EsiLoadStatus::NotWellFormed);
    QCOMPARE(result.reason.line, 1001);
    QVERIFY(result.reason.column >= 1);
    QVERIFY(!result.reason.text.isEmpty());
    QVERIFY(result.file.device.empty());
}

void tst_EsiFile::noVendor()
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder, QStringLiteral("other.xml"),
                                   "<EtherCATInfo><Device><Name>Drive</Name></Device></EtherCATInfo>");
    const EsiLoadResult result = loaded(path);
    QVERIFY(result.status == EsiLoadStatus::NotEsi);
    QVERIFY(result.file.device.empty());
    QVERIFY(FileBeingRead::path().isEmpty());
}

/// What is loaded before a failure, and after it, is as if there were none.
void tst_EsiFile::filesBeforeAFailureStay()
{
    const QTemporaryDir folder;
    const EsiLoadResult good = loaded(writeFile(folder, QStringLiteral("good.xml"), goodFile));
    QVERIFY(loaded(writeFile(folder, QStringLiteral("bad.xml"), "<a>")).status == EsiLoadStatus::NotWellFormed);
    QVERIFY(loaded(folder.filePath(QStringLiteral("gone.xml"))).status == EsiLoadStatus::CannotOpen);
    QVERIFY(loaded(writeFile(folder, QStringLiteral("other.xml"), "<a/>")).status == EsiLoadStatus::NotEsi);
    QCOMPARE(good.file.Vendor_Id, 5U);
    QCOMPARE(loaded(folder.filePath(QStringLiteral("good.xml"))).file.Vendor_Id, 5U);
}

void tst_EsiFile::unknownSyncManager()
{
    const QTemporaryDir folder;
    const QString good = writeFile(folder, QStringLiteral("good.xml"), goodFile);
    const QString bad = writeFile(folder, QStringLiteral("bad.xml"), badSyncManager);
    QString reason;
    QString words;
    try {
        static_cast<void>(loaded(bad));
    } catch (const std::out_of_range& error) {
        reason = QString::fromLatin1(error.what());
        words = terminationReason();
    }
    QCOMPARE(reason, QStringLiteral("vector::_M_range_check: __n (which is 4) >= this->size() (which is 1)"));
    QCOMPARE(FileBeingRead::path(), bad);
    QVERIFY2(words.contains(reason) && words.contains(bad) && !words.contains('\n'), qPrintable(words));

    QVERIFY(loaded(good).status == EsiLoadStatus::Loaded);
    QVERIFY2(FileBeingRead::path().isEmpty(), "a file read later takes the place of the one that failed");
}

void tst_EsiFile::samples_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(KINETRA_SOURCE_DIR "/samples"));
    for (const QString& name : folder.entryList({QStringLiteral("*.xml")}, QDir::Files))
        QTest::addRow("%s", qPrintable(name)) << folder.filePath(name);
}

void tst_EsiFile::samples()
{
    QFETCH(QString, path);
    const std::vector<struct_EtherCatDevice> devices = loaded(path).file.device;
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const int deviceTags = QString::fromUtf8(file.readAll()).count(QRegularExpression(QStringLiteral("<Device[ >]")));
    QVERIFY(deviceTags > 0);
    QCOMPARE(devices.size(), static_cast<std::size_t>(deviceTags));
    for (const struct_EtherCatDevice& device : devices) {
        QVERIFY(!device.Name.empty());
        QVERIFY(device.TypeAttributes.Product_Code != 0);
    }
}

void tst_EsiFile::sampleSlots_data()
{
    samples_data();
}

/// The schema of ESI files lets a slot name the idents or the classes of its modules, not both.
void tst_EsiFile::sampleSlots()
{
    QFETCH(QString, path);
    QDomDocument document;
    QVERIFY(loadEsiFile(path, document).status == EsiLoadStatus::Loaded);
    const QDomNodeList allSlots = document.elementsByTagName(QStringLiteral("Slot"));
    for (int index = 0; index < allSlots.size(); ++index) {
        const QDomElement slot = allSlots.at(index).toElement();
        const bool hasIdent = !slot.firstChildElement(QStringLiteral("ModuleIdent")).isNull();
        const bool hasClass = !slot.firstChildElement(QStringLiteral("ModuleClass")).isNull();
        QVERIFY2(hasIdent != hasClass, qPrintable(QStringLiteral("line %1").arg(slot.lineNumber())));
    }
}

void tst_EsiFile::sampleRanges_data()
{
    samples_data();
}

/// The schema of ESI files wants the numbers of an oversampling range in decimal.
void tst_EsiFile::sampleRanges()
{
    QFETCH(QString, path);
    QDomDocument document;
    QVERIFY(loadEsiFile(path, document).status == EsiLoadStatus::Loaded);
    for (const char* tag : {"RxPdo", "TxPdo"}) {
        const QDomNodeList pdos = document.elementsByTagName(QLatin1String(tag));
        for (int index = 0; index < pdos.size(); ++index)
            for (const char* name : {"OSFac", "OSMin", "OSMax", "OSIndexInc"}) {
                const QDomElement pdo = pdos.at(index).toElement();
                bool isDecimal = false;
                static_cast<void>(pdo.attribute(QLatin1String(name), QStringLiteral("0")).toInt(&isDecimal));
                QVERIFY2(isDecimal, qPrintable(QStringLiteral("line %1").arg(pdo.lineNumber())));
            }
    }
}

static const testMain::Registration<tst_EsiFile, QCoreApplication> registration;
#include "tst_EsiFile.moc"
