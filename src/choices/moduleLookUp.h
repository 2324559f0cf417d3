// moduleLookUp.h - the module of a file that a choices file names.
#pragma once

#include "choices/choices.h"
#include "choices/keys.h"
#include "choices/problemCodes.h"
#include "model/XMLParsing.h"

#include <QString>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace choices {

/// Whether a module is the named one: by its ident, or by its name or the name of its type. A row is not looked at.
[[nodiscard]] bool isNamed(const struct_module& module, const ModuleName& name);

/// A module as messages name it: `module 0x216 "MB-DO16"`.
[[nodiscard]] QString moduleLabel(const struct_module& module);

/// Result of a look-up.
struct FoundModule
{
    struct_module* module = nullptr; ///< valid as long as the modules of the file
    QString problem; ///< why there is no module; empty if there is one
    ProblemCode code = ProblemCode::Module; ///< of that problem
    QLatin1String key = moduleKey; ///< that the problem is about
};

/// Finds modules of a file by ident or name.
class ModuleLookUp
{
public:
    /// @param file  must outlive this object and keep its modules
    explicit ModuleLookUp(struct_FilenameDevice& file);

    /// The only module that is the named one, or, with a row, the module there, which has to be one of them.
    [[nodiscard]] FoundModule named(const ModuleName& name) const;

private:
    [[nodiscard]] FoundModule atRow(std::uint32_t row, const ModuleName& name) const;

    /// All modules that are the named one, null for none.
    [[nodiscard]] const std::vector<struct_module*>* all(const ModuleName& name) const;

    QString m_fileName;
    std::vector<struct_module*> m_modules; ///< of all groups, in document order
    std::map<std::uint32_t, std::vector<struct_module*>> m_idents;
    std::map<std::string, std::vector<struct_module*>> m_names;
};

} // namespace choices
