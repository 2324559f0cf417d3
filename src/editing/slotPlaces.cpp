#include "editing/slotPlaces.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::uint32_t mostShownPlaces = 99;
constexpr int slotColumn = 0;
constexpr int moduleColumn = 1;
constexpr int identColumn = 2;

template<typename Modules> auto moduleAt(Modules& modules, int place)
{
    return std::find_if(modules.begin(), modules.end(),
                        [place](const struct_slotmodule& standing) { return standing.Instances == place; });
}

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

struct_Slot* slotAt(DeviceSlots& deviceSlots, int place)
{
    PlaceRange places;
    for (struct_Slot& slot : deviceSlots.vslot) {
        places.first = places.behind;
        places.behind = static_cast<std::uint16_t>(places.first + slot.Attributes.MaxInstances);
        if (places.holds(place))
            return &slot;
    }
    return nullptr;
}

bool acceptsModule(const struct_Slot& slot, std::uint32_t moduleIdent)
{
    const std::vector<struct_ModuleIdent>& idents = slot.ModuleIdent;
    return idents.empty() || std::any_of(idents.begin(), idents.end(), [moduleIdent](const struct_ModuleIdent& ident) {
               return ident.ModuleIdent == moduleIdent;
           });
}

bool SortByInstances(const struct_slotmodule& left, const struct_slotmodule& right)
{
    return left.Instances < right.Instances;
}

void putModule(struct_Slot& slot, int place, const struct_module& module)
{
    if (const auto standing = moduleAt(slot.slotmodule, place); standing != slot.slotmodule.end()) {
        standing->module = module;
        return;
    }
    slot.slotmodule.push_back({place, module});
    std::stable_sort(slot.slotmodule.begin(), slot.slotmodule.end(), SortByInstances);
}

void takeModule(struct_Slot& slot, int place)
{
    if (const auto standing = moduleAt(slot.slotmodule, place); standing != slot.slotmodule.end())
        slot.slotmodule.erase(standing);
}

SlotTable slotTableOf(const DeviceSlots& deviceSlots)
{
    SlotTable table;
    std::size_t row = 0;
    for (const struct_Slot& slot : deviceSlots.vslot) {
        if (slot.Attributes.MaxInstances > mostShownPlaces) {
            ++table.overflows;
            continue;
        }
        for (std::uint32_t place = 0; place < slot.Attributes.MaxInstances; ++place)
            rowAt(table.rows, row++)[slotColumn] = placeName(slot, place);
        for (const struct_slotmodule& standing : slot.slotmodule) {
            if (standing.Instances < 0)
                continue;
            QStringList& cells = rowAt(table.rows, static_cast<std::size_t>(standing.Instances));
            cells[moduleColumn] = QString::fromStdString(standing.module.Name);
            cells[identColumn] = hexNumber(standing.module.TypeAttributes.ModuleIdent);
        }
    }
    return table;
}

std::string moduleIdentList(const struct_Slot& slot)
{
    if (slot.slotmodule.empty())
        return {};
    const std::size_t places = static_cast<std::size_t>(std::max(slot.slotmodule.back().Instances, -1) + 1);
    std::vector<std::uint32_t> idents(places);
    for (const struct_slotmodule& standing : slot.slotmodule)
        if (standing.Instances >= 0 && static_cast<std::size_t>(standing.Instances) < places)
            idents[static_cast<std::size_t>(standing.Instances)] = standing.module.TypeAttributes.ModuleIdent;
    QString list = hexNumber(static_cast<std::uint32_t>(places)) + QLatin1Char(' ');
    for (const std::uint32_t ident : idents)
        list += hexNumber(ident) + QLatin1Char(' ');
    return list.toStdString();
}
