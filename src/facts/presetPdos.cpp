#include "facts/presetPdos.h"

#include "model/objectAreas.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>

namespace facts {

namespace {

/// A PDO of a module in a place.
struct PlacedPdo
{
    const KtlModulePdo* pdo = nullptr;
    std::size_t place = 0;
};

/// How far an index moves in a place, in 16 bits: it wraps like the indexes themselves.
std::uint16_t shiftIn(std::size_t place, std::uint16_t step)
{
    return static_cast<std::uint16_t>(place * step);
}

std::uint16_t moved(std::uint16_t index, std::uint16_t shift)
{
    return static_cast<std::uint16_t>(index + shift);
}

/// Counts entries and bits up to the most that a device can have.
class Room
{
public:
    /// @return  false if the PDO is too much
    [[nodiscard]] bool take(const KtlModulePdo& pdo)
    {
        constexpr std::size_t mostEntries = 65536;
        constexpr std::size_t mostBits = 524288; // of 65,536 bytes, whose number would not fit into a length
        m_entries += pdo.entries.size() + 1; // a PDO without entries takes memory too
        for (const struct_KTL_modulePdoOne& entry : pdo.entries)
            m_bits += entry.BitLen;
        return m_entries <= mostEntries && m_bits <= mostBits;
    }

private:
    std::size_t m_entries = 0;
    std::size_t m_bits = 0;
};

/// The PDOs of the modules in all places, outputs first.
/// @param areAll  becomes false if there are more than a device can have
std::vector<PlacedPdo> placedPdosOf(const KtlDeviceBlock& block, bool& areAll)
{
    std::unordered_map<std::uint32_t, const KtlModule*> modules;
    for (const KtlModule& module : block.modules)
        modules.emplace(module.attributes.ModuleIdent, &module); // the first of an ident counts
    std::vector<PlacedPdo> placed;
    Room room;
    for (const bool isInput : {false, true})
        for (std::size_t place = 0; place < block.preset->records.size(); ++place) {
            const auto module = modules.find(block.preset->records[place].m_iModuleIdent);
            if (module == modules.end())
                continue;
            for (const KtlModulePdo& pdo : module->second->pdos) {
                if (pdo.isInput != isInput)
                    continue;
                areAll = room.take(pdo);
                if (!areAll)
                    return placed;
                placed.push_back({&pdo, place});
            }
        }
    return placed;
}

/// Finds out the PDOs of modules whose index moves with the place, from what startup commands name.
class IndexMoves
{
public:
    IndexMoves(const KtlDeviceBlock& block, const std::vector<PlacedPdo>& placed, std::uint16_t step)
        : m_isNamed(std::numeric_limits<std::uint16_t>::max() + std::size_t{1})
    {
        addNamed(block);
        for (const KtlPdo& pdo : block.pdos)
            m_isNamed[pdo.head.IndexAttributes] = false; // it is that of the device
        for (const PlacedPdo& one : placed) {
            const std::uint16_t declared = one.pdo->head.IndexAttributes;
            const std::uint16_t shift = shiftIn(one.place, step);
            if (shift == 0)
                m_isNamed[declared] = false; // it is that of this place, in any case
            else
                candidateOf(*one.pdo).movedTo.push_back(moved(declared, shift));
        }
        // What is known of one PDO may tell of the next.
        constexpr int mostRounds = 256;
        for (int round = 0; round < mostRounds && decideSome(); ++round) {}
    }

    [[nodiscard]] bool moves(const KtlModulePdo& pdo) const
    {
        const auto found = m_places.find(&pdo);
        return found != m_places.end() && m_candidates[found->second].answer == Answer::Moves;
    }

private:
    enum class Answer : std::uint8_t
    {
        Unknown,
        Moves,
        Stays,
    };

    struct Candidate
    {
        std::uint16_t declared = 0;
        std::vector<std::uint16_t> movedTo; ///< a moved index for each place
        Answer answer = Answer::Unknown;
    };

    Candidate& candidateOf(const KtlModulePdo& pdo)
    {
        const auto added = m_places.emplace(&pdo, m_candidates.size());
        if (added.second)
            m_candidates.push_back({pdo.head.IndexAttributes, {}, Answer::Unknown});
        return m_candidates[added.first->second];
    }

    /// Objects that are written, and values of assignments.
    void addNamed(const KtlDeviceBlock& block)
    {
        const auto values = valuesOfCommands(block.coeCommands, block.accessValues);
        for (std::size_t index = 0; index < block.coeCommands.size(); ++index) {
            const struct_KTL_InitCmd& command = block.coeCommands[index];
            m_isNamed[command.Index] = true;
            if (!isAssignObject(command.Index))
                continue;
            if (command.bIfCA == 0 && command.SubIndex != 0)
                m_isNamed[static_cast<std::uint16_t>(command.Data)] = true;
            if (command.bIfCA != 0 && values.has_value())
                for (const std::uint32_t value : (*values)[index])
                    m_isNamed[static_cast<std::uint16_t>(value)] = true;
        }
    }

    /// @return  false if nothing more can be decided
    bool decideSome()
    {
        bool isDecided = false;
        for (Candidate& candidate : m_candidates) {
            if (candidate.answer != Answer::Unknown)
                continue;
            const std::uint16_t declared = candidate.declared;
            const auto isNamed = [this](std::uint16_t index) { return m_isNamed[index]; };
            const std::vector<std::uint16_t>& movedTo = candidate.movedTo;
            if (!isNamed(declared) && std::all_of(movedTo.begin(), movedTo.end(), isNamed)) {
                candidate.answer = Answer::Moves;
                for (const std::uint16_t index : movedTo)
                    m_isNamed[index] = false;
            } else if (isNamed(declared) && std::none_of(movedTo.begin(), movedTo.end(), isNamed)) {
                candidate.answer = Answer::Stays;
                m_isNamed[declared] = false;
            }
            isDecided = isDecided || candidate.answer != Answer::Unknown;
        }
        return isDecided;
    }

    std::vector<bool> m_isNamed; ///< by index: startup commands name a PDO of which the owner is not known yet
    std::vector<Candidate> m_candidates; ///< in the order of their first places
    std::unordered_map<const KtlModulePdo*, std::size_t> m_places; ///< in that list
};

/// A module's PDO in a place of a device.
/// @param pdoShift     of its index
/// @param objectShift  of the objects that depend on the slot
PdoFacts pdoInPlace(const PlacedPdo& placed, std::uint16_t pdoShift, std::uint16_t objectShift)
{
    const KtlModulePdo& record = *placed.pdo;
    PdoFacts pdo;
    pdo.isInput = record.isInput;
    pdo.isCopy = true;
    pdo.isExported = false;
    pdo.place = static_cast<int>(placed.place);
    pdo.index = moved(record.head.IndexAttributes, pdoShift);
    pdo.syncManager = record.head.SM;
    pdo.syncUnit = record.head.SU;
    pdo.isFixed = record.head.Fixed != 0;
    pdo.isMandatory = record.head.Mandatory != 0;
    pdo.entries.reserve(record.entries.size());
    for (const struct_KTL_modulePdoOne& entry : record.entries)
        pdo.entries.push_back({0,
                               moved(entry.index, entry.DependOnSlot != 0 ? objectShift : std::uint16_t{0}),
                               false,
                               entry.SubIndex,
                               static_cast<int>(entry.BitLen),
                               {},
                               entry.LinkToData,
                               {}});
    return pdo;
}

} // namespace

PresetPdos presetPdosOf(const KtlDeviceBlock& block)
{
    PresetPdos preset;
    if (!block.preset.has_value())
        return preset;
    const bool hasSlots = block.deviceSlots.has_value();
    const std::uint16_t pdoStep = hasSlots ? block.deviceSlots->head.m_iSlotPdoIncrement : std::uint16_t{0};
    const std::uint16_t objectStep = hasSlots ? block.deviceSlots->head.m_iSlotIndexIncrement : std::uint16_t{0};
    const std::vector<PlacedPdo> placed = placedPdosOf(block, preset.areAll);
    const IndexMoves indexMoves(block, placed, pdoStep);
    preset.pdos.reserve(placed.size());
    for (const PlacedPdo& one : placed)
        preset.pdos.push_back(pdoInPlace(one,
                                         indexMoves.moves(*one.pdo) ? shiftIn(one.place, pdoStep) : std::uint16_t{0},
                                         shiftIn(one.place, objectStep)));
    return preset;
}

} // namespace facts
