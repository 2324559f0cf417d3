// `ktl show` of ESI files: expected values are read off the samples.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QTextCodec>
#include <QtTest>

#include <memory>

class tst_ShowEsi : public QObject
{
    Q_OBJECT

private slots:
    void kindIsInTheContent_data();
    void kindIsInTheContent();
    void namesOutsideAscii();
    void deviceOfTheFile();
    void deviceOfTheModel();
    void dcModes();
    void startupGroups();
    void startupOrigins();
    void originsInAKtlFile();
    void virtualSyncManager();
    void slotsAndModules();
    void dictionaryRows();
    void textForPeople();
    void exportTimeAndRuns();

private:
    QTemporaryDir m_folder;
};

namespace {

QJsonArray list(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toArray();
}

QJsonObject deviceOf(const QString& path, int index = 0)
{
    return list(shownFile(path), "devices").at(index).toObject();
}

/// "1 EoE IP_PS 0x0:0" and so on of all commands of a device, with one more member of each or of its source.
QStringList commandTexts(const QJsonObject& device, const QString& member)
{
    QStringList texts;
    for (const QJsonValue& group : list(device, "startup"))
        for (const QJsonValue& value : list(group.toObject(), "commands")) {
            const QJsonObject command = value.toObject();
            const QJsonObject source = command.value("source").toObject();
            const QJsonValue shown = source.contains(member) ? source.value(member) : command.value(member);
            texts.append(QStringLiteral("%1 %2 %3:%4 %5")
                             .arg(command.value("position").toInt())
                             .arg(group.toObject().value("transitionName").toString(),
                                  QString::number(command.value("index").toInt(), 16),
                                  QString::number(command.value("subIndex").toInt()), shown.toVariant().toString()));
        }
    return texts;
}

/// A sample in UTF-16 or UTF-32, with a byte order mark.
QByteArray encoded(const QString& path, const char* codec)
{
    QTextCodec* const found = QTextCodec::codecForName(codec);
    if (found == nullptr)
        return {};
    const std::unique_ptr<QTextEncoder> encoder(found->makeEncoder());
    return encoder->fromUnicode(QString::fromUtf8(contentOf(path)));
}

} // namespace

void tst_ShowEsi::kindIsInTheContent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("kind");
    const QByteArray esi = contentOf(sample("io-block.xml"));
    QTest::addRow("ESI") << esi << "ESI";
    QTest::addRow("ESI with a byte order mark") << bytes("EF BB BF") + esi << "ESI";
    QTest::addRow("ESI after blanks") << "\n  " + esi.mid(esi.indexOf("<EtherCATInfo")) << "ESI";
    for (const char* codec : {"UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"})
        QTest::addRow("ESI in %s", codec) << encoded(sample("io-block.xml"), codec) << "ESI";
    QTest::addRow("End item alone") << bytes("00 00 00 00 0C 00 00 00 00 00 00 00") << "KTL";
    QTest::addRow("item of a later version first")
        << bytes("F4 9F 00 00 08 00 00 00 00 00 00 00 0C 00 00 00 00 00 00 00") << "KTL";
}

/// Under a name that shows nothing, and from standard input.
void tst_ShowEsi::kindIsInTheContent()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, kind);
    const QString path = writtenFile(m_folder, "file.dat", content);
    for (const bool isPiped : {false, true}) {
        CommandStart piped;
        piped.inputFile = path;
        const CommandRun run = isPiped ? runShow({"--json", "-"}, piped) : runShow({"--json", path});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.exitCode, 0);
        const QJsonObject file = filesIn(run).at(0).toObject();
        QCOMPARE(file.value("kind").toString(), kind);
        QCOMPARE(file.value("file").toString(), isPiped ? QStringLiteral("<stdin>") : path);
        QCOMPARE(file.value("complete").toBool(), true);
        QCOMPARE(list(file, "devices").size(), kind == "ESI" ? 2 : 0);
    }
}

void tst_ShowEsi::namesOutsideAscii()
{
    const QString path = m_folder.filePath(QString::fromUtf8("设备 é.xml"));
    QVERIFY(QFile::copy(sample("servo-drive.xml"), path));
    const CommandRun run = runShow({path});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith(path.toUtf8() + ": ESI file, 1 device\n"));
    QCOMPARE(shownFile(path).value("file").toString(), path);
    QCOMPARE(deviceOf(path).value("model").toObject().value("name").toString(),
             QString::fromUtf8("SX1-400 单轴伺服驱动器 400 W"));
}

void tst_ShowEsi::deviceOfTheFile()
{
    const QJsonObject device = deviceOf(sample("io-block.xml"));
    QCOMPARE(device.value("vendorId").toDouble(), double(0x7E570003));
    QCOMPARE(device.value("productCode").toInt(), 0x16160001);
    QCOMPARE(device.value("revisionNo").toInt(), 0x00010003);
    QCOMPARE(device.value("deviceTypeName").toString(), QStringLiteral("IOBlock"));
    QCOMPARE(list(device, "fmmus").at(0).toObject(),
             objectOf(R"({"type":3,"typeName":"Outputs","syncManager":0,"syncUnit":0,"opOnly":true})"));
    QCOMPARE(list(device, "syncManagers").at(1).toObject(),
             objectOf(R"({"startAddress":4096,"minSize":1,"maxSize":4,"defaultSize":2,"controlByte":32,"enable":1})"));
    QCOMPARE(list(device, "pdos").at(0).toObject(),
             objectOf(R"({"direction":"output","index":5632,"fixed":true,"mandatory":true,"syncManager":0,"syncUnit":0,
                 "entries":[{"index":28672,"subIndex":1,"bitLength":8,"fixed":false,"link":0,"linkName":"NONE Type"},
                            {"index":28672,"subIndex":2,"bitLength":8,"fixed":false,"link":0,"linkName":"NONE Type"}]})"));
    QCOMPARE(list(device, "pdos").at(1).toObject().value("direction").toString(), QStringLiteral("input"));
    for (const char* key : {"names", "export", "slots", "slotPreset"})
        QVERIFY2(device.value(QLatin1String(key)).isNull(), key);
}

void tst_ShowEsi::deviceOfTheModel()
{
    const QJsonObject model = deviceOf(sample("io-block.xml"), 1).value("model").toObject();
    QCOMPARE(model.value("type").toString(), QStringLiteral("FB-0504M"));
    QCOMPARE(model.value("checkProductCode").toString(), QStringLiteral("EQ"));
    const QJsonObject pdo = list(model, "rxPdos").at(0).toObject();
    QCOMPARE(pdo.value("name").toString(), QStringLiteral("Controls and setpoint"));
    QCOMPARE(pdo.value("size").toDouble(), 4.0); // 1 + 1 + 1 + 5 + 16 + 8 bits
    QCOMPARE(
        list(pdo, "entries").at(2).toObject(),
        objectOf(R"({"index":28672,"subIndex":3,"bitLength":1,"offset":0.2,"name":"Hold","dataType":"BOOL","link":0,
                          "linkName":"NONE Type","defaultData":0,"fixed":false,"choiceEntry":2})"));
}

void tst_ShowEsi::dcModes()
{
    const QJsonArray modes = list(deviceOf(sample("oversampling-terminal.xml")), "dcModes");
    QCOMPARE(modes.size(), 3);
    // 0x0730
    QCOMPARE(modes.at(0).toObject(),
             objectOf(R"({"assignActivate":1840,"bits":["bit 4","bit 5","bit 8: cyclic operation enabled",
                          "bit 9: SYNC 0","bit 10: SYNC 1"]})"));
    const QJsonObject drive = deviceOf(sample("servo-drive.xml"));
    QCOMPARE(list(list(drive, "dcModes").at(2).toObject(), "bits").size(), 0);
    const QJsonObject second = list(drive.value("model").toObject(), "dcModes").at(1).toObject();
    QCOMPARE(second.value("shiftTimeSync0").toInt(), 125000);
    QCOMPARE(second.value("shiftTimeSync1").toInt(), -50000);
    QCOMPARE(list(second, "bits"), list(list(drive, "dcModes").at(1).toObject(), "bits"));
}

/// Groups in the order of their first command; the eight bytes of the last declared command reach no file.
void tst_ShowEsi::startupGroups()
{
    const QJsonArray groups = list(deviceOf(sample("servo-drive.xml")), "startup");
    QStringList names;
    QList<int> sizes;
    for (const QJsonValue& group : groups) {
        names.append(group.toObject().value("transitionName").toString());
        sizes.append(list(group.toObject(), "commands").size());
    }
    QCOMPARE(names, (QStringList{"IP_PS", "PS", "SO"}));
    // Declared 4; clear 2; mapped with n entries n + 2: 8, 4, 4 and 10, 4, the last PDO is fixed; assigned 1 + 1 and 2
    // + 1
    QCOMPARE(sizes, (QList<int>{1, 4 + 2 + 8 + 4 + 4 + 10 + 4 + 2 + 3, 1}));
    const QJsonObject last = list(groups.at(2).toObject(), "commands").at(0).toObject();
    QCOMPARE(last, objectOf(R"({"position":6,"protocol":"CoE","index":12048,"subIndex":0,"completeAccess":false,
        "dataBytes":8,"value":null,"values":null,"meaning":"value of 8 bytes, which the format does not carry",
        "source":{"origin":"ESI","comment":"Application tag of eight bytes","text":"0x00","choiceRow":4}})"));
    const QJsonObject first = list(groups.at(1).toObject(), "commands").at(0).toObject();
    QCOMPARE(first, objectOf(R"({"position":2,"protocol":"CoE","index":8208,"subIndex":1,"completeAccess":false,
        "dataBytes":4,"value":10000,"values":null,"meaning":"",
        "source":{"origin":"ESI","comment":"Proportional gain 10000","text":"0x2710","choiceRow":0}})"));
}

/// A drive with a declared command, commands of its modules, and generated ones.
void tst_ShowEsi::startupOrigins()
{
    const QStringList origins = commandTexts(deviceOf(sample("dual-axis-drive.xml")), "origin");
    QCOMPARE(origins.size(), 1 + 2 + 2 + 4 * 5 + 3 + 4);
    QCOMPARE(origins.mid(0, 7), (QStringList{"1 PS 2001:0 ESI", "2 PS 1c12:0 PDO assignment",
                                             "3 PS 1c13:0 PDO assignment", "4 PS 6060:0 module", "5 PS 6860:0 module",
                                             "6 PS 1600:0 PDO mapping", "7 PS 1600:1 PDO mapping"}));
    QCOMPARE(origins.mid(24, 3),
             (QStringList{"25 PS 1a10:0 PDO mapping", "26 PS 1c12:1 PDO assignment", "27 PS 1c12:2 PDO assignment"}));
    const QStringList meanings = commandTexts(deviceOf(sample("dual-axis-drive.xml")), "meaning");
    QCOMPARE(meanings.at(5), QStringLiteral("6 PS 1600:0 clears the list"));
    QCOMPARE(meanings.at(7), QStringLiteral("8 PS 1600:2 0x607a:0, 32 bits"));
    QCOMPARE(meanings.at(9), QStringLiteral("10 PS 1600:0 3 entries"));
    QCOMPARE(meanings.at(26), QStringLiteral("27 PS 1c12:2 PDO 0x1610"));
    QCOMPARE(meanings.at(31), QStringLiteral("32 PS 1c13:0 3 PDOs"));
}

/// The file has no origins: they follow from the objects, as far as that goes.
void tst_ShowEsi::originsInAKtlFile()
{
    const QString ktl = m_folder.filePath("drive.ktl");
    QCOMPARE(runHere({"convert", sample("servo-drive.xml"), "-o", ktl, "--force"}).exitCode, 0);
    const QStringList origins = commandTexts(deviceOf(ktl), "origin");
    const QStringList exact = commandTexts(deviceOf(sample("servo-drive.xml")), "origin");
    QCOMPARE(origins.size(), exact.size());
    for (int index = 0; index < exact.size(); ++index)
        QCOMPARE(origins.at(index), QString(exact.at(index)).replace(" ESI", " unknown"));
    QVERIFY(!exact.filter(" EoE").isEmpty());
    const QJsonObject group = list(deviceOf(ktl), "startup").at(0).toObject();
    const QJsonObject source = list(group, "commands").at(0).toObject().value("source").toObject();
    QCOMPARE(source, objectOf(R"({"origin":"EoE","comment":null,"text":null,"choiceRow":null})"));
}

/// It is in the model only, with its PDO.
void tst_ShowEsi::virtualSyncManager()
{
    const QJsonObject device = deviceOf(sample("io-block.xml"), 1);
    const QJsonObject model = device.value("model").toObject();
    QCOMPARE(list(device, "syncManagers").size(), 2);
    QCOMPARE(list(model, "syncManagers").size(), 3);
    QCOMPARE(list(model, "syncManagers").at(2).toObject().value("virtual").toInt(), 1);
    QCOMPARE(list(model, "txPdos").size(), list(device, "pdos").size()); // one output, one input; one virtual input
}

void tst_ShowEsi::slotsAndModules()
{
    const QJsonObject file = shownFile(sample("bus-coupler.xml"));
    const QJsonObject device = list(file, "devices").at(0).toObject();
    QCOMPARE(device.value("slotCount").toInt(), 16);
    QCOMPARE(device.value("moduleCount").toInt(), 7);
    QCOMPARE(list(device, "names").size(), 8);
    QCOMPARE(list(device, "names").at(3).toString(), QString::fromUtf8("MB-DI16 十六路数字量输入"));
    const QJsonObject module = list(device, "modules").at(6).toObject();
    QCOMPARE(module.value("ident").toInt(), 0x404);
    // 1 clear, 4 entries, 1 count, 2 declared, 1 assigned
    QCOMPARE(list(module, "startup").size(), 9);
    QCOMPARE(
        list(module, "startup").at(7).toObject(),
        objectOf(R"({"index":32768,"subIndex":2,"dependOnSlot":true,"dataBytes":4,"value":2147450880,"meaning":""})"));

    const QJsonArray places = list(device.value("model").toObject().value("slots").toObject(), "list");
    QCOMPARE(places.size(), 3);
    QCOMPARE(places.at(1).toObject().value("name").toString(), QStringLiteral("First module"));
    QCOMPARE(list(places.at(1).toObject(), "moduleIdents").at(1).toObject(), objectOf(R"({"ident":278,"default":1})"));
    QCOMPARE(list(places.at(1).toObject(), "modules").at(0).toObject().value("ident").toInt(), 0x116);
    QStringList groups;
    for (const QJsonValue& group : list(file, "moduleGroups"))
        groups.append(group.toObject().value("comment").toString().trimmed());
    QCOMPARE(groups, (QStringList{"Power and system", "Digital inputs", "Digital outputs", "Analog modules"}));
    const QJsonObject analog = list(list(file, "moduleGroups").at(3).toObject(), "modules").at(0).toObject();
    QCOMPARE(list(analog.value("dictionary").toObject(), "objects").size(), 2);
}

/// The rows of the window's tab: an object with the count of its record, and what is under it.
void tst_ShowEsi::dictionaryRows()
{
    const QJsonObject dictionary =
        deviceOf(sample("servo-drive.xml")).value("model").toObject().value("dictionary").toObject();
    QCOMPARE(list(dictionary, "objects").size(), 35);
    QCOMPARE(list(dictionary, "dataTypes").size(), 26);
    QJsonArray identity;
    for (const QJsonValue& row : list(dictionary, "rows"))
        if (row.toObject().value("index").toInt() == 0x1018)
            identity.append(row);
    QCOMPARE(identity.size(), 5);
    QCOMPARE(identity.at(0).toObject(), objectOf(R"({"index":4120,"subIndex":0,"name":"Identity","access":"ro",
        "bitSize":144,"type":"","value":"4","signedValue":null})"));
    QCOMPARE(identity.at(1).toObject(), objectOf(R"({"index":4120,"subIndex":1,"name":"Vendor ID","access":"ro",
        "bitSize":32,"type":"UDINT","value":"2119630849","signedValue":null})"));
}

void tst_ShowEsi::textForPeople()
{
    const CommandRun run = runShow({"--full", sample("servo-drive.xml"), sample("io-block.xml")});
    QCOMPARE(run.errors, QByteArray());
    for (const char* part :
         {"/servo-drive.xml: ESI file, 1 device\n\nDevice 1 of 1\n", "\n  product code            66560 (0x10400)\n",
          "\n    DcSync0   DC, synchronous with Sync0 ",
          "bit 8: cyclic operation enabled, bit 9: SYNC 0, bit 10: SYNC 1",
          "\n  startup, 2 of 3:\n    transition  PS\n    commands (41):\n", "\n\nFile\n  vendor id      0x7e570001\n",
          "/io-block.xml: ESI file, 2 devices\n", "\nDevice 2 of 2\n"})
        QVERIFY2(run.output.contains(part), part);
}

/// A file that was appended to has several runs; date and time are those of its export.
void tst_ShowEsi::exportTimeAndRuns()
{
    const QString ktl = m_folder.filePath("runs.ktl");
    const QStringList convert{"convert", sample("bus-coupler.xml"), "-o", ktl, "--date", "2026-01-02T03:04:05"};
    QCOMPARE(runHere(convert).exitCode, 0);
    QCOMPARE(runHere(convert + QStringList{"--append"}).exitCode, 0);
    const QJsonArray devices = list(shownFile(ktl), "devices");
    QCOMPARE(devices.size(), 2);
    QCOMPARE(devices.at(1).toObject().value("run").toInt(), 2);
    QCOMPARE(devices.at(1).toObject().value("export").toObject(),
             objectOf(R"({"date":"2026-01-02","time":"03:04:05","formatVersion":65576})"));
}

static const testMain::Registration<tst_ShowEsi, QCoreApplication> registration;
#include "tst_ShowEsi.moc"
