// moduleSection.cpp - one element of a run of modules: identity, PDOs, startup commands and dictionary of a module.
#include "esi/fieldRules.h"
#include "esi/sections/initCmdReader.h"
#include "esi/sections/pdoReader.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>

namespace {

// ---- Identity ----

const std::array typeRules{
    attribute("ModuleIdent", storeUint<&ModuleTypeAttributes::ModuleIdent>),
    attribute("ModuleClass", storeText<&ModuleTypeAttributes::ModuleClass>),
    attribute("ModulePdoGroup", storeUint<&ModuleTypeAttributes::ModulePdoGroup>),
    // ODD, KEPT: the attribute is read by this name only, where one would expect "SRA_ParameterSupported". Pinned by
    // tst_ModuleSection::typeNamesAreExact.
    attribute("SRA_ParamterSupported", storeBool<&ModuleTypeAttributes::SRA_ParamterSupported>),
};

void readModuleType(struct_module& module, const xml::Element& element)
{
    readAttributes(element, typeRules, module.TypeAttributes);
    storeText<&ModuleTypeAttributes::Name>(module.TypeAttributes, element.text());
}

// ---- Indexes, which may move with the slot that the module goes into ----

/// @tparam GroupFlag  the field of "DependOnSlotGroup", which an entry's index calls differently
template<auto GroupFlag>
const std::array indexRules{
    attribute("DependOnSlot", storeBool<&RecordOf<GroupFlag>::DependOnSlot>),
    attribute("DependOnSlotGroup", storeBool<GroupFlag>),
};

/// Reads an `Index` element of a PDO, an entry or a startup command.
template<auto GroupFlag, typename Owner> void readIndex(Owner& to, const xml::Element& element)
{
    readAttributes(element, indexRules<GroupFlag>, to.indexAttributes);
    storeUint<&RecordOf<GroupFlag>::index>(to.indexAttributes, element.text());
}

// ---- PDOs ----

const std::array pdoAttributeRules{
    attribute("Fixed", storeBool<&ModulePdoAttributes::Fixed>),
    attribute("Sm", storeUint<&ModulePdoAttributes::SM>),
    attribute("Mandatory", storeBool<&ModulePdoAttributes::Mandatory>),
    // "Su" on the PDO of a module, while the PDO of a device has "SU": vendors' files follow the two schemas.
    attribute("Su", storeUint<&ModulePdoAttributes::SU>),
};

// ODD, KEPT: an entry takes its last name even if it is empty, while a PDO keeps the last one that has a text; on the
// PDOs of devices it is the other way round. One would expect one rule for all. Pinned by tst_ModulePdos::names.
const std::array entryRules{
    child("Index", ofRecord<readIndex<&ModuleEntryIndex::m_DependOnSlotGroup, struct_moduleEntry>>),
    child("SubIndex", ofRecord<storeUint<&struct_moduleEntry::SubIndex>>),
    child("BitLen", storeBitLength<&struct_moduleEntry::BitLen>),
    child("Name", ofRecord<storeText<&struct_moduleEntry::Name>>),
    child("DataType", ofRecord<storeText<&struct_moduleEntry::DataType>>),
    child("Comment", ofRecord<storeText<&struct_moduleEntry::Comment>>),
};

const std::array pdoRules{
    child("Index", ofRecord<readIndex<&ModulePdoIndex::DependOnSlotGroup, modulePdo>>),
    child("Name", ofRecord<storeTextIfAny<&modulePdo::Name>>),
    child("Entry", appendEntry<modulePdo, struct_moduleEntry, entryRules>),
};

template<auto Direction> void appendPdo(struct_module& module, const xml::Element& element)
{
    (module.*Direction).vpdo.push_back(pdoFrom<&modulePdo::size>(element, pdoAttributeRules, pdoRules));
}

// ---- Startup commands: nothing else in a module's mailbox is read, the attributes of `CoE` neither ----

void appendInitCmd(ModuleCoe& coe, const xml::Element& element)
{
    using Command = struct_moduleInitCmd;
    readChildren(element, initCmdRules<Command, readIndex<&ModuleInitCmdIndex::DependOnSlotGroup, Command>>,
                 coe.vinitcmd.emplace_back());
}

void readModuleMailbox(struct_module& module, const xml::Element& element)
{
    xml::forEachChildElement(element, "CoE", [&](const xml::Element& coe) {
        xml::forEachChildElement(coe, "InitCmd",
                                 [&](const xml::Element& command) { appendInitCmd(module.Mailbox.COE, command); });
    });
}

// ---- Profile: the number is directly in it; the channels of a modular drive are those of its device ----

template<Dictionaries How> void readModuleDictionary(struct_module& module, const xml::Element& element)
{
    if constexpr (How == Dictionaries::AreRead)
        readDictionary(module.Dictionary, element);
}

template<Dictionaries How>
const std::array profileRules{
    child("Dictionary", readModuleDictionary<How>),
    child("ProfileNo", storeUint<&struct_module::m_profileNO>),
};

template<Dictionaries How> void readProfile(struct_module& module, const xml::Element& element)
{
    readChildren(element, profileRules<How>, module);
}

template<Dictionaries How>
const std::array moduleRules{
    child("Type", readModuleType),
    child("Name", storeText<&struct_module::Name>),
    child("TxPdo", appendPdo<&struct_module::TxPdo>),
    child("RxPdo", appendPdo<&struct_module::RxPdo>),
    child("Mailbox", readModuleMailbox),
    child("Profile", readProfile<How>),
};

} // namespace

void readModule(struct_module& module, const xml::Element& element, Dictionaries dictionaries)
{
    if (dictionaries == Dictionaries::AreRead)
        readChildren(element, moduleRules<Dictionaries::AreRead>, module);
    else
        readChildren(element, moduleRules<Dictionaries::AreSkipped>, module);
}
