#include "diff/sections.h"
#include "show/showWords.h"

#include <array>

namespace diff {

namespace {

constexpr std::array identityFields{
    Field<Subject>{"vendor", "vendor id", Weight::Breaking,
                   [](const Subject& device) { return hexadecimal(device.unit->vendor); }},
    Field<Subject>{"productCode", "product code", Weight::Breaking,
                   [](const Subject& device) { return hexadecimal(device.unit->product); }},
    Field<Subject>{"revisionNo", "revision", Weight::Breaking,
                   [](const Subject& device) { return hexadecimal(device.unit->revision); }},
    Field<Subject>{"serialNo", "serial number", Weight::Breaking,
                   [](const Subject& device) { return hexadecimal(device.traits.serial); }},
    Field<Subject>{"type", "type", Weight::Text, [](const Subject& device) { return text(device.unit->type); },
                   In::Esi},
    Field<Subject>{"checkProductCode", "check of the product code", Weight::Behaviour,
                   [](const Subject& device) { return words(show::tokenName(device.traits.checkProductCode)); },
                   In::Esi},
    Field<Subject>{"deviceType", "class", Weight::Breaking,
                   [](const Subject& device) {
                       const std::string name = show::deviceTypeName(device.traits.deviceType);
                       return name.empty() ? decimal(device.traits.deviceType) : words(name);
                   }},
    Field<Subject>{"driveAxes", "drive axes", Weight::Breaking,
                   [](const Subject& device) { return decimal(device.traits.driveAxes); }},
    Field<Subject>{"coe", "CoE mailbox", Weight::Breaking,
                   [](const Subject& device) { return flag(device.unit->hasCoe); }},
    Field<Subject>{"sdoSupport", "SDO support", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.hasSdoSupport); }},
    Field<Subject>{"slotCount", "slots that it counts", Weight::Behaviour,
                   [](const Subject& device) { return decimal(device.traits.countedSlots); }},
    Field<Subject>{"moduleCount", "modules that it counts", Weight::Behaviour,
                   [](const Subject& device) { return decimal(device.traits.countedModules); }},
    Field<Subject>{"sdoInfo", "SDO information", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.hasSdoInfo); }},
    Field<Subject>{"pdoAssign", "assigning PDOs", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.unit->canAssign); }},
    Field<Subject>{"pdoUpload", "reading PDOs from the device", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.canUploadPdos); }},
    Field<Subject>{"pdoConfig", "mapping PDO entries", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.canConfigurePdos); }},
    Field<Subject>{"segmentedSdo", "segmented SDO", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.hasSegmentedSdo); }},
    Field<Subject>{"completeAccess", "complete access", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.unit->supportsCompleteAccess); }},
    Field<Subject>{"diagHistory", "diagnosis history", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.hasDiagnosisHistory); }},
    Field<Subject>{"eoeIp", "IP address over EoE", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.isEoeIp); }},
    Field<Subject>{"eoeMac", "MAC address over EoE", Weight::Behaviour,
                   [](const Subject& device) { return flag(device.traits.isEoeMac); }},
};

constexpr Field<Subject> nameField{"name", "name", Weight::Text, [](const Subject& device) {
                                       return device.unit->name.empty() ? noValue() : text(device.unit->name);
                                   }};

/// Whether names can be compared: a KTL file has none if its ESI file has no modules.
bool haveNames(const Subject& before, const Subject& after, const Comparison& out)
{
    return out.sides() == Sides::Esi || out.isOfAll() || (!before.unit->name.empty() && !after.unit->name.empty());
}

} // namespace

void compareIdentity(const Subject& before, const Subject& after, Comparison& out)
{
    const auto spotOf = [&] { return Spot{Area::Device, {}, before.unit->where, after.unit->where}; };
    out.compare(identityFields, before, after, spotOf);
    if (haveNames(before, after, out))
        out.compare(nameField, before, after, spotOf);
}

} // namespace diff
