// ktlRules.cpp - the items of a KTL file.
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "ktl/format/ktlCodes.h"
#include "ktl/reading/itemLimit.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace check {

namespace {

QString labelOf(const KtlFileItem& item)
{
    return isKnownItem(item.type) ? QString::fromLatin1(layoutOf(item.type).name) : QString::number(item.type);
}

Where whereOf(const KtlFileItem& item)
{
    return static_cast<Where>(item.offset);
}

// ---- The end ----

struct EndText
{
    KtlWalkEnd end;
    const char* text;
};

constexpr std::array endTexts{
    EndText{KtlWalkEnd::NoEndItem, "the last run has no End item"},
    EndText{KtlWalkEnd::CutItem, "the file ends inside the last item"},
    EndText{KtlWalkEnd::CutHead, "the file ends inside the head of an item"},
    EndText{KtlWalkEnd::ImpossibleHead, "the head of an item cannot be right, what follows it has no meaning"},
};

void checkEnd(const KtlFacts& facts, Report& report)
{
    for (const EndText& row : endTexts)
        if (row.end == facts.walk.end)
            report.add(static_cast<Where>(facts.walk.offset), QLatin1String(row.text));
}

void checkLimit(const KtlFacts& facts, Report& report)
{
    const std::vector<KtlFileItem>& items = facts.walk.items;
    if (items.size() > maxReadItems)
        report.add(
            whereOf(items[maxReadItems]),
            QStringLiteral("the file has %1 items, the workbench reads back %2").arg(items.size()).arg(maxReadItems));
}

// ---- Sizes and counts ----

/// What is wrong with the size of an item; empty if nothing is.
QString sizeProblem(const KtlFileItem& item)
{
    const KtlItemLayout& layout = layoutOf(item.type);
    const KtlItemParts parts = partsOf(layout, item.bytes);
    if (item.bytes.size() < item.announcedSize)
        return {}; // the end of the file is told
    if (parts.headEnd < layout.head.size())
        return QStringLiteral("has %1 bytes, its head takes %2").arg(item.announcedSize).arg(layout.head.size());
    const std::size_t announced = layout.announcedRecords == nullptr ? 0 : layout.announcedRecords(item.bytes);
    if (announced > parts.records)
        return QStringLiteral("announces %1 records and has %2").arg(announced).arg(parts.records);
    if (parts.fillEnd < item.bytes.size())
        return QStringLiteral("has %1 bytes after its %2 records")
            .arg(item.bytes.size() - parts.fillEnd)
            .arg(parts.records);
    return {};
}

void checkSizes(const KtlFacts& facts, Report& report)
{
    for (const KtlFileItem& item : facts.walk.items)
        if (const QString problem = isKnownItem(item.type) ? sizeProblem(item) : QString(); !problem.isEmpty())
            report.add(whereOf(item), QStringLiteral("the item %1 %2").arg(labelOf(item), problem));
}

void checkUnknown(const KtlFacts& facts, Report& report)
{
    for (const KtlFileItem& item : facts.walk.items)
        if (!isKnownItem(item.type))
            report.add(whereOf(item), QStringLiteral("an item of the unknown type %1").arg(item.type));
}

// ---- Order ----

/// The place of an item in a device block.
struct ItemPlace
{
    std::uint32_t type;
    int rank; ///< grows from item to item
    bool isOnce; ///< in a device, or in a module
};

constexpr int moduleRank = 10; ///< a module may follow another one

constexpr std::array itemPlaces{
    ItemPlace{KTL_ITEM_General, 0, true},
    ItemPlace{KTL_ITEM_FMMU, 1, true},
    ItemPlace{KTL_ITEM_SM, 2, true},
    ItemPlace{KTL_ITEM_DC, 3, true},
    ItemPlace{KTL_ITEM_RxPdo, 4, false},
    ItemPlace{KTL_ITEM_TxPdo, 4, false},
    ItemPlace{KTL_ITEM_EoE, 5, true},
    ItemPlace{KTL_ITEM_CoE, 6, true},
    ItemPlace{KTL_ITEM_Slot, 7, true},
    ItemPlace{KTL_ITEM_SlotPreConfig, 8, true},
    ItemPlace{KTL_ITEM_DeviceMoreInfo, 9, true},
    ItemPlace{KTL_ITEM_ModuleType, moduleRank, false},
    ItemPlace{KTL_ITEM_ModuleRPDOEntryType, 11, true},
    ItemPlace{KTL_ITEM_ModuleTPDOEntryType, 12, true},
    ItemPlace{KTL_ITEM_ModuleCoEInitCmdType, 13, true},
};

const ItemPlace* placeOf(const KtlFileItem& item)
{
    const auto* const found = std::find_if(itemPlaces.begin(), itemPlaces.end(),
                                           [&](const ItemPlace& place) { return place.type == item.type; });
    return found == itemPlaces.end() ? nullptr : found;
}

/// Follows the items of device blocks.
class OrderWalk
{
public:
    /// What is wrong with the place of the next item; empty if nothing is.
    QString take(const KtlFileItem& item)
    {
        if (item.type == KTL_ITEM_END || item.type == KTL_ITEM_General) {
            m_last = item.type == KTL_ITEM_END ? nullptr : placeOf(item);
            return {};
        }
        const ItemPlace* const place = placeOf(item);
        if (place == nullptr)
            return {}; // of no meaning to the controller
        if (m_last == nullptr)
            return QStringLiteral("the item %1 is in no device: no General item is before it").arg(labelOf(item));
        const ItemPlace& before = *m_last;
        const bool beginsModule = place->rank == moduleRank && before.rank > moduleRank;
        if (place->rank < before.rank && !beginsModule)
            return QStringLiteral("the item %1 comes after %2, where it belongs before it")
                .arg(labelOf(item), QLatin1String(layoutOf(before.type).name));
        m_last = place;
        return place->isOnce && place->rank == before.rank
                   ? QStringLiteral("the item %1 is there twice").arg(labelOf(item))
                   : QString();
    }

private:
    const ItemPlace* m_last = nullptr; ///< null outside a device
};

void checkOrder(const KtlFacts& facts, Report& report)
{
    OrderWalk walk;
    for (const KtlFileItem& item : facts.walk.items)
        if (const QString problem = walk.take(item); !problem.isEmpty())
            report.add(whereOf(item), problem);
}

constexpr std::array rules{
    Rule{"ktl-end",
         Severity::Error,
         "a KTL file that does not end as it should",
         "The last item of a file is no End item, or is cut short, or the file ends in a head that cannot be right.",
         "The controller reads a run of devices up to its End item. Without one the whole run is lost.",
         "Export the file again; it was cut short while it was written or copied.",
         "a file without its last 12 bytes",
         {nullptr, checkEnd, nullptr},
         true},
    Rule{"ktl-item-limit",
         Severity::Warning,
         "more items than are read back",
         "A file has more than 2000 items, End items included.",
         "The workbench reads and the dump shows the first 2000. A run that ends after them is not opened again.",
         "Export the devices into several files.",
         "an export of 400 devices",
         {nullptr, checkLimit, nullptr}},
    Rule{"ktl-item-size",
         Severity::Error,
         "a size or count that contradicts the contents",
         "An item of a known type is too short for its head or for the records that it announces, or longer than they "
         "take.",
         "Whoever reads the file takes bytes of the next item for records, or passes records over.",
         "Export the file again. With more than 255 EoE commands the export itself writes a wrong count: remove "
         "commands.",
         "an SM item of 28 bytes that announces 2 sync managers",
         {nullptr, checkSizes, nullptr}},
    Rule{"ktl-item-unknown",
         Severity::Warning,
         "an item of an unknown type",
         "The type of an item is none of the codes of this version of the format.",
         "The controller passes it over, or refuses the file.",
         "Export the file again by this version, or use the program that wrote it.",
         "an item with the type 50000",
         {nullptr, checkUnknown, nullptr}},
    Rule{"ktl-item-order",
         Severity::Error,
         "items out of order",
         "An item of a device comes before the General item that opens it, after one that belongs after it, or twice.",
         "The controller reads the items of a device in their order, and takes what comes too late for another device "
         "or "
         "not at all.",
         "Export the file again.",
         "General, DC, SM",
         {nullptr, checkOrder, nullptr}},
};

} // namespace

RuleFamily ktlRules()
{
    return rules;
}

} // namespace check
