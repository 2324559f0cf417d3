/* formatHeader.c - a reader of KTL files such as firmware has, with docs/ktl_format.h and nothing else of the project.
 * It is compiled as strict C99, and by formatHeader.cpp as C++. */
#include "ktl_format.h"

#include "formatHeader.h"

#include <string.h>

#ifdef __cplusplus
#define IN_LANGUAGE(name) name##InCpp
#else
#define IN_LANGUAGE(name) name##InC
#endif

struct Rows
{
    struct FormatRow* rows;
    size_t count;
};

static void addRow(struct Rows* rows, const char* record, const char* name, int64_t place, size_t width, size_t count,
                   int isSigned)
{
    struct FormatRow row;
    row.record = record;
    row.name = name;
    row.place = place;
    row.width = width;
    row.count = count;
    row.isSigned = isSigned;
    if (rows->count < MaxFormatRows)
        rows->rows[rows->count] = row;
    ++rows->count;
}

/* A field all of whose bits are set is below 0 if it is signed. */
#define IS_SIGNED(record, element) ((int64_t)((const record*)bits)->element < 0)

#define KTL_RECORD(record) addRow(&rows, #record, "", (int64_t)sizeof(record), 0, 0, 0);
#define KTL_FIELD(record, field)                                                                     \
    addRow(&rows, #record, #field, (int64_t)offsetof(record, field), sizeof(((record*)0)->field), 1, \
           IS_SIGNED(record, field));
#define KTL_ARRAY(record, field)                                                                     \
    addRow(&rows, #record, #field, (int64_t)offsetof(record, field), sizeof(((record*)0)->field[0]), \
           sizeof(((record*)0)->field) / sizeof(((record*)0)->field[0]), IS_SIGNED(record, field[0]));
#define KTL_PLACE(record, field) addRow(&rows, #record, #field, (int64_t)offsetof(record, field), 0, 0, 0);
#define KTL_CODE(code) addRow(&rows, "", #code, code, 0, 0, 0);
#define KTL_TOKEN(code, token) KTL_CODE(code)

size_t IN_LANGUAGE(formatRows)(struct FormatRow to[MaxFormatRows])
{
    unsigned char bits[256];
    struct Rows rows;
    rows.rows = to;
    rows.count = 0;
    memset(bits, 0xFF, sizeof bits);
#include "formatNames.inc"
    return rows.count;
}

/* An item, and the bytes of it that are there. */
struct Item
{
    const unsigned char* bytes;
    uint32_t present;
};

static uint32_t numberAt(struct Item item, size_t offset)
{
    uint32_t number = 0;
    if (offset + sizeof number <= item.present)
        memcpy(&number, item.bytes + offset, sizeof number);
    return number;
}

#define RECORDS(announced, Head, array, Record) \
    ktl_records_that_fit(announced, item.present, offsetof(Head, array), sizeof(Record))
#define COUNTED(Head, array, Record) RECORDS(numberAt(item, offsetof(Head, m_iCount)), Head, array, Record)

static void countDeviceItem(struct FormatCounts* counts, uint32_t code, struct Item item)
{
    struct_KTL_COE coe;
    struct_KTL_EOE eoe;
    struct_KTL_Slots slots;
    memset(&coe, 0, sizeof coe);
    memset(&eoe, 0, sizeof eoe);
    memset(&slots, 0, sizeof slots);
    switch (code) {
    case KTL_ITEM_General:
        ++counts->devices;
        break;
    case KTL_ITEM_FMMU:
        counts->fmmus += COUNTED(struct_KTL_FmmuType, m_aStrKTL_FmmuAttrb, struct_KTL_FmmuAttributes);
        break;
    case KTL_ITEM_SM:
        counts->syncManagers += COUNTED(struct_KTL_SmType, m_aStrKTL_SmAttrb, struct_KTL_SmAttributes);
        break;
    case KTL_ITEM_DC:
        counts->modes += COUNTED(struct_KTL_DcType, m_aStrKTL_DcAttrb, struct_KTL_DcAttributes);
        break;
    case KTL_ITEM_RxPdo:
    case KTL_ITEM_TxPdo:
        ++counts->pdos;
        counts->entries += COUNTED(struct_KTL_PDOListType, m_aStrKTL_EntryPDOContent, struct_KTL_EntryPDOContent);
        break;
    case KTL_ITEM_EoE:
        memcpy(&eoe, item.bytes, item.present < sizeof eoe ? item.present : sizeof eoe);
        counts->commands += RECORDS(eoe.m_iInitCmdCount, struct_KTL_EOE, m_aInitCmd, struct_KTL_InitCmd);
        break;
    case KTL_ITEM_CoE:
        memcpy(&coe, item.bytes, item.present < sizeof coe ? item.present : sizeof coe);
        counts->commands += RECORDS(ktl_coe_commands(&coe), struct_KTL_COE, m_aInitCmd, struct_KTL_InitCmd);
        break;
    case KTL_ITEM_Slot:
        memcpy(&slots, item.bytes, item.present < sizeof slots ? item.present : sizeof slots);
        counts->slotRecords += RECORDS(ktl_slots(&slots), struct_KTL_Slots, m_aSlotContent, struct_KTL_SlotContent);
        break;
    default:
        break; /* passed over by its size, as every unknown code is */
    }
}

static void countModuleItem(struct FormatCounts* counts, uint32_t code, struct Item item)
{
    switch (code) {
    case KTL_ITEM_SlotPreConfig:
        counts->presets += COUNTED(struct_KTL_Slots_Preconfig, m_aModuleIdent, struct_KTL_Slot_PreModuleIdent);
        break;
    case KTL_ITEM_ModuleType:
        ++counts->modules;
        break;
    case KTL_ITEM_ModuleRPDOEntryType:
    case KTL_ITEM_ModuleTPDOEntryType:
        counts->moduleEntries += COUNTED(struct_KTL_moduleEntryType, m_alist, struct_KTL_modulePdoOne);
        break;
    case KTL_ITEM_ModuleCoEInitCmdType:
        counts->moduleCommands += COUNTED(struct_KTL_moduleInitCmdType, m_alist, struct_KTL_moduleStartupOne);
        break;
    default:
        break;
    }
}

struct FormatCounts IN_LANGUAGE(formatCounts)(const unsigned char* file, size_t size)
{
    struct FormatCounts counts;
    size_t offset = 0;
    memset(&counts, 0, sizeof counts);
    while (size - offset >= sizeof(KtlItemHead)) {
        KtlItemHead head;
        struct Item item;
        memcpy(&head, file + offset, sizeof head);
        if (head.m_iItemType > 0x7FFFFFFFu || head.m_iSize > 0x7FFFFFFFu || head.m_iSize < sizeof head)
            return counts;
        item.bytes = file + offset;
        item.present = head.m_iSize <= size - offset ? head.m_iSize : (uint32_t)(size - offset);
        ++counts.items;
        counts.runs += head.m_iItemType == KTL_ITEM_END;
        countDeviceItem(&counts, head.m_iItemType, item);
        countModuleItem(&counts, head.m_iItemType, item);
        offset += item.present;
        if (item.present < head.m_iSize)
            return counts;
    }
    counts.isWhole = offset == size;
    return counts;
}
