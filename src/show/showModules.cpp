#include "show/showModules.h"

#include "show/showCommandLists.h"
#include "show/showModelDictionary.h"
#include "show/showPdos.h"

namespace show {

namespace {

Object moduleMembers(const struct_module& module, Detail detail)
{
    const ModuleTypeAttributes& type = module.TypeAttributes;
    const auto firstInput = static_cast<std::int64_t>(module.RxPdo.vpdo.size());
    return {{"name", text(module.Name)},
            {"type", text(type.Name)},
            {"ident", hexadecimal(type.ModuleIdent)},
            {"moduleClass", text(type.ModuleClass)},
            {"pdoGroup", decimal(type.ModulePdoGroup)},
            {"sraParameterSupported", flag(type.SRA_ParamterSupported)},
            {"profileNo", decimal(module.m_profileNO)},
            {"rxPdos", pdosOf(module.RxPdo.vpdo, 0)},
            {"txPdos", pdosOf(module.TxPdo.vpdo, firstInput)},
            {"commands", commandList(module.Mailbox.COE.vinitcmd)},
            {"dictionary", {dictionaryMembers(module.Dictionary.vdatatype, module.Dictionary.vobject, detail)}}};
}

} // namespace

Value moduleGroups(const struct_FilenameDevice& file, Detail detail)
{
    return listOf(file.vcommentmodule, [detail](const struct_commentmodule& group) -> Object {
        const auto moduleOf = [detail](const struct_module& module) { return moduleMembers(module, detail); };
        return {{"comment", text(group.comment)}, {"modules", listOf(group.vmodule, moduleOf)}};
    });
}

} // namespace show
