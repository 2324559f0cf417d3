#include "cli/choices/moduleLookUp.h"

#include "cli/choices/problems.h"
#include "esi/xmlCharConversion.h"

#include <QFileInfo>

namespace {

QString shown(const ModuleName& name)
{
    return quoted(name.ident.has_value() ? xmlGetStringuint(*name.ident) : name.name);
}

} // namespace

bool isNamed(const struct_module& module, const ModuleName& name)
{
    if (name.ident.has_value())
        return module.TypeAttributes.ModuleIdent == *name.ident;
    const std::string text = name.name.toStdString();
    return module.Name == text || module.TypeAttributes.Name == text;
}

FoundModule moduleNamed(struct_FilenameDevice& file, const ModuleName& name)
{
    FoundModule found;
    int count = 0;
    for (struct_commentmodule& group : file.vcommentmodule)
        for (struct_module& module : group.vmodule)
            if (isNamed(module, name) && ++count == 1)
                found.module = &module;
    if (count == 1)
        return found;
    const QString fileName = QFileInfo(QString::fromStdString(file.xmlfilepath)).fileName();
    if (count == 0)
        return {nullptr, QStringLiteral("%1 is no module of %2").arg(shown(name), fileName)};
    return {nullptr, QStringLiteral("%1 are %2 modules of %3").arg(shown(name), QString::number(count), fileName)};
}
