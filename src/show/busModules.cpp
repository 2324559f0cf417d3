#include "show/busModules.h"

#include "model/deviceType.h"

#include <algorithm>

namespace show {

namespace {

constexpr std::string_view modulesOnTheBus =
    "The controller finds the modules of this coupler on the bus; their PDOs come after these.";
constexpr std::string_view otherModulesOnTheBus =
    "The controller finds the modules of this coupler on the bus; those in the slots here are shown.";

bool findsModules(int deviceType, bool hasSlots)
{
    return deviceType == KTL_DEVICE_TYPE_PnpIOBlock && hasSlots;
}

bool isOfModule(const facts::PdoFacts& pdo)
{
    return pdo.place >= 0;
}

} // namespace

std::string_view busModulesNote(const struct_EtherCatDevice& device, const facts::UnitFacts& unit)
{
    if (!findsModules(device.m_iDeviceType, unit.hasSlots))
        return {};
    return std::any_of(unit.pdos.begin(), unit.pdos.end(), isOfModule) ? otherModulesOnTheBus : modulesOnTheBus;
}

std::string_view busModulesNote(const KtlDeviceBlock& block)
{
    const bool hasSlots = block.deviceSlots.has_value() && !block.deviceSlots->records.empty();
    return findsModules(block.general.m_iDeviceType, hasSlots) ? modulesOnTheBus : std::string_view();
}

} // namespace show
