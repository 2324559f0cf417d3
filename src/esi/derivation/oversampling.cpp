#include "esi/derivation/oversampling.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <list>
#include <string>
#include <utility>
#include <vector>

namespace {

struct_EntryPDOContent sampleEntry(const struct_EntryPDOContent& declared, std::uint32_t steps, int indexIncrement)
{
    struct_EntryPDOContent entry = declared;
    // 16-bit arithmetic that wraps; a gap (index 0) is moved like any other entry.
    entry.Index = static_cast<std::uint16_t>(steps * static_cast<std::uint32_t>(indexIncrement) + declared.Index);
    return entry;
}

/// The PDO of one sample. Its oversampling attributes stay 0, so it is never expanded again.
struct_PDOList sampleOf(const struct_PDOList& declared, std::uint16_t sample)
{
    constexpr std::uint16_t lastAssignedSample = 9;
    const std::uint32_t steps = static_cast<std::uint32_t>(sample) - 1U; // sample 0 is one step before the declared PDO

    struct_PDOList pdo;
    pdo.Name = declared.Name + ' ' + std::to_string(static_cast<int>(sample) - 1);
    pdo.Size = declared.Size;
    // ODD, KEPT: the PDO index steps by one per sample and `OSIndexInc` moves the entries only, where one would expect
    // it to move both. Pinned by tst_Oversampling::pdoIndex.
    pdo.IndexAttributes.Index = static_cast<std::uint16_t>(declared.IndexAttributes.Index + steps);
    // ODD, KEPT: from the tenth sample on a PDO is on no sync manager, for inputs and outputs alike, where one would
    // expect all samples on the declared one. Pinned by tst_Oversampling::syncManager.
    pdo.Attributes.SM = sample <= lastAssignedSample ? declared.Attributes.SM : -1;
    pdo.Attributes.SU = declared.Attributes.SU;
    pdo.Attributes.Fixed = declared.Attributes.Fixed;
    pdo.Attributes.Mandatory = declared.Attributes.Mandatory;
    pdo.Entry.vPdo_c.reserve(declared.Entry.vPdo_c.size());
    for (const struct_EntryPDOContent& entry : declared.Entry.vPdo_c)
        pdo.Entry.vPdo_c.push_back(sampleEntry(entry, steps, declared.Attributes.m_OSIndexInc));
    return pdo;
}

/// Replaces the PDO at `place` by its samples. The first one takes its place; the others follow in a row, as many
/// places further on as the first sample's number says, or at the end of a shorter list. With a range from 1 all
/// samples thus follow one another; with one from 0 the others come first.
void expandAt(std::list<struct_PDOList>& pdos, std::list<struct_PDOList>::iterator place)
{
    const struct_PDOList declared = std::move(*place);
    const SampleRange range = sampleRangeOf(declared.Attributes);
    *place = sampleOf(declared, range.first);
    if (range.last <= static_cast<int>(range.first))
        return;
    auto target = place;
    for (int step = 0; step < static_cast<int>(range.first) && target != pdos.end(); ++step)
        ++target;
    for (int sample = range.first + 1; sample <= range.last; ++sample)
        pdos.insert(target, sampleOf(declared, static_cast<std::uint16_t>(sample)));
}

void expandSamples(std::vector<struct_PDOList>& declared)
{
    if (std::none_of(declared.cbegin(), declared.cend(), isExpandable))
        return;
    std::list<struct_PDOList> pdos(std::make_move_iterator(declared.begin()), std::make_move_iterator(declared.end()));
    for (auto place = pdos.begin(); place != pdos.end(); ++place)
        if (isExpandable(*place))
            expandAt(pdos, place);
    declared.assign(std::make_move_iterator(pdos.begin()), std::make_move_iterator(pdos.end()));
}

} // namespace

void expandOversampledPdos(struct_EtherCatDevice& device)
{
    expandSamples(device.RxPdo.vpdo);
    expandSamples(device.TxPdo.vpdo);
}
