// docs/ktl_format.h, as C99 and as C++: its records, fields and codes are those of the product and of the page, and a
// reader that has nothing else counts in exports, and in files that are cut or announce too much, what the product
// does.
#include "formatHeader/formatHeader.h"
#include "ktl/format/headSize.h"
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "loadedFiles.h"
#include "model/nmtoken.h"
#include "model/version.h"
#include "testMain.h"

#include <QDir>
#include <QMap>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace {

using RowsOf = std::size_t (*)(FormatRow*);
using CountsOf = FormatCounts (*)(const unsigned char*, std::size_t);

/// Names and numbers of a row as a text.
QString textOf(const FormatRow& row)
{
    return QStringLiteral("%1|%2 at %3, %4 bytes, %5 values%6")
        .arg(QLatin1String(row.record), QLatin1String(row.name))
        .arg(row.place)
        .arg(row.width)
        .arg(row.count)
        .arg(QLatin1String(row.isSigned != 0 ? ", signed" : ""));
}

std::vector<FormatRow> headerRows(RowsOf rowsOf)
{
    std::vector<FormatRow> rows(MaxFormatRows);
    const std::size_t count = rowsOf(rows.data());
    if (count > rows.size())
        return {};
    rows.resize(count);
    return rows;
}

template<typename Type> FormatRow fieldRow(const char* record, const char* name, std::size_t offset)
{
    using Value = std::remove_extent_t<Type>;
    const std::size_t count = std::is_array_v<Type> ? std::extent_v<Type> : 1;
    return {record, name, static_cast<std::int64_t>(offset), sizeof(Value), count, std::is_signed_v<Value> ? 1 : 0};
}

/// The same rows from the records and codes of the product.
std::vector<FormatRow> productRows()
{
    return {
#define KTL_RECORD(record) {#record, "", sizeof(record), 0, 0, 0},
#define KTL_FIELD(record, field) \
    fieldRow<decltype(std::declval<record&>().field)>(#record, #field, offsetof(record, field)),
#define KTL_ARRAY(record, field) KTL_FIELD(record, field)
#define KTL_PLACE(record, field) {#record, #field, offsetof(record, field), 0, 0, 0},
#define KTL_CODE(code) {"", #code, code, 0, 0, 0},
#define KTL_TOKEN(code, token) {"", #code, token, 0, 0, 0},
#include "formatHeader/formatNames.inc"
#undef KTL_RECORD
#undef KTL_FIELD
#undef KTL_ARRAY
#undef KTL_PLACE
#undef KTL_CODE
#undef KTL_TOKEN
    };
}

QStringList textsOf(const std::vector<FormatRow>& rows)
{
    QStringList texts;
    for (const FormatRow& row : rows)
        texts.append(textOf(row));
    return texts;
}

/// Fields of a record in their order, without the place of what follows it.
std::vector<FormatRow> fieldsOf(const std::vector<FormatRow>& rows, const QByteArray& record)
{
    std::vector<FormatRow> fields;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(fields),
                 [&](const FormatRow& row) { return row.record == record && row.width != 0; });
    return fields;
}

QByteArray page(const char* name)
{
    QFile file(QStringLiteral(KINETRA_SOURCE_DIR "/docs/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Names and numbers that a text gives, the number first or last.
QMap<QString, int> numbersIn(const QByteArray& text, const char* pattern)
{
    QMap<QString, int> numbers;
    const QRegularExpression expression(QString::fromLatin1(pattern), QRegularExpression::MultilineOption);
    for (auto match = expression.globalMatch(QString::fromUtf8(text)); match.hasNext();) {
        const QRegularExpressionMatch each = match.next();
        numbers.insert(each.captured(QStringLiteral("name")), each.captured(QStringLiteral("number")).toInt());
    }
    return numbers;
}

/// Counts as a text, for a comparison that shows them.
QString textOf(const FormatCounts& counts)
{
    QString text = counts.isWhole != 0 ? QStringLiteral("whole") : QStringLiteral("not whole");
    for (const std::size_t number : {counts.items, counts.runs, counts.devices, counts.fmmus, counts.syncManagers,
                                     counts.modes, counts.pdos, counts.entries, counts.commands, counts.slotRecords,
                                     counts.presets, counts.modules, counts.moduleEntries, counts.moduleCommands})
        text += QStringLiteral(" %1").arg(number);
    return text;
}

void addBlock(FormatCounts& counts, const KtlDeviceBlock& block)
{
    ++counts.devices;
    counts.fmmus += block.fmmus.size();
    counts.syncManagers += block.syncManagers.size();
    counts.modes += block.modes.size();
    counts.pdos += block.pdos.size();
    for (const KtlPdo& pdo : block.pdos)
        counts.entries += pdo.entries.size();
    counts.commands += block.eoeCommands.size() + block.coeCommands.size();
    counts.slotRecords += block.deviceSlots ? block.deviceSlots->records.size() : 0;
    counts.presets += block.preset ? block.preset->records.size() : 0;
    counts.modules += block.modules.size();
    for (const KtlModule& module : block.modules) {
        for (const KtlModulePdo& pdo : module.pdos)
            counts.moduleEntries += pdo.entries.size();
        counts.moduleCommands += module.commands.size();
    }
}

/// What the product counts in a file.
FormatCounts productCounts(const QByteArray& content)
{
    const std::vector<unsigned char> file(content.begin(), content.end());
    const KtlWalk walk = walkItems(file);
    FormatCounts counts = {};
    counts.items = walk.items.size();
    counts.runs = static_cast<std::size_t>(std::count_if(
        walk.items.begin(), walk.items.end(), [](const KtlFileItem& item) { return item.type == KTL_ITEM_END; }));
    for (const KtlBlockPlace& place : blockPlacesOf(walk))
        addBlock(counts, deviceBlockAt(walk, place));
    counts.isWhole = walk.end == KtlWalkEnd::Whole || walk.end == KtlWalkEnd::NoEndItem ? 1 : 0;
    return counts;
}

QByteArray exportOf(const QString& path)
{
    g_xmlfiledevices.clear();
    if (loadIntoList(path).status != EsiLoadStatus::Loaded)
        return {};
    int code = 0;
    const auto all = [](std::size_t, std::size_t) { return true; };
    QByteArray file = writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, g_xmlfiledevices, all, &code)); });
    g_xmlfiledevices.clear();
    return file;
}

/// One record that an item has after its head, by the code of the item.
const QMap<std::uint32_t, QByteArray> recordNames{
    {KTL_ITEM_FMMU, "struct_KTL_FmmuAttributes"},
    {KTL_ITEM_SM, "struct_KTL_SmAttributes"},
    {KTL_ITEM_DC, "struct_KTL_DcAttributes"},
    {KTL_ITEM_RxPdo, "struct_KTL_EntryPDOContent"},
    {KTL_ITEM_TxPdo, "struct_KTL_EntryPDOContent"},
    {KTL_ITEM_EoE, "struct_KTL_InitCmd"},
    {KTL_ITEM_CoE, "struct_KTL_InitCmd"},
    {KTL_ITEM_Slot, "struct_KTL_SlotContent"},
    {KTL_ITEM_SlotPreConfig, "struct_KTL_Slot_PreModuleIdent"},
    {KTL_ITEM_ModuleRPDOEntryType, "struct_KTL_modulePdoOne"},
    {KTL_ITEM_ModuleTPDOEntryType, "struct_KTL_modulePdoOne"},
    {KTL_ITEM_ModuleCoEInitCmdType, "struct_KTL_moduleStartupOne"},
};

/// The rows of a layout's fields, as those of a record of that name.
std::vector<FormatRow> layoutRows(const KtlFields& fields, const QByteArray& record)
{
    std::vector<FormatRow> rows;
    for (const KtlField& field : fields)
        rows.push_back({record.constData(), field.name, static_cast<std::int64_t>(field.offset), field.width,
                        field.count, field.isSigned ? 1 : 0});
    return rows;
}

} // namespace

class tst_FormatHeader : public QObject
{
    Q_OBJECT

private slots:
    void sameInAllLanguages();
    void fieldsOfTheLayouts();
    void noFieldIsMissing();
    void noCodeIsMissing();
    void version();
    void countsOfExports_data();
    void countsOfExports();
    void countsOfOddFiles_data();
    void countsOfOddFiles();

private:
    static void checkCounts(const QByteArray& file);
};

void tst_FormatHeader::sameInAllLanguages()
{
    const QStringList product = textsOf(productRows());
    QCOMPARE(textsOf(headerRows(formatRowsInC)), product);
    QCOMPARE(textsOf(headerRows(formatRowsInCpp)), product);
}

/// Each field of the layout tables once, in their order, under the record that the page names for the code.
void tst_FormatHeader::fieldsOfTheLayouts()
{
    const std::vector<FormatRow> rows = headerRows(formatRowsInC);
    const QRegularExpression expression(QStringLiteral(R"(^\| (\d+) \| 0x[0-9A-F]+ \| `KTL_ITEM_\w+` \| (\S+) \|)"),
                                        QRegularExpression::MultilineOption);
    int items = 0;
    for (auto match = expression.globalMatch(QString::fromUtf8(page("ktl-format.md"))); match.hasNext(); ++items) {
        const QRegularExpressionMatch each = match.next();
        const std::uint32_t code = each.captured(1).toUInt();
        QByteArray head = each.captured(2).remove(QLatin1Char('`')).toLatin1();
        if (head == "none")
            head = "KtlItemHead";
        const KtlItemLayout& layout = layoutOf(code);
        QCOMPARE(textsOf(fieldsOf(rows, head)), textsOf(layoutRows(layout.head, head)));
        const QByteArray record = recordNames.value(code);
        QCOMPARE(textsOf(fieldsOf(rows, record)), textsOf(layoutRows(layout.record, record)));
    }
    QCOMPARE(items, 25);
}

/// Fields follow each other without a gap, up to the end of the record or the place of what follows it, so that the
/// list that C and C++ have gone through has left none out.
void tst_FormatHeader::noFieldIsMissing()
{
    std::int64_t end = 0;
    std::int64_t size = 0;
    int records = 0;
    for (const FormatRow& row : headerRows(formatRowsInC)) {
        if (row.record[0] == '\0')
            break; // codes
        const bool isRecord = row.name[0] == '\0';
        if (isRecord) {
            QCOMPARE(end, size);
            end = 0;
            size = row.place;
            ++records;
            continue;
        }
        QCOMPARE(row.place, end);
        end = row.width == 0 ? size : end + static_cast<std::int64_t>(row.width * row.count);
    }
    QCOMPARE(end, size);
    QCOMPARE(numbersIn(page("ktl_format.h"), R"(^typedef struct (?<name>\w+)$(?<number>))").size(), records);
}

/// The codes of the list are all that the header declares, all that the page has, and all items that the product knows.
void tst_FormatHeader::noCodeIsMissing()
{
    QMap<QString, int> codes;
    QMap<QString, int> named; // in the page; tokens have no names there
    std::size_t items = 0;
    int transitions = 0;
    for (const FormatRow& row : headerRows(formatRowsInC)) {
        const QString name = QLatin1String(row.name);
        if (row.record[0] != '\0')
            continue;
        codes.insert(name, static_cast<int>(row.place));
        const bool isTransition = name.startsWith(QLatin1String("KTL_TRANSITION_"));
        transitions += isTransition ? 1 : 0;
        if (!isTransition && !name.startsWith(QLatin1String("KTL_ACCESS_")))
            named.insert(name, static_cast<int>(row.place));
        items += name.startsWith(QLatin1String("KTL_ITEM_")) ? 1 : 0;
    }
    QCOMPARE(numbersIn(page("ktl_format.h"), R"(^    (?<name>KTL_\w+) = (?<number>-?\d+),?( /\*|$))"), codes);
    QCOMPARE(numbersIn(page("ktl-format.md"), R"(^\| (?<number>-?\d+) \| (0x[0-9A-F]+ \| )?`(?<name>KTL_\w+)` \|)"),
             named);
    std::size_t known = 0;
    for (std::uint32_t code = 0; code < 0x10000; ++code)
        known += isKnownItem(code) ? 1 : 0;
    QCOMPARE(items, known);
    QCOMPARE(transitions, BI + 1); // with 0 for none; the numbers are compared with the tokens elsewhere
}

void tst_FormatHeader::version()
{
    const QString line = QStringLiteral("#define KTL_FORMAT_VERSION 0x%1u ").arg(formatVersion, 0, 16);
    QVERIFY2(page("ktl_format.h").contains(line.toLatin1()), qPrintable(line));
}

void tst_FormatHeader::checkCounts(const QByteArray& file)
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(file.constData());
    const auto size = static_cast<std::size_t>(file.size());
    const QString expected = textOf(productCounts(file));
    QCOMPARE(textOf(formatCountsInC(bytes, size)), expected);
    QCOMPARE(textOf(formatCountsInCpp(bytes, size)), expected);
}

void tst_FormatHeader::countsOfExports_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(KINETRA_SOURCE_DIR "/samples"));
    const QStringList names = folder.entryList({"*.xml"}, QDir::Files);
    QVERIFY(names.size() >= 5);
    for (const QString& name : names)
        QTest::addRow("%s", qPrintable(name)) << folder.filePath(name);
}

/// The whole export, two runs of it, and the export cut at each fourth of its bytes.
void tst_FormatHeader::countsOfExports()
{
    QFETCH(QString, path);
    const QByteArray file = exportOf(path);
    QVERIFY(productCounts(file).devices > 0);
    checkCounts(file);
    checkCounts(file + file);
    for (int size = file.size() / 4; size < file.size(); size += file.size() / 4 + 1)
        checkCounts(file.left(size));
}

void tst_FormatHeader::countsOfOddFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("number");
    const QByteArray general = le32(40000) + le32(52) + zeros(44);
    const auto coe = [&](int announced, int count, int records) {
        return general + le32(40006) + le32(static_cast<std::uint32_t>(announced)) + zeros(7)
               + QByteArray(1, static_cast<char>(count)) + zeros(12 * records);
    };
    const auto slots256 = general + le32(40007) + le32(20 + 124 * 256) + zeros(12 + 124 * 256);
    QTest::newRow("no byte") << QByteArray() << "items" << 0;
    QTest::newRow("a head that is cut") << general.left(7) << "items" << 0;
    QTest::newRow("a size below 8") << le32(0) + le32(7) + zeros(4) << "items" << 0;
    QTest::newRow("a negative type") << le32(0x80000000U) + le32(12) + zeros(4) << "items" << 0;
    QTest::newRow("an unknown code") << le32(41000) + le32(20) + zeros(12) + general << "devices" << 1;
    QTest::newRow("two gigabytes in 20 bytes")
        << general + le32(40014) + le32(0x7FFFFFFCU) + le32(9) + zeros(8) << "items" << 2;
    QTest::newRow("a count that leaves its item")
        << general + le32(40001) + le32(28) + le32(99) + zeros(16) + general << "syncManagers" << 1;
    QTest::newRow("255 commands, by the byte") << coe(16 + 12 * 3, 255, 3) << "commands" << 3;
    QTest::newRow("255 commands, by the size") << coe(16 + 12 * 255, 3, 255) << "commands" << 255;
    QTest::newRow("254 commands and values") << coe(16 + 12 * 254 + 8, 253, 255) << "commands" << 253;
    QTest::newRow("commands that are cut") << coe(16 + 12 * 300, 255, 2) << "commands" << 2;
    QTest::newRow("256 slots") << slots256 << "slotRecords" << 256;
}

void tst_FormatHeader::countsOfOddFiles()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, field);
    QFETCH(int, number);
    const FormatCounts counts = formatCountsInC(reinterpret_cast<const unsigned char*>(file.constData()),
                                                static_cast<std::size_t>(file.size()));
    const QMap<QString, std::size_t> numbers{{"items", counts.items},
                                             {"devices", counts.devices},
                                             {"syncManagers", counts.syncManagers},
                                             {"commands", counts.commands},
                                             {"slotRecords", counts.slotRecords}};
    QVERIFY(numbers.contains(field));
    QCOMPARE(numbers.value(field), static_cast<std::size_t>(number));
    if (field != QLatin1String("devices") && !file.isEmpty())
        checkCounts(file);
}

static const testMain::Registration<tst_FormatHeader, QCoreApplication> registration;
#include "tst_FormatHeader.moc"
