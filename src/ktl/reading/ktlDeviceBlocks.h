// ktlDeviceBlocks.h - the devices of a KTL file as the file carries them: the records of each device block together.
// Unlike the reader this invents nothing: what is not in the file is not here.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "ktl/reading/ktlItemWalk.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One PDO of a device, or of a module that is flattened into it.
struct KtlPdo
{
    bool isInput = false;
    struct_KTL_PDOListType head = {};
    std::vector<struct_KTL_EntryPDOContent> entries;
};

/// The entries of one direction of a module.
struct KtlModulePdo
{
    bool isInput = false;
    struct_KTL_moduleEntryType head = {};
    std::vector<struct_KTL_modulePdoOne> entries;
};

/// One module block.
struct KtlModule
{
    KtlModuleAttributes attributes = {};
    std::vector<KtlModulePdo> pdos;
    std::vector<struct_KTL_moduleStartupOne> commands;
};

/// Slots of a device.
struct KtlSlots
{
    struct_KTL_Slots head = {};
    std::vector<struct_KTL_SlotContent> records;
};

/// What is preset in the slots.
struct KtlPreset
{
    struct_KTL_Slots_Preconfig head = {};
    std::vector<struct_KTL_Slot_PreModuleIdent> records;
};

/// Time of the export, and names.
struct KtlMoreInfo
{
    struct_KTL_DeviceMoreInfo head = {};
    std::string text; ///< lines: the name of the device, then those of modules
};

/// One device block.
struct KtlDeviceBlock
{
    std::size_t run = 1; ///< number of its run in the file, from 1
    struct_KTL_EtherCatDeviceType general = {};
    std::vector<struct_KTL_FmmuAttributes> fmmus;
    std::vector<struct_KTL_SmAttributes> syncManagers;
    std::vector<struct_KTL_DcAttributes> modes;
    std::vector<KtlPdo> pdos; ///< in the order of the file
    struct_KTL_EOE eoe = {};
    std::vector<struct_KTL_InitCmd> eoeCommands;
    struct_KTL_COE coe = {};
    std::vector<struct_KTL_InitCmd> coeCommands;
    std::vector<std::uint32_t> accessValues; ///< of all complete accesses, one after another
    std::optional<KtlSlots> deviceSlots;
    std::optional<KtlPreset> preset;
    std::optional<KtlMoreInfo> moreInfo;
    std::vector<KtlModule> modules;
};

/// Where a device block lies in a file.
struct KtlBlockPlace
{
    std::size_t first = 0; ///< its first item, by the place in the walk
    std::size_t end = 0; ///< after its last item
    std::size_t run = 1; ///< number of its run in the file, from 1
};

/// The places of all device blocks of a file. A block begins with a General item. Items before the first of them
/// belong to none.
[[nodiscard]] std::vector<KtlBlockPlace> blockPlacesOf(const KtlWalk& walk);

/// The same up to the first device block whose General item is not there whole: what device that is, no one can say.
[[nodiscard]] std::vector<KtlBlockPlace> readableBlockPlacesOf(const KtlWalk& walk);

/// One device block. Module items before its first ModuleType, and items that no device block has, are left out.
/// @param place  one of `blockPlacesOf`
[[nodiscard]] KtlDeviceBlock deviceBlockAt(const KtlWalk& walk, const KtlBlockPlace& place);

/// The values of each complete access among commands, by the bytes that the commands announce: the file does not
/// separate them.
/// @return  a list for each command; nothing if the bytes do not add up to the values that are there
[[nodiscard]] std::optional<std::vector<std::vector<std::uint32_t>>>
valuesOfCommands(const std::vector<struct_KTL_InitCmd>& commands, const std::vector<std::uint32_t>& values);
