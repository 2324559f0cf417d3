// moduleBuilders.h - modules, and files that hold them, as the tests of the module items need them.
#pragma once

#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"

#include <cstdint>
#include <vector>

inline struct_moduleEntry entryOf(std::uint16_t index, std::uint16_t subIndex, int bits)
{
    struct_moduleEntry entry;
    entry.indexAttributes.index = index;
    entry.SubIndex = subIndex;
    entry.BitLen = bits;
    return entry;
}

inline modulePdo pdoOf(std::uint16_t index, int syncManager, const std::vector<struct_moduleEntry>& entries)
{
    modulePdo pdo;
    pdo.indexAttributes.index = index;
    pdo.Attributes.SM = syncManager;
    pdo.vEntry = entries;
    return pdo;
}

/// A module with an ident and nothing else.
inline struct_module moduleOf(std::uint32_t ident)
{
    struct_module module;
    module.TypeAttributes.ModuleIdent = ident;
    return module;
}

/// A file of the given groups of modules.
inline struct_FilenameDevice fileOf(const std::vector<std::vector<struct_module>>& groups)
{
    struct_FilenameDevice file;
    for (const std::vector<struct_module>& modules : groups) {
        file.vcommentmodule.emplace_back();
        file.vcommentmodule.back().vmodule = modules;
    }
    return file;
}

/// What a device of the file gives as module blocks.
inline QByteArray moduleBlocks(struct_EtherCatDevice device, struct_FilenameDevice file)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_Module(out, &device, &file); });
}
