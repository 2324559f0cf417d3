#include "diff/compareDevices.h"

#include "diff/comparison.h"
#include "diff/sections.h"
#include "esi/derivation/rangeErrors.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace diff {

namespace {

Sides sidesOf(const Source& before, const Source& after)
{
    if (before.isKtl() != after.isKtl())
        return Sides::EsiAndKtl;
    return before.isKtl() ? Sides::Ktl : Sides::Esi;
}

void tellLosses(const Subject& before, const Subject& after, Comparison& out)
{
    if (!out.isOfAll())
        return;
    for (const Loss& loss : before.losses)
        out.removed({loss.area, loss.part, loss.where, {}}, Weight::Text);
    for (const Loss& loss : after.losses)
        out.added({loss.area, loss.part, {}, loss.where}, Weight::Text);
}

std::vector<const facts::UnitFacts*> modulesOf(const Subject& device)
{
    std::vector<const facts::UnitFacts*> modules;
    modules.reserve(device.modules.size());
    for (const facts::UnitFacts& module : device.modules)
        modules.push_back(&module);
    return modules;
}

void compareAll(const Subject& before, const Subject& after, Comparison& out)
{
    compareIdentity(before, after, out);
    compareChannels(before, after, out);
    compareClocks(before, after, out);
    comparePdos(*before.unit, *after.unit, Area::Pdo, {}, out);
    compareImages(before, after, out);
    compareStartup(before, after, out);
    compareSlots(before, after, out);
    compareModules(modulesOf(before), modulesOf(after), out);
    compareModuleNames(before, after, out);
    compareDictionaries(*before.unit, *after.unit, {}, out);
    tellLosses(before, after, out);
}

std::vector<Difference> heavyOnes(std::vector<Difference> differences, Weight least)
{
    differences.erase(std::remove_if(differences.begin(), differences.end(),
                                     [&](const Difference& one) { return one.weight < least; }),
                      differences.end());
    return differences;
}

/// Compares devices that belong together.
void comparePair(Source& before, Source& after, const Pair& pair, const CompareRequest& request,
                 ComparedDevices& compared)
{
    const Sides sides = sidesOf(before, after);
    try {
        const ReadySubject oldOne = before.subjectOf(*pair.before, sides == Sides::EsiAndKtl);
        const ReadySubject newOne = after.subjectOf(*pair.after, sides == Sides::EsiAndKtl);
        Comparison out(sides, request.isOfAll);
        compareAll(oldOne.subject(), newOne.subject(), out);
        compared.differences = out.take();
    } catch (const std::out_of_range& error) {
        compared.problem = rangeErrorText(error);
    }
}

ComparedDevices comparedOf(Source& before, Source& after, const Pair& pair, const CompareRequest& request)
{
    ComparedDevices compared;
    if (pair.before.has_value())
        compared.before = before.devices()[*pair.before];
    if (pair.after.has_value())
        compared.after = after.devices()[*pair.after];
    Comparison out(sidesOf(before, after), request.isOfAll);
    if (compared.after == nullptr)
        out.removed({Area::Device, "device", compared.before->where, {}}, Weight::Breaking);
    else if (compared.before == nullptr)
        out.added({Area::Device, "device", {}, compared.after->where}, Weight::Behaviour);
    compared.differences = out.take();
    if (pair.before.has_value() && pair.after.has_value())
        comparePair(before, after, pair, request, compared);
    compared.differences = heavyOnes(std::move(compared.differences), request.least);
    return compared;
}

} // namespace

void compareSources(Source& before, Source& after, const CompareRequest& request,
                    const std::function<void(const ComparedDevices& compared)>& take)
{
    for (const Pair& pair : request.pairs)
        take(comparedOf(before, after, pair, request));
    if (!request.comparesModules || sidesOf(before, after) != Sides::Esi)
        return;
    Comparison out(Sides::Esi, request.isOfAll);
    compareModules(before.modules(), after.modules(), out);
    take({nullptr, nullptr, heavyOnes(out.take(), request.least), {}});
}

} // namespace diff
