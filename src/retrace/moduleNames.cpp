#include "retrace/moduleNames.h"

#include "model/moduleAccess.h"

#include <cstdint>
#include <map>

namespace retrace {

std::vector<NamedModule> namedModulesOf(const struct_FilenameDevice& file)
{
    std::map<std::uint32_t, std::size_t> counts;
    forEachModule(file, [&](const struct_module& module) { ++counts[module.TypeAttributes.ModuleIdent]; });
    std::vector<NamedModule> modules;
    forEachModule(file, [&](const struct_module& module) {
        const std::uint32_t ident = module.TypeAttributes.ModuleIdent;
        NamedModule& named = modules.emplace_back();
        named.module = &module;
        named.name.ident = ident;
        if (counts[ident] > 1)
            named.name.row = static_cast<std::uint32_t>(modules.size() - 1);
    });
    return modules;
}

} // namespace retrace
