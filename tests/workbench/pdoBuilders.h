// pdoBuilders.h - PDOs, modules and slots as the tests of the tabs need them.
#pragma once

#include "model/XMLParsing.h"

#include <cstdint>
#include <string>
#include <vector>

/// An entry of a device PDO.
inline struct_EntryPDOContent deviceEntry(std::uint16_t index, int bitLength, std::int32_t link = 0)
{
    struct_EntryPDOContent entry;
    entry.Index = index;
    entry.Bitlen = bitLength;
    entry.Linkto = link;
    return entry;
}

/// An entry of a module PDO.
inline struct_moduleEntry moduleEntry(std::uint16_t index, int bitLength, std::int32_t link = 0)
{
    struct_moduleEntry entry;
    entry.indexAttributes.index = index;
    entry.BitLen = bitLength;
    entry.Linkto = link;
    return entry;
}

inline struct_PDOList devicePdo(std::uint16_t index, const std::vector<struct_EntryPDOContent>& entries = {})
{
    struct_PDOList pdo;
    pdo.IndexAttributes.Index = index;
    pdo.Entry.vPdo_c = entries;
    return pdo;
}

inline modulePdo pdoOfModule(std::uint16_t index, const std::vector<struct_moduleEntry>& entries = {})
{
    modulePdo pdo;
    pdo.indexAttributes.index = index;
    pdo.vEntry = entries;
    return pdo;
}

/// A module by its name and ident, which the file gives the type name "<name> type".
inline struct_module moduleNamed(const std::string& name, std::uint32_t ident)
{
    struct_module module;
    module.Name = name;
    module.TypeAttributes.ModuleIdent = ident;
    module.TypeAttributes.Name = name + " type";
    return module;
}

/// A module with an output PDO, whose index moves with the slot, and an input PDO, whose index stays.
inline struct_module moduleWithPdos(const std::string& name, std::uint32_t ident)
{
    struct_module module = moduleNamed(name, ident);
    modulePdo output = pdoOfModule(0x1600, {moduleEntry(0x7000, 8), moduleEntry(0x7001, 16)});
    output.indexAttributes.DependOnSlot = true;
    output.Name = name + " out";
    module.RxPdo.vpdo = {output};
    module.TxPdo.vpdo = {pdoOfModule(0x1A00, {moduleEntry(0x6000, 12)})};
    module.TxPdo.vpdo[0].Name = name + " in";
    return module;
}

inline struct_commentmodule groupOf(const std::string& comment, const std::vector<struct_module>& modules)
{
    struct_commentmodule group;
    group.comment = comment;
    group.vmodule = modules;
    return group;
}

/// A slot that takes the modules of some idents, or any module if none is named.
inline struct_Slot slotNamed(const std::string& name, std::uint32_t places,
                             const std::vector<std::uint32_t>& idents = {})
{
    struct_Slot slot;
    slot.Name = name;
    slot.Attributes.MaxInstances = places;
    for (const std::uint32_t ident : idents) {
        struct_ModuleIdent accepted;
        accepted.ModuleIdent = ident;
        slot.ModuleIdent.push_back(accepted);
    }
    return slot;
}

inline struct_slotmodule placedAt(int place, const struct_module& module)
{
    struct_slotmodule placed;
    placed.Instances = place;
    placed.module = module;
    return placed;
}
