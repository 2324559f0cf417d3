#include "editing/slotTable.h"

#include "model/valueTexts.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::uint32_t maxShownPlaces = 99;
constexpr int slotColumn = 0;
constexpr int moduleColumn = 1;
constexpr int identColumn = 2;

/// A row of the table; rows up to it are made where they are missing.
QStringList& rowAt(std::vector<QStringList>& rows, std::size_t row)
{
    if (rows.size() <= row)
        rows.resize(row + 1, QStringList{QString(), QString(), QString()});
    return rows[row];
}

QString placeName(const struct_Slot& slot, std::uint32_t place)
{
    const QString name = QString::fromStdString(slot.Name);
    return slot.Attributes.MaxInstances == 1 ? name : name + QLatin1Char('-') + QString::number(place);
}

} // namespace

SlotTable slotTableOf(const DeviceSlots& deviceSlots)
{
    SlotTable table;
    std::size_t row = 0;
    for (const struct_Slot& slot : deviceSlots.vslot) {
        if (slot.Attributes.MaxInstances > maxShownPlaces) {
            ++table.overflows;
            continue;
        }
        for (std::uint32_t place = 0; place < slot.Attributes.MaxInstances; ++place)
            rowAt(table.rows, row++)[slotColumn] = placeName(slot, place);
        for (const struct_slotmodule& placed : slot.slotmodule) {
            if (placed.Instances < 0)
                continue;
            QStringList& cells = rowAt(table.rows, static_cast<std::size_t>(placed.Instances));
            cells[moduleColumn] = QString::fromStdString(placed.module.Name);
            cells[identColumn] = hexNumber(placed.module.TypeAttributes.ModuleIdent);
        }
    }
    return table;
}
