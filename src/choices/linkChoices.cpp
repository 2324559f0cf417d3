#include "choices/linkChoices.h"

#include "choices/entryTargets.h"
#include "editing/pdoEdits.h"

#include <map>

namespace choices {

namespace {

template<typename Owner> void makeLink(const LinkChoice& choice, EntryTargets<Owner>& targets, Problems& problems)
{
    const NamedEntry named{choice, choice.path};
    visitNamedEntry(targets, named, problems,
                    [&](auto& pdo, PdoDirection direction, std::size_t row, std::size_t position) {
                        auto& entries = entriesOf(pdo);
                        if (!targets.take(row, position))
                            problems.add(ProblemCode::Link, choice.path, QStringLiteral("this entry is linked twice"));
                        checkTarget(pdo, entries[position], named, problems);
                        checkLink(choice.link, entries[position].Linkto, direction, named, problems);
                        linkEntry(entries, static_cast<int>(position), choice.link);
                    });
}

} // namespace

void makeLinks(const std::vector<LinkChoice>& choices, struct_EtherCatDevice& device, Problems& problems)
{
    EntryTargets<struct_EtherCatDevice> targets(device);
    for (const LinkChoice& choice : choices)
        makeLink(choice, targets, problems);
}

void makeModuleLinks(const std::vector<LinkChoice>& choices, const ModuleLookUp& modules, Problems& problems)
{
    std::map<const struct_module*, EntryTargets<struct_module>> targets;
    for (const LinkChoice& choice : choices) {
        const FoundModule found = modules.named(choice.module);
        if (found.module == nullptr)
            problems.add(found.code, choice.path + QLatin1Char('.') + found.key, found.problem);
        else
            makeLink(choice, targets.try_emplace(found.module, *found.module).first->second, problems);
    }
}

} // namespace choices
