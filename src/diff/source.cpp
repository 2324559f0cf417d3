#include "diff/source.h"

#include "diff/esiSubject.h"
#include "diff/ktlSubject.h"
#include "facts/moduleCopies.h"

#include <utility>

namespace diff {

Source::Source(const xml::Tree& tree, struct_FilenameDevice& file, const std::vector<bool>& areComplete)
    : m_esi(std::make_unique<Esi>(Esi{file, facts::esiFileFactsOf(tree, file, areComplete), {}, xml::LineTable(tree)}))
{
    m_esi->slotFacts = facts::slotsOf(file, m_esi->facts.devices);
    for (const facts::UnitFacts& unit : m_esi->facts.units)
        (unit.isDevice() ? m_devices : m_modules).push_back(&unit);
    for (std::size_t index = 0; index < m_devices.size(); ++index)
        if (!file.device[index].Slots.vslot.empty())
            facts::placeModuleCopies(m_esi->facts.units[index], file.device[index], m_modules);
}

Source::Source(const std::vector<unsigned char>& bytes)
    : m_ktl(facts::ktlFactsOf(bytes))
{
    for (const facts::UnitFacts& unit : m_ktl.units)
        m_devices.push_back(&unit);
}

ReadySubject Source::subjectOf(std::size_t device, bool asExport)
{
    if (m_esi == nullptr)
        return ReadySubject(ktlSubjectOf(m_ktl, device));
    Subject declared = esiSubjectOf(m_esi->facts, m_esi->file, m_esi->slotFacts, device);
    if (!asExport)
        return ReadySubject(std::move(declared));
    m_declared = std::make_unique<Subject>(std::move(declared));
    return ReadySubject(exportedDeviceOf(m_esi->file, device, *m_declared, m_modules));
}

FilePlace Source::placeOf(facts::Where where) const
{
    if (m_esi == nullptr)
        return {false, where};
    return {true, m_esi->lines.lineOf(where)};
}

} // namespace diff
