// modulesByIdent.h - the modules that the slots of a file refer to.
#pragma once

#include "model/deviceRecords.h"
#include "model/moduleAccess.h"

#include <cstdint>
#include <unordered_map>

/// The modules of a file by their ident. Of several with the same ident the first one of the first group counts.
class ModulesByIdent
{
public:
    explicit ModulesByIdent(const struct_FilenameDevice& file)
    {
        forEachModule(file, [this](const struct_module& module) {
            m_modules.emplace(module.TypeAttributes.ModuleIdent, &module);
        });
    }

    /// Null if there is none; valid as long as the modules of the file.
    [[nodiscard]] const struct_module* find(std::uint32_t ident) const
    {
        const auto found = m_modules.find(ident);
        return found == m_modules.end() ? nullptr : found->second;
    }

private:
    std::unordered_map<std::uint32_t, const struct_module*> m_modules;
};

/// Whether the module of an ident is in a slot from the start. Of several such idents all are.
[[nodiscard]] inline bool isDefaultOf(const struct_Slot& slot, const struct_ModuleIdent& ident)
{
    return ident.Attributes.Default != 0 && slot.Attributes.MaxInstances != 0;
}
