// `ktl show --json` of an ESI file, of the KTL file made from it, and of the model: they agree in all that the format
// carries.
#include "cli/showRun.h"
#include "testMain.h"

#include <QDir>
#include <QHash>
#include <QtTest>

class tst_ShowAgreement : public QObject
{
    Q_OBJECT

private slots:
    void esiAndKtl_data();
    void esiAndKtl();
    void devicesAndModel_data();
    void devicesAndModel();
    void severalFiles();
    void sameBytesEachTime_data();
    void sameBytesEachTime();

private:
    const CommandRun& shown(const QString& esi);

    QTemporaryDir m_folder;
    QHash<QString, CommandRun> m_shown; ///< by path
};

namespace {

/// Rows for all samples, and for real ESI files where they are at hand.
void addEsiFiles()
{
    QTest::addColumn<QString>("esi");
    for (const QString& name : sampleNames())
        QTest::addRow("%s", qPrintable(name)) << sample(name);
    const QDir real(qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi")));
    for (const QString& name : real.entryList({"*.xml"}, QDir::Files))
        QTest::addRow("%s", qPrintable(name)) << real.filePath(name);
}

/// A device without what the format has no place for.
QJsonValue carried(const QJsonValue& value)
{
    if (value.isArray()) {
        QJsonArray list;
        for (const QJsonValue& element : value.toArray())
            list.append(carried(element));
        return list;
    }
    if (!value.isObject())
        return value;
    QJsonObject object = value.toObject();
    for (const char* key : {"model", "source", "export"})
        object.remove(key);
    for (const QString& key : object.keys())
        object.insert(key, carried(object.value(key)));
    return object;
}

QJsonArray list(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toArray();
}

/// Some members of an object.
QJsonObject pick(const QJsonObject& object, const QStringList& keys)
{
    QJsonObject picked;
    for (const QString& key : keys)
        picked.insert(key, object.value(key));
    return picked;
}

QJsonArray pickEach(const QJsonArray& objects, const QStringList& keys)
{
    QJsonArray picked;
    for (const QJsonValue& object : objects)
        picked.append(pick(object.toObject(), keys));
    return picked;
}

/// The numbers of a field cut to that many bits, as the file has it.
QJsonArray cut(QJsonArray objects, const QString& key, int bits)
{
    for (int index = 0; index < objects.size(); ++index) {
        QJsonObject object = objects.at(index).toObject();
        object.insert(key, double(static_cast<qint64>(object.value(key).toDouble()) & ((qint64(1) << bits) - 1)));
        objects.replace(index, object);
    }
    return objects;
}

bool isVirtual(const QJsonArray& syncManagers, int number)
{
    return number >= 0 && syncManagers.at(number).toObject().value("virtual").toInt() != 0;
}

/// PDOs of one list of the model that reach the file.
void appendPdos(QJsonArray& to, const QJsonObject& model, const char* key, const char* direction)
{
    for (const QJsonValue& value : list(model, key)) {
        const QJsonObject pdo = value.toObject();
        if (isVirtual(list(model, "syncManagers"), pdo.value("syncManager").toInt()) || list(pdo, "entries").isEmpty())
            continue;
        QJsonObject shown = pick(pdo, {"index", "fixed", "mandatory", "syncManager", "syncUnit"});
        shown.insert("direction", QLatin1String(direction));
        shown.insert("entries", pickEach(list(pdo, "entries"), {"index", "subIndex", "bitLength", "link", "linkName"}));
        to.append(shown);
    }
}

QJsonArray pdosOf(const QJsonObject& model)
{
    QJsonArray pdos;
    appendPdos(pdos, model, "rxPdos", "output");
    appendPdos(pdos, model, "txPdos", "input");
    const int type = model.value("deviceType").toInt();
    if (type == 2 || type == 4) {
        appendPdos(pdos, model, "moduleRxPdos", "output");
        appendPdos(pdos, model, "moduleTxPdos", "input");
    }
    return pdos;
}

/// PDOs of a device without the one field that PDOs of modules do not have.
QJsonArray withoutFixedEntries(QJsonArray pdos)
{
    for (int index = 0; index < pdos.size(); ++index) {
        QJsonObject pdo = pdos.at(index).toObject();
        pdo.insert("entries", pickEach(list(pdo, "entries"), {"index", "subIndex", "bitLength", "link", "linkName"}));
        pdos.replace(index, pdo);
    }
    return pdos;
}

QJsonArray syncManagersOf(const QJsonObject& model)
{
    QJsonArray shown;
    for (const QJsonValue& value : list(model, "syncManagers")) {
        QJsonObject syncManager = value.toObject();
        if (syncManager.value("virtual").toInt() != 0)
            continue;
        if (syncManager.value("type").toInt() >= 3)
            syncManager.insert("defaultSize", int(syncManager.value("length").toDouble()) & 0xFFFF);
        shown.append(pick(syncManager, {"startAddress", "minSize", "maxSize", "defaultSize", "controlByte", "enable"}));
    }
    return shown;
}

const QStringList commandKeys{"index", "subIndex", "dataBytes", "transition"};

/// Commands of the model in the order of the file: EoE, device, modules.
QJsonArray commandsOf(const QJsonObject& model)
{
    const QJsonObject lists = model.value("commands").toObject();
    QJsonArray commands;
    for (const char* key : {"deviceEoe", "deviceCoe", "moduleCoe"})
        for (const QJsonValue& value : list(lists, key)) {
            QJsonObject command = value.toObject();
            QJsonObject shown = pick(command, commandKeys);
            shown.insert("completeAccess", command.value("completeAccess").toInt() != 0);
            const bool isLost = command.value("dataBytes").toInt() > 4 && command.value("data").toDouble() == 0;
            const bool hasValue = !isLost && command.value("completeAccess").toInt() == 0;
            shown.insert("value", hasValue ? command.value("data") : QJsonValue());
            shown.insert("comment", command.value("comment"));
            shown.insert("text", command.value("text"));
            commands.append(shown);
        }
    return cut(commands, "subIndex", 8);
}

/// Commands of the groups of a device, back in the order of the file.
QJsonArray shownCommands(const QJsonObject& device)
{
    QMap<int, QJsonObject> byPosition;
    for (const QJsonValue& group : list(device, "startup"))
        for (const QJsonValue& value : list(group.toObject(), "commands")) {
            QJsonObject command = value.toObject();
            QJsonObject shown = pick(command, {"index", "subIndex", "dataBytes", "completeAccess", "value"});
            shown.insert("transition", group.toObject().value("transition"));
            const QJsonObject source = command.value("source").toObject();
            shown.insert("comment", source.value("comment"));
            shown.insert("text", source.value("text"));
            byPosition.insert(command.value("position").toInt(), shown);
        }
    QJsonArray commands;
    for (const QJsonObject& command : byPosition)
        commands.append(command);
    return commands;
}

/// Where an export cannot be read in full, a warning says so, and less of the device is there.
bool isWhole(const CommandRun& run)
{
    return !run.errors.contains("cannot be found");
}

} // namespace

/// `ktl show --json` of an ESI file, which two tests look at and one run makes.
const CommandRun& tst_ShowAgreement::shown(const QString& esi)
{
    if (!m_shown.contains(esi))
        m_shown.insert(esi, runShow({"--json", esi}));
    return *m_shown.constFind(esi);
}

void tst_ShowAgreement::esiAndKtl_data()
{
    addEsiFiles();
}

void tst_ShowAgreement::esiAndKtl()
{
    QFETCH(QString, esi);
    const QString ktl = m_folder.filePath("made.ktl");
    const CommandRun& ofShow = shown(esi);
    const CommandRun made = runHere({"convert", esi, "-o", ktl, "--force"});
    QCOMPARE(ofShow.exitCode, made.exitCode);
    if (made.exitCode != 0)
        return; // a file that neither command can read
    const QJsonObject ofEsi = filesIn(ofShow).at(0).toObject();
    const QJsonObject ofKtl = shownFile(ktl);
    QVERIFY(!list(ofEsi, "devices").isEmpty());
    if (isWhole(ofShow))
        QCOMPARE(list(ofKtl, "devices").size(), list(ofEsi, "devices").size());
    for (int index = 0; index < list(ofKtl, "devices").size(); ++index)
        QCOMPARE(carried(list(ofEsi, "devices").at(index)), carried(list(ofKtl, "devices").at(index)));
}

void tst_ShowAgreement::devicesAndModel_data()
{
    addEsiFiles();
}

/// Each list of the file is held against the list of the model that it comes from.
void tst_ShowAgreement::devicesAndModel()
{
    QFETCH(QString, esi);
    const CommandRun& run = shown(esi);
    const QJsonObject file = filesIn(run).at(0).toObject();
    QVERIFY(run.exitCode == 0 || file.isEmpty());
    for (const QJsonValue& value : list(file, "devices")) {
        const QJsonObject device = value.toObject();
        const QJsonObject model = device.value("model").toObject();
        QVERIFY(model.contains("commands"));
        const QStringList identity{"productCode", "revisionNo", "serialNo", "deviceType", "driveAxes", "eoe", "coe"};
        QCOMPARE(pick(device, identity), pick(model, identity));
        QCOMPARE(device.value("vendorId"), file.value("vendorId"));
        const QStringList fmmu{"type", "syncManager", "syncUnit", "opOnly"};
        QCOMPARE(pickEach(list(device, "fmmus"), fmmu), cut(pickEach(list(model, "fmmus"), fmmu), "syncManager", 8));
        QCOMPARE(list(device, "syncManagers"), syncManagersOf(model));
        QCOMPARE(list(device, "dcModes"), pickEach(list(model, "dcModes"), {"assignActivate", "bits"}));
        QCOMPARE(withoutFixedEntries(list(device, "pdos")), pdosOf(model));
        QCOMPARE(shownCommands(device), commandsOf(model));
        const QStringList slot{"minInstances", "maxInstances", "slotIndexIncrement", "slotPdoIncrement"};
        QCOMPARE(pickEach(list(device.value("slots").toObject(), "list"), slot),
                 pickEach(list(model.value("slots").toObject(), "list"), slot));
    }
}

/// One array for all, in the order of the arguments, with the devices of each by itself.
void tst_ShowAgreement::severalFiles()
{
    const QString ktl = m_folder.filePath("several.ktl");
    QCOMPARE(runHere({"convert", sample("io-block.xml"), "-o", ktl, "--force"}).exitCode, 0);
    const QJsonArray files = filesIn(runShow({"--json", sample("servo-drive.xml"), ktl, sample("io-block.xml"), ktl}));
    QStringList kinds;
    QList<int> devices;
    for (const QJsonValue& file : files) {
        kinds.append(file.toObject().value("kind").toString());
        devices.append(list(file.toObject(), "devices").size());
    }
    QCOMPARE(kinds, (QStringList{"ESI", "KTL", "ESI", "KTL"}));
    QCOMPARE(devices, (QList<int>{1, 2, 2, 2}));
    QCOMPARE(files.at(1).toObject(), files.at(3).toObject());
}

void tst_ShowAgreement::sameBytesEachTime_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addRow("text") << QStringList{};
    QTest::addRow("JSON") << QStringList{"--json"};
    QTest::addRow("CSV") << QStringList{"--csv", "startup"};
}

void tst_ShowAgreement::sameBytesEachTime()
{
    QFETCH(QStringList, options);
    QStringList paths;
    for (const QString& name : sampleNames())
        paths.append(sample(name));
    const CommandRun first = runShow(options + paths);
    QCOMPARE(first.exitCode, 0);
    QVERIFY(!first.output.isEmpty());
    QCOMPARE(runShow(options + paths).output, first.output);
}

static const testMain::Registration<tst_ShowAgreement, QCoreApplication> registration;
#include "tst_ShowAgreement.moc"
