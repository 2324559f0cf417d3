// slotFacts.h - the slots of the devices of an ESI file, and the modules that go into them.
#pragma once

#include "esi/fileElements.h"
#include "esi/xml/tree.h"
#include "facts/unitFacts.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace facts {

/// A slot of a device.
struct SlotFacts
{
    Owner device;
    std::size_t number; ///< in its device, from 0
    xml::Element slotList; ///< the `Slots` element
    xml::Element element;
    const struct_Slot* record;
};

/// The slots of a file, in its order.
[[nodiscard]] std::vector<SlotFacts> slotsOf(const struct_FilenameDevice& file,
                                             const std::vector<DeviceElements>& devices);

/// A number that a slot declares itself, or the device for all slots; 0 without one.
/// @param name  of the attribute
[[nodiscard]] std::uint32_t declaredStep(const SlotFacts& slot, std::string_view name);

/// The classes of modules that a slot takes; those without a text are left out.
[[nodiscard]] std::vector<std::string_view> classesOf(const struct_Slot& slot);

/// The modules of a file by what slots refer to.
class ModuleLookUp
{
public:
    ModuleLookUp() = default;
    /// @param units  of the file, which have to outlive this and stay where they are
    ModuleLookUp(const struct_FilenameDevice& file, const std::vector<UnitFacts>& units);

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

/// What a device has for a module, over all slots that take it and belong to no group.
struct ModuleRoom
{
    std::size_t device = 0; ///< its place in the file
    std::uint32_t places = 0;
    std::uint32_t pdoStep = 0; ///< the largest that a slot declares, or the device for all its slots
    std::uint32_t objectStep = 0; ///< as above
};

/// The rooms of modules, over all devices of a file. Of rooms that differ in the device alone the first is kept, and of
/// others as many as files have that people write.
class ModuleRooms
{
public:
    ModuleRooms(const std::vector<SlotFacts>& allSlots, const ModuleLookUp& modules);

    /// @return  the reference is valid as long as this; a module that slots name by its ident has the rooms of that
    [[nodiscard]] const std::vector<ModuleRoom>& of(const UnitFacts& module, std::string_view moduleClass) const;

private:
    std::unordered_map<const UnitFacts*, std::vector<ModuleRoom>> m_ofModule;
    std::unordered_map<std::string_view, std::vector<ModuleRoom>> m_ofClass;
};

} // namespace facts
