// slotFacts.h - the slots of the devices of an ESI file, and the modules that go into them.
#pragma once

#include "check/esiFacts.h"
#include "model/slotRecords.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace check {

/// A slot of a device.
struct SlotFacts
{
    const UnitFacts* device;
    std::size_t number; ///< in its device, from 0
    xml::Element slotList; ///< the `Slots` element
    xml::Element element;
    const struct_Slot* record;
};

/// The slots of a file, in its order.
[[nodiscard]] std::vector<SlotFacts> slotsOf(const EsiFacts& facts);

/// A number that a slot declares itself, or the device for all slots; 0 without one.
/// @param name  of the attribute
[[nodiscard]] std::uint32_t declaredStep(const SlotFacts& slot, std::string_view name);

/// The classes of modules that a slot takes; those without a text are left out.
[[nodiscard]] std::vector<std::string_view> classesOf(const struct_Slot& slot);

/// Places that a device has for a module, over all slots that take it and belong to no group.
struct ModulePlaces
{
    const UnitFacts* module;
    std::size_t device; ///< its place in the file
    std::uint32_t places;
    std::uint32_t pdoStep; ///< the largest that a slot declares, or the device for all its slots
    std::uint32_t objectStep; ///< as above
};

/// The modules of a file by what slots refer to.
class ModuleLookUp
{
public:
    explicit ModuleLookUp(const EsiFacts& facts);

    /// All modules, in the order of the file.
    [[nodiscard]] const std::vector<const UnitFacts*>& modules() const { return m_modules; }

    /// The first module of an ident.
    /// @return  null if there is none
    [[nodiscard]] const UnitFacts* withIdent(std::uint32_t ident) const;

    /// The class that a module names in its `Type`.
    [[nodiscard]] std::string_view classOf(const UnitFacts& module) const { return m_classes[module.owner.index]; }

private:
    std::vector<const UnitFacts*> m_modules;
    std::vector<std::string_view> m_classes; ///< by the place of the module in the file
    std::unordered_map<std::uint32_t, const UnitFacts*> m_byIdent;
};

/// The places for each module in each device that has some.
[[nodiscard]] std::vector<ModulePlaces> modulePlacesOf(const EsiFacts& facts, const ModuleLookUp& modules);

} // namespace check
