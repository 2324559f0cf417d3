// moduleRecords.h - modules of a file, and the PDOs that they bring into a device.
#pragma once

#include "model/dictionaryRecords.h"
#include "model/startupRecords.h"

#include <cstdint>
#include <string>
#include <vector>

/// Object index of a module PDO's entry, with the rules for moving it to a slot.
struct ModuleEntryIndex
{
    bool DependOnSlot = false; ///< the index moves with the slot
    bool m_DependOnSlotGroup = false; ///< the index moves with the slot group
    std::uint16_t index = 0; ///< object index
};

/// One entry of a module PDO.
struct struct_moduleEntry
{
    ModuleEntryIndex indexAttributes;
    std::uint16_t SubIndex = 0; ///< object sub-index
    int BitLen = 0; ///< length in bits
    std::string Name; ///< entry name
    std::string DataType; ///< data type name
    std::string Comment;
    std::uint32_t DefaultData = 0; ///< not read from ESI
    std::int32_t Linkto = 0; ///< link to an input or output of the controller, a value of `enum_KTL_PDO_TYPE`
    float Offs = 0; ///< place in the PDO, byte.bit form
};
using str_moduleEntry = struct_moduleEntry;

/// Attributes of a module PDO.
struct ModulePdoAttributes
{
    bool Fixed = false; ///< the content cannot be changed
    bool Mandatory = false; ///< the PDO must be assigned
    int SM = -1; ///< number of the sync manager it is assigned to, -1 for none
    int SU = 0; ///< number of the sync unit
};

/// Index of a module PDO, with the rules for moving it to a slot.
struct ModulePdoIndex
{
    bool DependOnSlot = false; ///< the index moves with the slot
    bool DependOnSlotGroup = false; ///< the index moves with the slot group
    std::uint16_t index = 0; ///< PDO index
};

/// One PDO of a module, or its copy in a device.
struct modulePdo
{
    ModulePdoAttributes Attributes;
    ModulePdoIndex indexAttributes;
    std::string Name; ///< PDO name
    std::vector<struct_moduleEntry> vEntry; ///< in document order
    float size = 0; ///< total size, byte.bit form
    int Instances = 0; ///< in a copy: that of the module in the slot, see `struct_slotmodule`
};

/// Attributes of a module's `Type` element.
struct ModuleTypeAttributes
{
    bool SRA_ParamterSupported = false;
    int ModulePdoGroup = 0;
    std::uint32_t ModuleIdent = 0; ///< the key by which slots refer to the module
    std::string ModuleClass;
    std::string Name; ///< text of the element
};

/// PDOs of one direction of a module.
struct ModulePdoList
{
    std::vector<modulePdo> vpdo;
};

/// CoE dictionary of a module.
struct ModuleDictionary
{
    std::vector<struct_DataTypes> vdatatype;
    std::vector<struct_Object> vobject;
};

/// CoE mailbox of a module.
struct ModuleCoe
{
    std::vector<struct_moduleInitCmd> vinitcmd; ///< startup commands
};

/// Mailbox of a module.
struct moduleMailobx
{
    ModuleCoe COE;
};

/// One module of a file.
struct struct_module
{
    ModuleTypeAttributes TypeAttributes;
    std::string Name; ///< the last `Name` of the module
    ModulePdoList RxPdo; ///< output PDOs
    ModulePdoList TxPdo; ///< input PDOs
    ModuleDictionary Dictionary;
    moduleMailobx Mailbox;
    std::uint32_t m_profileNO = 0; ///< profile number
};
using str_module = struct_module;

/// A run of modules of one file, led by an XML comment.
struct struct_commentmodule
{
    std::string comment; ///< text of the comment before the run, empty if the run has none
    std::vector<struct_module> vmodule; ///< in document order
};
using str_commentmodule = struct_commentmodule;

// Compiled once, in recordLists.cpp.
extern template class std::vector<struct_moduleEntry>;
extern template class std::vector<modulePdo>;
extern template class std::vector<struct_module>;
extern template class std::vector<struct_commentmodule>;
