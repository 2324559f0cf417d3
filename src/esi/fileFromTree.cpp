// fileFromTree.cpp - the walk over an ESI file.
#include "esi/esiFile.h"

#include "esi/derivation/copyLimit.h"
#include "esi/deviceName.h"
#include "esi/fileElements.h"
#include "esi/sections/sectionReaders.h"
#include "esi/xml/documentTree.h"
#include "esi/xml/treeIteration.h"
#include "esi/xmlparsing.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

void storeDeviceName(struct_EtherCatDevice& device, const xml::Element& element)
{
    device.Name = deviceNameOf(element.text()); // the last name of a device wins, whatever its language
}

struct SectionReader
{
    DeviceSection section;
    void (*read)(struct_EtherCatDevice& device, const xml::Element& element);
};

/// Readers of the sections, in the order of their calls. A section that occurs twice is read twice.
constexpr std::array sectionReaders{
    SectionReader{DeviceSection::Type, readType},       SectionReader{DeviceSection::Name, storeDeviceName},
    SectionReader{DeviceSection::Mailbox, readMailbox}, SectionReader{DeviceSection::Fmmu, appendFmmu},
    SectionReader{DeviceSection::Sm, appendSm},         SectionReader{DeviceSection::Dc, readDc},
    SectionReader{DeviceSection::RxPdo, appendRxPdo},   SectionReader{DeviceSection::TxPdo, appendTxPdo},
    SectionReader{DeviceSection::Slots, readSlots},
};

void storeProfileNumber(const xml::Element& element, bool hasSlots, struct_EtherCatDevice& device)
{
    SetXmlTypeToDevice(&device, static_cast<int>(toUint(element.text())), hasSlots ? 1 : 0);
}

/// Device class and dictionary. A device without a profile number keeps class 0, whether it has slots or not.
void readProfile(struct_EtherCatDevice& device, const xml::Element& profile, bool hasSlots, Dictionaries dictionaries)
{
    xml::forEachChildElement(profile, [&](const xml::Element& child) {
        if (child.name() == "ProfileNo") {
            storeProfileNumber(child, hasSlots, device);
        } else if (child.name() == "ChannelInfo") {
            // Only the very first child counts: the channels that follow describe further axes of the same profile.
            const auto nodes = child.children();
            if (!nodes.empty() && (*nodes.begin()).isElement() && (*nodes.begin()).characters() == "ProfileNo")
                storeProfileNumber(xml::Element(*nodes.begin()), hasSlots, device);
        } else if (child.name() == "Dictionary" && dictionaries == Dictionaries::AreRead) {
            readDictionary(device.Dictionary, child);
        }
    });
}

const std::vector<xml::Element>& sectionOf(const DeviceElements& elements, DeviceSection section)
{
    return elements.sections[static_cast<std::size_t>(section)];
}

struct_EtherCatDevice deviceFrom(const DeviceElements& elements, Dictionaries dictionaries)
{
    struct_EtherCatDevice device;
    for (const SectionReader& reader : sectionReaders)
        for (const xml::Element& element : sectionOf(elements, reader.section))
            reader.read(device, element);
    // The profile comes last: a drive counts its slots as axes, so they have to be read by then.
    for (const xml::Element& profile : sectionOf(elements, DeviceSection::Profile))
        readProfile(device, profile, elements.hasSlots, dictionaries);
    return device;
}

/// The last child of `Vendor` whose name contains "Id" gives the vendor id; without one it is 0.
std::uint32_t vendorIdOf(const xml::Element& vendor)
{
    std::uint32_t vendorId = 0;
    xml::forEachChildElement(vendor, [&](const xml::Element& child) {
        if (child.name().find("Id") != std::string_view::npos)
            vendorId = toUint(child.text());
    });
    return vendorId;
}

/// Groups the modules of a file under the comment before each run. Of several comments in a row the last one counts;
/// comments after the last run make no group.
class ModuleGroups
{
public:
    ModuleGroups(std::vector<struct_commentmodule>& groups, Dictionaries dictionaries)
        : m_groups(groups)
        , m_dictionaries(dictionaries)
    {}

    /// To be called for each node in a list of modules.
    void take(const xml::Node& node)
    {
        const bool wasInRun = m_run.isOpen();
        const bool isModule = m_run.take(node);
        if (node.isComment())
            m_next.comment = node.characters();
        else if (!wasInRun)
            begin(node);
        if (isModule)
            readModule(m_groups.back().vmodule.emplace_back(), xml::Element(node), m_dictionaries);
    }

private:
    /// What comes where a run may begin takes the comments before it along: a text makes no group, an element one, also
    /// if it is no module.
    void begin(const xml::Node& node)
    {
        if (node.isElement())
            m_groups.push_back(std::move(m_next));
        m_next = {};
    }

    std::vector<struct_commentmodule>& m_groups;
    Dictionaries m_dictionaries;
    struct_commentmodule m_next; ///< the group that the next run makes
    ModuleRun m_run;
};

void appendModuleGroups(const xml::Element& modules, std::vector<struct_commentmodule>& groups,
                        Dictionaries dictionaries)
{
    ModuleGroups taken(groups, dictionaries);
    for (const xml::Node node : modules.children())
        taken.take(node);
}

EsiLoadResult tooManyCopies()
{
    const QString text =
        QStringLiteral("the PDOs and modules of the file stand for more than %1 bytes").arg(maxCopiedBytes);
    return {EsiLoadStatus::NotWellFormed, {text, 1, 1}, {}};
}

} // namespace

EsiLoadResult declaredFileFrom(const xml::Tree& tree, const QString& path, Dictionaries dictionaries)
{
    EsiLoadResult result;
    struct_FilenameDevice& file = result.file;
    const FileElements elements = walkFile(
        tree.root(), [&](const DeviceElements& device) { file.device.push_back(deviceFrom(device, dictionaries)); });
    if (!elements.vendor.has_value())
        return {EsiLoadStatus::NotEsi, {}, {}};
    file.xmlfilepath = path.toStdString();
    file.Vendor_Id = vendorIdOf(*elements.vendor);
    for (const xml::Element& moduleList : elements.moduleLists)
        appendModuleGroups(moduleList, file.vcommentmodule, dictionaries);

    return isWithinCopyLimit(file) ? std::move(result) : tooManyCopies();
}

EsiLoadResult fileFrom(const xml::Tree& tree, const QString& path, Dictionaries dictionaries)
{
    EsiLoadResult result = declaredFileFrom(tree, path, dictionaries);
    if (result.status == EsiLoadStatus::Loaded)
        completeFile(result.file);
    return result;
}

EsiLoadResult fileFrom(const QDomDocument& document, const QString& path)
{
    return fileFrom(xml::treeOf(document.documentElement()), path, Dictionaries::AreRead);
}
