#include "choices/moduleLookUp.h"

#include "editing/deviceLabel.h"
#include "model/moduleAccess.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

#include <QFileInfo>

namespace choices {

namespace {

QString shown(const ModuleName& name)
{
    return shownText(name.ident.has_value() ? hexNumber(*name.ident) : name.name);
}

} // namespace

bool isNamed(const struct_module& module, const ModuleName& name)
{
    if (name.ident.has_value())
        return module.TypeAttributes.ModuleIdent == *name.ident;
    const std::string text = name.name.toStdString();
    return module.Name == text || module.TypeAttributes.Name == text;
}

QString moduleLabel(const struct_module& module)
{
    return QStringLiteral("module %1 %2")
        .arg(hexNumber(module.TypeAttributes.ModuleIdent), shownText(QString::fromStdString(module.Name)));
}

ModuleLookUp::ModuleLookUp(struct_FilenameDevice& file)
    : m_fileName(QFileInfo(inputPathOf(file)).fileName())
{
    forEachModule(file, [this](struct_module& module) {
        m_modules.push_back(&module);
        m_idents[module.TypeAttributes.ModuleIdent].push_back(&module);
        m_names[module.Name].push_back(&module);
        if (module.TypeAttributes.Name != module.Name)
            m_names[module.TypeAttributes.Name].push_back(&module);
    });
}

const std::vector<struct_module*>* ModuleLookUp::all(const ModuleName& name) const
{
    const auto valueOf = [](const auto& map, const auto& key) {
        const auto found = map.find(key);
        return found == map.end() ? nullptr : &found->second;
    };
    return name.ident.has_value() ? valueOf(m_idents, *name.ident) : valueOf(m_names, name.name.toStdString());
}

FoundModule ModuleLookUp::atRow(std::uint32_t row, const ModuleName& name) const
{
    if (row >= m_modules.size())
        return {nullptr,
                QStringLiteral("there is no module %1, %2 has %3")
                    .arg(QString::number(row), m_fileName, QString::number(m_modules.size())),
                ProblemCode::Row, moduleRowKey};
    struct_module* const module = m_modules[row];
    if (isNamed(*module, name))
        return {module, {}};
    return {nullptr,
            QStringLiteral("%1 stands in row %2, not %3").arg(moduleLabel(*module), QString::number(row), shown(name)),
            ProblemCode::Check};
}

FoundModule ModuleLookUp::named(const ModuleName& name) const
{
    if (name.row.has_value())
        return atRow(*name.row, name);
    const std::vector<struct_module*>* const modules = all(name);
    if (modules == nullptr)
        return {nullptr, QStringLiteral("%1 is no module of %2").arg(shown(name), m_fileName)};
    if (modules->size() > 1)
        return {
            nullptr,
            QStringLiteral("%1 are %2 modules of %3").arg(shown(name), QString::number(modules->size()), m_fileName)};
    return {modules->front(), {}};
}

} // namespace choices
