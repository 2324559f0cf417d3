// moduleSection.cpp - one element of a run of modules: identity, PDOs, startup commands and dictionary of a module.
#include "esi/fieldRules.h"
#include "esi/sections/initCmdReader.h"
#include "esi/sections/pdoReader.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>

namespace {

// ---- Identity ----

const std::array typeRules{
    AttributeRule<ModuleTypeAttributes>{QLatin1String("ModuleIdent"), storeUint<&ModuleTypeAttributes::ModuleIdent>},
    AttributeRule<ModuleTypeAttributes>{QLatin1String("ModuleClass"), storeText<&ModuleTypeAttributes::ModuleClass>},
    AttributeRule<ModuleTypeAttributes>{QLatin1String("ModulePdoGroup"),
                                        storeUint<&ModuleTypeAttributes::ModulePdoGroup>},
    // ODD, KEPT: the attribute is read by this name only, where one would expect "SRA_ParameterSupported". Pinned by
    // tst_ModuleSection::typeNamesAreExact.
    AttributeRule<ModuleTypeAttributes>{QLatin1String("SRA_ParamterSupported"),
                                        storeBool<&ModuleTypeAttributes::SRA_ParamterSupported>},
};

void readType(struct_module& module, const QDomElement& element)
{
    readAttributes(element, typeRules, module.TypeAttributes);
    storeText<&ModuleTypeAttributes::Name>(module.TypeAttributes, textOf(element));
}

// ---- Indexes, which may move with the slot that the module goes into ----

/// @tparam GroupFlag  the field of "DependOnSlotGroup", which an entry's index calls differently
template<auto GroupFlag>
const std::array indexRules{
    AttributeRule<RecordOf<GroupFlag>>{QLatin1String("DependOnSlot"), storeBool<&RecordOf<GroupFlag>::DependOnSlot>},
    AttributeRule<RecordOf<GroupFlag>>{QLatin1String("DependOnSlotGroup"), storeBool<GroupFlag>},
};

/// Reads an `Index` element of a PDO, an entry or a startup command.
template<auto GroupFlag, typename Owner> void readIndex(Owner& to, const QDomElement& element)
{
    readAttributes(element, indexRules<GroupFlag>, to.indexAttributes);
    storeUint<&RecordOf<GroupFlag>::index>(to.indexAttributes, textOf(element));
}

// ---- PDOs ----

const std::array pdoAttributeRules{
    AttributeRule<ModulePdoAttributes>{QLatin1String("Fixed"), storeBool<&ModulePdoAttributes::Fixed>},
    AttributeRule<ModulePdoAttributes>{QLatin1String("Sm"), storeUint<&ModulePdoAttributes::SM>},
    AttributeRule<ModulePdoAttributes>{QLatin1String("Mandatory"), storeBool<&ModulePdoAttributes::Mandatory>},
    // "Su" on the PDO of a module, while the PDO of a device has "SU": vendors' files follow the two schemas.
    AttributeRule<ModulePdoAttributes>{QLatin1String("Su"), storeUint<&ModulePdoAttributes::SU>},
};

using Entry = BeingRead<struct_moduleEntry>;

// ODD, KEPT: an entry takes its last name even if it is empty, while a PDO keeps the last one that has a text; on the
// PDOs of devices it is the other way round. One would expect one rule for all. Pinned by tst_ModulePdos::names.
const std::array entryRules{
    ElementRule<Entry>{QLatin1String("Index"),
                       recordFromElement<readIndex<&ModuleEntryIndex::m_DependOnSlotGroup, struct_moduleEntry>>},
    ElementRule<Entry>{QLatin1String("SubIndex"), recordFromText<storeUint<&struct_moduleEntry::SubIndex>>},
    ElementRule<Entry>{QLatin1String("BitLen"), fromText<storeBitLength<&struct_moduleEntry::BitLen>>},
    ElementRule<Entry>{QLatin1String("Name"), recordFromText<storeText<&struct_moduleEntry::Name>>},
    ElementRule<Entry>{QLatin1String("DataType"), recordFromText<storeText<&struct_moduleEntry::DataType>>},
    ElementRule<Entry>{QLatin1String("Comment"), recordFromText<storeText<&struct_moduleEntry::Comment>>},
};

using Pdo = BeingRead<modulePdo>;

const std::array pdoRules{
    ElementRule<Pdo>{QLatin1String("Index"),
                     recordFromElement<readIndex<&ModulePdoIndex::DependOnSlotGroup, modulePdo>>},
    ElementRule<Pdo>{QLatin1String("Name"), recordFromText<storeTextIfAny<&modulePdo::Name>>},
    ElementRule<Pdo>{QLatin1String("Entry"), appendEntry<struct_moduleEntry, entryRules>},
};

template<auto Direction> void appendPdo(struct_module& module, const QDomElement& element)
{
    (module.*Direction).vpdo.push_back(pdoFrom<&modulePdo::size>(element, pdoAttributeRules, pdoRules));
}

// ---- Startup commands: nothing else in a module's mailbox is read, the attributes of `CoE` neither ----

void appendInitCmd(ModuleCoe& coe, const QDomElement& element)
{
    using Command = struct_moduleInitCmd;
    readChildren(element, initCmdRules<Command, readIndex<&ModuleInitCmdIndex::DependOnSlotGroup, Command>>,
                 coe.vinitcmd.emplace_back());
}

void readMailbox(struct_module& module, const QDomElement& element)
{
    forEachChildElement(element, QLatin1String("CoE"), [&](const QDomElement& coe) {
        forEachChildElement(coe, QLatin1String("InitCmd"),
                            [&](const QDomElement& command) { appendInitCmd(module.Mailbox.COE, command); });
    });
}

// ---- Profile: the number is directly in it; the channels of a modular drive are those of its device ----

const std::array dictionaryRules{
    ElementRule<struct_module>{QLatin1String("DataTypes"), bySection<read_device_moduleDataTypes>},
    ElementRule<struct_module>{QLatin1String("Objects"), bySection<read_device_moduleObjects>},
};

void readDictionary(struct_module& module, const QDomElement& element)
{
    readChildren(element, dictionaryRules, module);
}

const std::array profileRules{
    ElementRule<struct_module>{QLatin1String("Dictionary"), readDictionary},
    ElementRule<struct_module>{QLatin1String("ProfileNo"), fromText<storeUint<&struct_module::m_profileNO>>},
};

void readProfile(struct_module& module, const QDomElement& element)
{
    readChildren(element, profileRules, module);
}

const std::array moduleRules{
    ElementRule<struct_module>{QLatin1String("Type"), readType},
    ElementRule<struct_module>{QLatin1String("Name"), fromText<storeText<&struct_module::Name>>},
    ElementRule<struct_module>{QLatin1String("TxPdo"), appendPdo<&struct_module::TxPdo>},
    ElementRule<struct_module>{QLatin1String("RxPdo"), appendPdo<&struct_module::RxPdo>},
    ElementRule<struct_module>{QLatin1String("Mailbox"), readMailbox},
    ElementRule<struct_module>{QLatin1String("Profile"), readProfile},
};

} // namespace

void read_device_Module(QDomElement* element, struct_module* module)
{
    if (element != nullptr && module != nullptr)
        readChildren(*element, moduleRules, *module);
}
