// Every sample, and every real ESI file if the folder of them is there: loads, exports, and the KTL file and its dump
// are read again by a reader of the test's own.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlItems.h"
#include "ktl/writing/ktlFile.h"
#include "loadedFiles.h"
#include "testMain.h"

#include <QDir>
#include <QHash>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int anyNumber = -1;
constexpr std::size_t dumpLimit = 2000; // a dump shows no more items

/// What the format knows of an item type.
struct ItemKind
{
    char letter; ///< in the pattern of the order of items
    const char* dumpName; ///< what follows the head in a dump
};

/// The items that an exported file may hold.
const QHash<std::uint32_t, ItemKind> itemKinds{
    {40000, {'G', " General "}},
    {40014, {'F', " FMMU "}},
    {40001, {'S', " SM "}},
    {40002, {'D', " DC "}},
    {40003, {'R', " RxPdo "}},
    {40004, {'T', " TxPdo "}},
    {40005, {'E', " EoE "}},
    {40006, {'C', " CoE "}},
    {40007, {'L', " Slot "}},
    {40015, {'P', " SlotPreConfig "}},
    {40016, {'I', " DeviceMoreInfo "}},
    {40013, {'M', " ModuleType "}},
    {40103, {'r', " ModuleRPDOEntry "}},
    {40102, {'t', " ModuleTPDOEntry "}},
    {40104, {'c', " ModuleCoEInitCmd "}},
    {0, {'Z', "  "}},
};

/// The order of the items: device blocks, module blocks at the end of them, and one end item.
const QRegularExpression itemOrder(QStringLiteral("^(GF?S?D?R*T*(R+T*|T+)?ECL?P?I?(Mr?t?c?)*)+Z$"));

/// One letter per item; "?" for a type that no exported file holds.
QString lettersOf(const std::vector<KtlItem>& items)
{
    QString letters;
    for (const KtlItem& item : items)
        letters += QLatin1Char(itemKinds.value(item.type, {'?', ""}).letter);
    return letters;
}

/// True if an item has the size that its records give. CoE items, whose count saturates and whose commands
/// values and fill follow, have no less than their commands take.
bool sizeFitsRecords(const KtlItem& item)
{
    const auto size = static_cast<std::uint32_t>(item.content.size());
    switch (item.type) {
    case 0:
        return size == 12 && item.u32(8) == 0;
    case 40000:
        return size == 52;
    case 40001:
        return size == 12 + 16 * item.u32(8) && item.u32(8) > 0;
    case 40002:
        return size == 12 + 28 * item.u32(8) && item.u32(8) > 0;
    case 40003:
    case 40004:
        return size == 28 + 20 * item.u32(24) && item.u32(24) > 0;
    case 40005:
        return size == 12 + 12 * item.u8(11);
    case 40006:
        return size >= 16 + 12 * item.u8(15);
    case 40007:
        return (size - 20) % 124 == 0 && item.u16(8) == (size - 20) / 124 % 256 && item.u16(16) == item.u16(8);
    case 40013:
        return size == 20;
    case 40014:
        return size == 12 + 8 * item.u32(8) && item.u32(8) > 0;
    case 40015:
        return size == 16 + 8 * item.u32(8) && item.u32(8) < 256;
    case 40016:
        return size >= 24 && size <= 24 + 1000;
    case 40102:
    case 40103:
        return size == 28 + 12 * item.u32(24);
    case 40104:
        return size == 12 + 16 * item.u32(8) && item.u32(8) > 0;
    default:
        return false;
    }
}

/// Indexes of the PDOs of a list that belong into the file: with entries, and not on a virtual sync manager.
QList<std::uint32_t> writtenPdos(const struct_EtherCatDevice& device, const DevicePdoList& list)
{
    QList<std::uint32_t> indexes;
    for (const struct_PDOList& pdo : list.vpdo) {
        const int sm = pdo.Attributes.SM;
        const bool isVirtual = sm >= 0 && device.vSM.at(static_cast<std::size_t>(sm)).Attributes.m_Virtual != 0;
        if (!isVirtual && !pdo.Entry.vPdo_c.empty())
            indexes.append(pdo.IndexAttributes.Index);
    }
    return indexes;
}

/// The same of the PDOs that modules bring into a device of a type that writes them.
QList<std::uint32_t> writtenModulePdos(const struct_EtherCatDevice& device, const DeviceModulePdoList& list)
{
    QList<std::uint32_t> indexes;
    if (device.m_iDeviceType != 2 && device.m_iDeviceType != 4)
        return indexes;
    for (const modulePdo& pdo : list.mpdo) {
        const int sm = pdo.Attributes.SM;
        const bool isVirtual = sm >= 0 && device.vSM.at(static_cast<std::size_t>(sm)).Attributes.m_Virtual != 0;
        if (!isVirtual && !pdo.vEntry.empty())
            indexes.append(pdo.indexAttributes.index);
    }
    return indexes;
}

/// Idents of the modules whose blocks belong after a device.
QList<std::uint32_t> writtenModules(const struct_FilenameDevice& file, const struct_EtherCatDevice& device)
{
    QList<std::uint32_t> idents;
    if (device.m_iDeviceType != 3 && device.m_iDeviceType != 5)
        return idents;
    for (const struct_commentmodule& group : file.vcommentmodule)
        for (const struct_module& module : group.vmodule)
            idents.append(module.TypeAttributes.ModuleIdent);
    return idents;
}

/// Numbers at one place of all items of one type, in the order of the items.
QList<std::uint32_t> numbersIn(const std::vector<KtlItem>& block, std::uint32_t type, int offset, int width)
{
    QList<std::uint32_t> numbers;
    for (const KtlItem& item : block)
        if (item.type == type)
            numbers.append(numberAt(item.content, offset, width));
    return numbers;
}

/// Number of records of the one item of a type in a device block, 0 without the item.
std::uint32_t recordCount(const std::vector<KtlItem>& block, std::uint32_t type)
{
    const auto item =
        std::find_if(block.cbegin(), block.cend(), [&](const KtlItem& each) { return each.type == type; });
    return item == block.cend() ? 0 : item->u32(8);
}

QString samplesFolder()
{
    return QStringLiteral(KINETRA_SOURCE_DIR "/samples");
}

/// Folder of real ESI files; it need not exist.
QString realFilesFolder()
{
    return qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
}

} // namespace

class tst_KtlCorpus : public QObject
{
    Q_OBJECT

private slots:
    void init() { g_xmlfiledevices.clear(); }
    void exportedFile_data();
    void exportedFile();
    void fileThatIsNotWellFormed_data();
    void fileThatIsNotWellFormed();

private:
    static void checkFile(const std::vector<KtlItem>& items);
    static void checkBlock(const std::vector<KtlItem>& block, const struct_EtherCatDevice& device);
    static void checkDump(const std::vector<KtlItem>& items, const QByteArray& text);

    QTemporaryDir m_folder; // for files that the test writes as input
};

void tst_KtlCorpus::exportedFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("devices");
    const QHash<QString, int> devicesOfSample{
        {"servo-drive.xml", 1},           {"dual-axis-drive.xml", 1}, {"bus-coupler.xml", 1},
        {"oversampling-terminal.xml", 2}, {"io-block.xml", 2},
    };
    const QDir samples(samplesFolder());
    for (const QString& name : samples.entryList({"*.xml"}, QDir::Files))
        QTest::addRow("sample %s", qPrintable(name))
            << samples.filePath(name) << devicesOfSample.value(name, anyNumber);
    QVERIFY(samples.entryList({"*.xml"}, QDir::Files).size() >= devicesOfSample.size());
    const QDir real(realFilesFolder());
    for (const QString& name : real.entryList({"*.xml"}, QDir::Files))
        if (!name.contains(QLatin1String("_bad")))
            QTest::addRow("%s", qPrintable(name)) << real.filePath(name) << anyNumber;
}

void tst_KtlCorpus::exportedFile()
{
    QFETCH(QString, path);
    QFETCH(int, devices);
    QCOMPARE(int(loadIntoList(path).status), int(EsiLoadStatus::Loaded));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(1));
    QVERIFY(!g_xmlfiledevices[0].device.empty());
    if (devices != anyNumber)
        QCOMPARE(int(g_xmlfiledevices[0].device.size()), devices);

    const QTemporaryDir folder;
    const QString ktl = folder.filePath(QStringLiteral("out.ktl"));
    const auto all = [](std::size_t, std::size_t) { return true; };
    const KtlSaveResult saved =
        saveKtlFile(QFile::encodeName(ktl).toStdString(), KtlSaveMode::Overwrite, [&](std::FILE* out, int* errorCode) {
            return writeDevices(out, g_xmlfiledevices, all, errorCode);
        });
    QCOMPARE(int(saved.status), int(KtlSaveStatus::Saved));

    QFile file(ktl);
    QFile dump(ktl + QStringLiteral(".txt"));
    QVERIFY(file.open(QIODevice::ReadOnly) && dump.open(QIODevice::ReadOnly));
    QString problem;
    const std::vector<KtlItem> items = itemsOf(file.readAll(), &problem);
    QCOMPARE(problem, QString());
    checkFile(items);
    checkDump(items, dump.readAll());
}

/// The order of all items, and the block of each device against the model.
void tst_KtlCorpus::checkFile(const std::vector<KtlItem>& items)
{
    const QString letters = lettersOf(items);
    QVERIFY2(itemOrder.match(letters).hasMatch(), qPrintable(letters));
    for (const KtlItem& item : items)
        QVERIFY2(sizeFitsRecords(item), qPrintable(QStringLiteral("type %1").arg(item.type)));
    const struct_FilenameDevice& file = g_xmlfiledevices[0];
    QCOMPARE(std::size_t(letters.count(QLatin1Char('G'))), file.device.size());
    auto begin = items.cbegin();
    for (const struct_EtherCatDevice& device : file.device) {
        const auto end = std::find_if(begin + 1, items.cend(), [](const KtlItem& item) {
            return item.type == KTL_ITEM_General || item.type == KTL_ITEM_END;
        });
        QCOMPARE(begin->u32(8), file.Vendor_Id);
        checkBlock({begin, end}, device);
        begin = end;
    }
}

void tst_KtlCorpus::checkBlock(const std::vector<KtlItem>& block, const struct_EtherCatDevice& device)
{
    QCOMPARE(block[0].u32(12), device.TypeAttributes.Product_Code);
    QCOMPARE(block[0].u32(16), device.TypeAttributes.Revision_No);
    QCOMPARE(block[0].u16(24), std::uint32_t(device.m_iDeviceType));
    const auto real = std::count_if(device.vSM.cbegin(), device.vSM.cend(),
                                    [](const struct_SM& sm) { return sm.Attributes.m_Virtual == 0; });
    QCOMPARE(recordCount(block, KTL_ITEM_FMMU), std::uint32_t(device.vFmmu.size()));
    QCOMPARE(recordCount(block, KTL_ITEM_SM), std::uint32_t(real));
    QCOMPARE(recordCount(block, KTL_ITEM_DC), std::uint32_t(device.vopmode.size()));
    const QString letters = lettersOf(block);
    QCOMPARE(letters.contains(QLatin1Char('L')), !device.Slots.vslot.empty());
    const bool hasPreset = device.m_iDeviceType == 5 && !device.Slots.vslot.empty();
    QCOMPARE(letters.contains(QLatin1Char('P')), hasPreset);
    const struct_FilenameDevice& file = g_xmlfiledevices[0];
    QCOMPARE(letters.contains(QLatin1Char('I')), !file.vcommentmodule.empty());
    QCOMPARE(numbersIn(block, KTL_ITEM_RxPdo, 20, 2),
             writtenPdos(device, device.RxPdo) + writtenModulePdos(device, device.mRxPdo));
    QCOMPARE(numbersIn(block, KTL_ITEM_TxPdo, 20, 2),
             writtenPdos(device, device.TxPdo) + writtenModulePdos(device, device.mTxPdo));
    QCOMPARE(numbersIn(block, KTL_ITEM_ModuleType, 8, 4), writtenModules(file, device));
}

/// The dump against the file, word by word.
void tst_KtlCorpus::checkDump(const std::vector<KtlItem>& items, const QByteArray& text)
{
    QString problem;
    const std::vector<DumpItem> shown = dumpItemsOf(text, &problem);
    QCOMPARE(problem, QString());
    QCOMPARE(shown.size(), std::min(items.size(), dumpLimit));
    for (std::size_t index = 0; index < shown.size(); ++index) {
        const KtlItem& item = items[index];
        QCOMPARE(shown[index].type, qint64(item.type));
        QCOMPARE(shown[index].size, qint64(item.content.size()));
        QCOMPARE(shown[index].name, QString::fromLatin1(itemKinds.value(item.type).dumpName));
        std::vector<std::uint32_t> words;
        for (int offset = 8; offset < item.content.size(); offset += 4)
            words.push_back(item.u32(offset));
        QVERIFY(shown[index].words == words);
    }
}

void tst_KtlCorpus::fileThatIsNotWellFormed_data()
{
    QTest::addColumn<QString>("path");
    const QDir real(realFilesFolder());
    for (const QString& name : real.entryList({"*_bad*.xml"}, QDir::Files))
        QTest::addRow("%s", qPrintable(name)) << real.filePath(name);
    const QString cut = m_folder.filePath(QStringLiteral("cut.xml"));
    QFile file(cut);
    QFile sample(samplesFolder() + QStringLiteral("/io-block.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly) && sample.open(QIODevice::ReadOnly));
    file.write(sample.read(sample.size() / 2));
    QTest::addRow("first half of a sample") << cut;
}

void tst_KtlCorpus::fileThatIsNotWellFormed()
{
    QFETCH(QString, path);
    const EsiLoadResult result = loadIntoList(path);
    QCOMPARE(int(result.status), int(EsiLoadStatus::NotWellFormed));
    QVERIFY(result.reason.line > 0);
    QVERIFY(result.reason.column > 0);
    QVERIFY(!result.reason.text.isEmpty());
    QVERIFY(g_xmlfiledevices.empty());
}

static const testMain::Registration<tst_KtlCorpus, QCoreApplication> registration;
#include "tst_KtlCorpus.moc"
