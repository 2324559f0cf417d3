#include "retrace/moduleLinkRetrace.h"

#include "choices/linkChoices.h"
#include "choices/moduleLookUp.h"
#include "editing/linkTexts.h"
#include "editing/pdoRows.h"
#include "model/pdoAccess.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace retrace {

namespace {

/// The links of one direction of a module block, in the order of its entries.
std::vector<std::int32_t> linksIn(const KtlModule& module, PdoDirection direction)
{
    std::vector<std::int32_t> links;
    for (const KtlModulePdo& pdo : module.pdos)
        if (pdo.isInput == (direction == PdoDirection::Inputs))
            for (const struct_KTL_modulePdoOne& entry : pdo.entries)
                links.push_back(entry.LinkToData);
    return links;
}

choices::LinkChoice linkChoice(const NamedModule& module, const modulePdo& pdo, const struct_moduleEntry& entry)
{
    choices::LinkChoice choice;
    choice.module = module.name;
    choice.checkedIndex = indexOf(pdo);
    choice.checkedObject = choices::ObjectAddress{indexOf(entry), entry.SubIndex};
    choice.checkedName = QString::fromStdString(entry.Name);
    return choice;
}

/// Adds the links of one module.
void addLinks(const NamedModule& named, const KtlModule& exported, std::vector<choices::LinkChoice>& links)
{
    std::uint32_t row = 0;
    forEachPdoList(*named.module, [&](const std::vector<modulePdo>& pdos, PdoDirection direction) {
        const std::vector<std::int32_t> wanted = linksIn(exported, direction);
        std::size_t next = 0;
        for (const modulePdo& pdo : pdos) {
            const std::uint32_t ofThis = row++;
            if (pdo.Attributes.SM < 0)
                continue;
            for (std::size_t position = 0; position < pdo.vEntry.size() && next < wanted.size(); ++position, ++next) {
                const struct_moduleEntry& entry = pdo.vEntry[position];
                if (wanted[next] == entry.Linkto || !isLinkOffered(wanted[next], direction))
                    continue;
                choices::LinkChoice& choice = links.emplace_back(linkChoice(named, pdo, entry));
                choice.pdoRow = ofThis;
                choice.entryPosition = static_cast<std::uint32_t>(position);
                choice.link = wanted[next];
            }
        }
    });
}

} // namespace

std::vector<choices::LinkChoice> moduleLinksOf(const std::vector<NamedModule>& modules, const KtlDeviceBlock& block)
{
    std::vector<choices::LinkChoice> links;
    for (std::size_t place = 0; place < std::min(modules.size(), block.modules.size()); ++place)
        if (modules[place].name.ident == block.modules[place].attributes.ModuleIdent)
            addLinks(modules[place], block.modules[place], links);
    return links;
}

void setModuleLinks(struct_FilenameDevice& file, const std::vector<choices::LinkChoice>& links)
{
    choices::Problems problems; // the links fit, since they come from these modules
    choices::makeModuleLinks(links, choices::ModuleLookUp(file), problems);
}

} // namespace retrace
