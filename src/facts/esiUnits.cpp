#include "facts/esiUnits.h"

#include "esi/xml/treeIteration.h"
#include "facts/esiChannels.h"
#include "facts/matchedPlaces.h"
#include "model/deviceType.h"
#include "model/pdoAccess.h"
#include "model/startupAccess.h"
#include "model/valueTexts.h"

#include <QByteArray>

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace facts {

namespace {

using Elements = std::vector<xml::Element>;

const Elements& sectionOf(const DeviceElements& elements, DeviceSection section)
{
    return elements.sections[static_cast<std::size_t>(section)];
}

/// Number in the last child of a name, as the readers take it; 0 without one.
std::uint32_t numberIn(const xml::Element& parent, std::string_view name)
{
    std::uint32_t number = 0;
    xml::forEachChildElement(parent, name, [&](const xml::Element& child) { number = toUint(child.text()); });
    return number;
}

std::uint64_t objectKey(std::uint32_t index, std::uint32_t subIndex)
{
    constexpr unsigned indexShift = 32;
    return (std::uint64_t{index} << indexShift) | subIndex;
}

// ---- PDOs ----

bool movesWithSlot(const struct_EntryPDOContent& /*entry*/)
{
    return false;
}

bool movesWithSlot(const struct_moduleEntry& entry)
{
    return entry.indexAttributes.DependOnSlot;
}

bool movesWithGroup(const struct_EntryPDOContent& /*entry*/)
{
    return false;
}

bool movesWithGroup(const struct_moduleEntry& entry)
{
    return entry.indexAttributes.m_DependOnSlotGroup;
}

template<typename Entries>
std::vector<EntryFacts> entriesFrom(const Entries& entries, const xml::Element* pdo, Where without)
{
    using SubIndex = decltype(Entries::value_type::SubIndex);
    MatchedPlaces<std::uint64_t> places;
    if (pdo != nullptr)
        xml::forEachChildElement(*pdo, "Entry", [&](const xml::Element& entry) {
            places.add(objectKey(static_cast<std::uint16_t>(numberIn(entry, "Index")),
                                 static_cast<SubIndex>(numberIn(entry, "SubIndex"))),
                       entry.placeKey());
        });
    std::vector<EntryFacts> facts;
    facts.reserve(entries.size());
    for (const auto& entry : entries) {
        const auto found = places.take(objectKey(indexOf(entry), entry.SubIndex));
        facts.push_back({found.has_value() ? places.whereOf(*found) : without, indexOf(entry), movesWithSlot(entry),
                         entry.SubIndex, bitLengthOf(entry), entry.DataType, entry.Linkto, entry.Name,
                         movesWithGroup(entry)});
    }
    return facts;
}

/// What only PDOs of devices have.
void addOwn(PdoFacts& facts, const struct_PDOList& pdo)
{
    facts.oversamplingFactor = pdo.Attributes.m_OSFac;
    facts.oversamplingMin = pdo.Attributes.m_OSMin;
    facts.oversamplingMax = pdo.Attributes.m_OSMax;
}

/// What only PDOs of modules have.
void addOwn(PdoFacts& facts, const modulePdo& pdo)
{
    facts.place = pdo.Instances;
    facts.movesWithSlot = pdo.indexAttributes.DependOnSlot;
    facts.movesWithGroup = pdo.indexAttributes.DependOnSlotGroup;
}

/// What of a PDO is in its element alone.
void addElement(PdoFacts& facts, const xml::Element& element)
{
    facts.where = element.placeKey();
    facts.isOverwritten = toBool(element.attribute("OverwrittenByModule"));
    facts.declaredFactor = toUint(element.attribute("OSFac"));
    xml::forEachChildElement(element, "Exclude", [&](const xml::Element& excluded) {
        facts.excluded.push_back(static_cast<std::uint16_t>(toUint(excluded.text())));
    });
}

template<typename Pdo> PdoFacts pdoFrom(const Pdo& pdo, bool isInput, const xml::Element* element, Where without)
{
    PdoFacts facts;
    facts.where = without;
    facts.isInput = isInput;
    facts.index = indexOf(pdo);
    facts.syncManager = pdo.Attributes.SM;
    facts.isFixed = pdo.Attributes.Fixed;
    facts.isMandatory = pdo.Attributes.Mandatory;
    facts.name = pdo.Name;
    facts.syncUnit = pdo.Attributes.SU;
    addOwn(facts, pdo);
    if (element != nullptr)
        addElement(facts, *element);
    facts.entries = entriesFrom(entriesOf(pdo), element, facts.where);
    return facts;
}

/// @param elements  of the PDOs; those of copies are elsewhere
template<typename Pdo>
void addPdos(UnitFacts& unit, const std::vector<Pdo>& pdos, bool isInput, const Elements& elements)
{
    MatchedPlaces<std::uint16_t> places;
    for (const xml::Element& element : elements)
        places.add(static_cast<std::uint16_t>(numberIn(element, "Index")), element.placeKey());
    for (const Pdo& pdo : pdos) {
        const auto found = places.take(indexOf(pdo));
        unit.pdos.push_back(pdoFrom(pdo, isInput, found.has_value() ? &elements[*found] : nullptr, unit.where));
        unit.pdos.back().isCopy = !found.has_value();
    }
}

/// PDOs of which some samples go out on no sync manager: only the samples up to the ninth are on one.
void addLostSamples(UnitFacts& unit, const Elements& elements)
{
    constexpr std::uint32_t lastAssigned = 9;
    for (const xml::Element& element : elements) {
        const std::uint32_t samples = toUint(element.attribute("OSMax"));
        const bool isOversampled =
            toUint(element.attribute("OSFac")) > 0 && toUint(element.attribute("OSIndexInc")) > 0;
        if (isOversampled && samples > lastAssigned && element.attribute("Sm").data() != nullptr)
            unit.lostSamples.push_back({element.placeKey(), static_cast<std::uint16_t>(numberIn(element, "Index")),
                                        static_cast<int>(samples - lastAssigned)});
    }
}

// ---- Startup commands ----

bool movesWithSlot(const struct_InitCmd& /*command*/)
{
    return false;
}

bool movesWithSlot(const struct_moduleInitCmd& command)
{
    return command.indexAttributes.DependOnSlot;
}

bool movesWithGroup(const struct_InitCmd& /*command*/)
{
    return false;
}

bool movesWithGroup(const struct_moduleInitCmd& command)
{
    return command.indexAttributes.DependOnSlotGroup;
}

/// What of a command is in its element alone.
/// @param facts  with all that the record has
void addElement(CommandFacts& facts, const xml::Element& element)
{
    constexpr std::uint16_t bytesOfNumber = 4;
    facts.declaresCompleteAccess = toBool(element.attribute("CompleteAccess"));
    facts.transitions = 0;
    xml::forEachChildElement(element, [&](const xml::Element& child) {
        if (child.name() == "Transition")
            ++facts.transitions;
        if (child.name() != "Data")
            return;
        const xml::ElementText text = child.text();
        const std::string_view data = text;
        facts.hasMark = data.substr(0, 1) == "#";
        facts.isZero = data.find_first_not_of('0') == std::string_view::npos;
        if (facts.bytes > bytesOfNumber)
            facts.longValue =
                QByteArray::fromRawData(data.data(), static_cast<int>(data.size())).toLower().toStdString();
    });
}

/// @param without  place of a command that comes from no element
template<typename Command>
void addCommands(std::vector<CommandFacts>& to, const std::vector<Command>& commands, const Elements& elements,
                 Where without)
{
    MatchedPlaces<std::uint64_t> places;
    for (const xml::Element& element : elements)
        places.add(objectKey(static_cast<std::uint16_t>(numberIn(element, "Index")),
                             static_cast<decltype(Command::SubIndex)>(numberIn(element, "SubIndex"))),
                   element.placeKey());
    for (const Command& command : commands) {
        const auto found = places.take(objectKey(indexOf(command), command.SubIndex));
        CommandFacts facts;
        facts.where = without;
        facts.isDerived = !found.has_value();
        facts.transition = command.Transition;
        facts.index = indexOf(command);
        facts.subIndex = command.SubIndex;
        facts.isCompleteAccess = command.bIfCA != 0;
        facts.bytes = command.DataBytes;
        facts.data = command.Data;
        facts.comment = command.Comment;
        facts.movesWithSlot = movesWithSlot(command);
        facts.movesWithGroup = movesWithGroup(command);
        facts.values.assign(command.m_CADataList.begin(), command.m_CADataList.end());
        if (found.has_value()) {
            facts.where = places.whereOf(*found);
            addElement(facts, elements[*found]);
        }
        to.push_back(std::move(facts));
    }
}

std::size_t commandsIn(const xml::Element& protocol)
{
    std::size_t count = 0;
    xml::forEachChildElement(protocol, "InitCmd", [&](const xml::Element& /*command*/) { ++count; });
    return count;
}

/// The `InitCmd` elements of mailboxes, and what their protocols say.
Elements readMailboxes(UnitFacts& unit, const Elements& mailboxes)
{
    Elements commands;
    for (const xml::Element& mailbox : mailboxes)
        xml::forEachChildElement(mailbox, [&](const xml::Element& protocol) {
            unit.hasMailboxProtocol = true;
            if (protocol.name() != "CoE") {
                if (const std::size_t count = commandsIn(protocol); count > 0)
                    unit.unreadCommands.push_back({protocol.placeKey(), protocol.name(), count});
                return;
            }
            unit.hasCoe = true;
            unit.supportsCompleteAccess = unit.supportsCompleteAccess || toBool(protocol.attribute("CompleteAccess"));
            xml::forEachChildElement(protocol, "InitCmd",
                                     [&](const xml::Element& command) { commands.push_back(command); });
        });
    return commands;
}

Elements childrenNamed(const xml::Element& parent, std::string_view name)
{
    Elements children;
    xml::forEachChildElement(parent, name, [&](const xml::Element& child) { children.push_back(child); });
    return children;
}

/// @param elements  of the device; null where nobody has them
UnitFacts factsOf(const struct_FilenameDevice& file, std::size_t index, const DeviceElements* elements)
{
    const struct_EtherCatDevice& device = file.device[index];
    const auto section = [&](DeviceSection which) {
        return elements != nullptr ? sectionOf(*elements, which) : Elements();
    };
    UnitFacts unit;
    unit.owner = {OwnerKind::Device, index};
    unit.where = elements != nullptr ? elements->device.placeKey() : Where{0};
    unit.vendor = file.Vendor_Id;
    unit.product = device.TypeAttributes.Product_Code;
    unit.revision = device.TypeAttributes.Revision_No;
    unit.hasSlots = elements != nullptr ? elements->hasSlots : !device.Slots.vslot.empty();
    unit.name = device.Name;
    unit.type = device.TypeAttributes.type;
    unit.canAssign = device.Mailbox.COE.Attributes.PdoAssign;
    addChannels(unit, device, section(DeviceSection::Sm), section(DeviceSection::Fmmu));
    addModes(unit, device, section(DeviceSection::Dc));
    addPdos(unit, device.RxPdo.vpdo, false, section(DeviceSection::RxPdo));
    addLostSamples(unit, section(DeviceSection::RxPdo));
    addPdos(unit, device.mRxPdo.mpdo, false, {});
    addPdos(unit, device.TxPdo.vpdo, true, section(DeviceSection::TxPdo));
    addLostSamples(unit, section(DeviceSection::TxPdo));
    addPdos(unit, device.mTxPdo.mpdo, true, {});
    for (PdoFacts& pdo : unit.pdos)
        pdo.isExported = pdo.place < 0 || hasModulePdos(device.m_iDeviceType);
    addCommands(unit.commands, device.Mailbox.COE.InitCmd.vinitcmd,
                readMailboxes(unit, section(DeviceSection::Mailbox)), unit.where);
    addCommands(unit.commands, device.mMailbox.COE.vinitcmd, {}, unit.where);
    addCommands(unit.eoeCommands, device.Mailbox.EOE.InitCmd.vinitcmd, {}, unit.where);
    return unit;
}

} // namespace

UnitFacts deviceFactsOf(const struct_FilenameDevice& file, std::size_t index, const DeviceElements& elements)
{
    return factsOf(file, index, &elements);
}

UnitFacts deviceFactsOf(const struct_FilenameDevice& file, std::size_t index)
{
    UnitFacts unit = factsOf(file, index, nullptr);
    for (PdoFacts& pdo : unit.pdos)
        pdo.isCopy = pdo.place >= 0;
    return unit;
}

UnitFacts moduleFactsOf(const struct_module& module, std::size_t index, const xml::Element& element)
{
    UnitFacts unit;
    unit.owner = {OwnerKind::Module, index};
    unit.where = element.placeKey();
    unit.moduleIdent = module.TypeAttributes.ModuleIdent;
    unit.modulePdoGroup = module.TypeAttributes.ModulePdoGroup;
    unit.moduleClass = module.TypeAttributes.ModuleClass;
    unit.profile = module.m_profileNO;
    unit.supportsSraParameters = module.TypeAttributes.SRA_ParamterSupported;
    unit.name = module.Name;
    unit.type = module.TypeAttributes.Name;
    addPdos(unit, module.RxPdo.vpdo, false, childrenNamed(element, "RxPdo"));
    addPdos(unit, module.TxPdo.vpdo, true, childrenNamed(element, "TxPdo"));
    addCommands(unit.commands, module.Mailbox.COE.vinitcmd, readMailboxes(unit, childrenNamed(element, "Mailbox")),
                unit.where);
    return unit;
}

} // namespace facts
