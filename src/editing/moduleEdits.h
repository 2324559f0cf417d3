// moduleEdits.h - modules put into places of a device and taken out again by hand, and the coupler's own list of them.
// What follows from the modules is made again by `renewModuleData`.
#pragma once

#include "model/deviceRecords.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>

/// Why a module cannot be put in or taken out by hand.
enum class ModuleRefusal
{
    TypeWithoutModules, ///< the device's type has no modules
    TypeFindsModules, ///< the device's type finds its modules at power-on
    ModuleDoesNotFit, ///< the slot names other modules
};

/// Why modules of a device of that type cannot be put in or taken out by hand; nothing if they can.
[[nodiscard]] std::optional<ModuleRefusal> moduleRefusal(std::uint16_t deviceType);

/// Puts a module into a place. A place that belongs to no slot changes nothing.
/// @return  why the module is refused, with nothing changed; nothing if it is not
[[nodiscard]] std::optional<ModuleRefusal> insertModule(struct_EtherCatDevice& device, int place,
                                                        const struct_module& module);

/// A refusal in the words of the window.
/// @param moduleName  the module that does not fit; the other refusals name none
[[nodiscard]] QString moduleRefusalText(ModuleRefusal refusal, const std::string& moduleName = {});

/// Takes the module out of a place. An empty place, or one that belongs to no slot, changes nothing.
void removeModule(struct_EtherCatDevice& device, int place);

/// Whether a coupler takes the list of its modules by itself.
void setTakesModuleList(struct_EtherCatDevice& device, bool takes);

/// A change that presets modules by hand.
enum class ModulePreset
{
    ChosenType, ///< the device got a type; only that of couplers whose modules are preset by hand counts
    PutInModule, ///< a module is put in, whatever the type
};

/// Whether a change is followed by `moduleListAdvice`: it presets modules of a coupler that takes their list by itself.
[[nodiscard]] bool isModuleListAdvised(const struct_EtherCatDevice& device, ModulePreset change);
