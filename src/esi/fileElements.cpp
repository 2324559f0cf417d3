#include "esi/fileElements.h"

#include "esi/xml/treeIteration.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

struct SectionName
{
    std::string_view name;
    DeviceSection section;
};

constexpr std::array sectionNames{
    SectionName{"Type", DeviceSection::Type},       SectionName{"Name", DeviceSection::Name},
    SectionName{"Mailbox", DeviceSection::Mailbox}, SectionName{"Fmmu", DeviceSection::Fmmu},
    SectionName{"Sm", DeviceSection::Sm},           SectionName{"Dc", DeviceSection::Dc},
    SectionName{"RxPdo", DeviceSection::RxPdo},     SectionName{"TxPdo", DeviceSection::TxPdo},
    SectionName{"Slots", DeviceSection::Slots},     SectionName{"Profile", DeviceSection::Profile},
};

const SectionName* sectionNamed(std::string_view name)
{
    // Most elements of a big file lie in dictionaries and begin with another letter than any section does.
    constexpr std::string_view firstLetters = "TNMFSDRP";
    if (name.empty() || firstLetters.find(name.front()) == std::string_view::npos)
        return nullptr;
    for (const SectionName& row : sectionNames)
        if (row.name == name)
            return &row;
    return nullptr;
}

bool nameContains(const xml::Element& element, std::string_view word)
{
    return element.name().find(word) != std::string_view::npos;
}

constexpr std::string_view deviceName = "Device";

/// Sorts the elements of a file while a walk passes them.
class ElementSorter
{
public:
    explicit ElementSorter(const std::function<void(const DeviceElements& device)>& readDevice)
        : m_readDevice(readDevice)
    {}

    void enter(const xml::Element& element, const xml::Element& parent)
    {
        const std::string_view name = element.name();
        if (const SectionName* row = sectionNamed(name))
            addSection(element, row->section, nameContains(parent, deviceName));
        else if (name == deviceName)
            openDevice(element);
        else if (name == "Vendor" && !m_found.vendor.has_value())
            m_found.vendor = element;
        else if (name == "Modules" && nameContains(parent, "Descriptions"))
            m_found.moduleLists.push_back(element);
    }

    void leave(const xml::Element& element)
    {
        if (m_open.empty() || m_open.back().element != element)
            return;
        m_open.pop_back();
        if (!m_open.empty())
            return;
        for (const DeviceElements& device : m_devices)
            m_readDevice(device);
        m_devices.clear();
    }

    FileElements takeFound() { return std::move(m_found); }

private:
    /// A device that the walk is inside of.
    struct OpenDevice
    {
        std::size_t index; ///< in `m_devices`
        xml::Element element;
    };

    void openDevice(const xml::Element& element)
    {
        m_open.push_back({m_devices.size(), element});
        m_devices.push_back(DeviceElements{element});
    }

    /// A section belongs to every device that it is in.
    /// @param isDirect  whether it is directly in an element that may be a device
    void addSection(const xml::Element& element, DeviceSection section, bool isDirect)
    {
        if (!isDirect && section != DeviceSection::Slots)
            return;
        for (const OpenDevice& open : m_open) {
            DeviceElements& device = m_devices[open.index];
            device.hasSlots = device.hasSlots || section == DeviceSection::Slots;
            if (isDirect)
                device.sections[static_cast<std::size_t>(section)].push_back(element);
        }
    }

    const std::function<void(const DeviceElements& device)>& m_readDevice;
    FileElements m_found;
    std::vector<DeviceElements> m_devices; ///< the outermost device that the walk is inside of, and those in it
    std::vector<OpenDevice> m_open; ///< from the outermost to the innermost
};

} // namespace

bool ModuleRun::take(const xml::Node& node)
{
    if (node.isComment())
        m_isOpen = false;
    else if (node.isElement() && !m_isOpen)
        m_isOpen = node.characters() == "Module";
    return m_isOpen && node.isElement();
}

FileElements walkFile(const xml::Element& root, const std::function<void(const DeviceElements& device)>& readDevice)
{
    ElementSorter sorter(readDevice);
    xml::walkElements(
        root, [&](const xml::Element& element, const xml::Element& parent) { sorter.enter(element, parent); },
        [&](const xml::Element& element) { sorter.leave(element); });
    return sorter.takeFound();
}
