#include "editing/moduleIdentList.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

std::string moduleIdentList(const struct_Slot& slot)
{
    if (slot.slotmodule.empty())
        return {};
    const std::size_t places = static_cast<std::size_t>(std::max(slot.slotmodule.back().Instances, -1) + 1);
    std::vector<std::uint32_t> idents(places);
    for (const struct_slotmodule& placed : slot.slotmodule)
        if (placed.Instances >= 0 && static_cast<std::size_t>(placed.Instances) < places)
            idents[static_cast<std::size_t>(placed.Instances)] = placed.module.TypeAttributes.ModuleIdent;
    QString list = hexNumber(static_cast<std::uint32_t>(places)) + QLatin1Char(' ');
    for (const std::uint32_t ident : idents)
        list += hexNumber(ident) + QLatin1Char(' ');
    return list.toStdString();
}
