#include "esi/documentElements.h"

#include "esi/xml/domIteration.h"

#include <QLatin1String>
#include <QString>

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

struct SectionTag
{
    QLatin1String tag;
    DeviceSection section;
};

const std::array sectionTags{
    SectionTag{QLatin1String("Type"), DeviceSection::Type},
    SectionTag{QLatin1String("Name"), DeviceSection::Name},
    SectionTag{QLatin1String("Mailbox"), DeviceSection::Mailbox},
    SectionTag{QLatin1String("Fmmu"), DeviceSection::Fmmu},
    SectionTag{QLatin1String("Sm"), DeviceSection::Sm},
    SectionTag{QLatin1String("Dc"), DeviceSection::Dc},
    SectionTag{QLatin1String("RxPdo"), DeviceSection::RxPdo},
    SectionTag{QLatin1String("TxPdo"), DeviceSection::TxPdo},
    SectionTag{QLatin1String("Slots"), DeviceSection::Slots},
    SectionTag{QLatin1String("Profile"), DeviceSection::Profile},
};

const SectionTag* sectionTagOf(const QString& tag)
{
    // Most elements of a big file lie in dictionaries and begin with another letter than any section does.
    constexpr std::u16string_view firstLetters = u"TNMFSDRP";
    if (tag.isEmpty() || firstLetters.find(tag.front().unicode()) == std::u16string_view::npos)
        return nullptr;
    for (const SectionTag& row : sectionTags)
        if (isNamed(tag, row.tag))
            return &row;
    return nullptr;
}

bool parentTagContains(const QDomElement& element, QLatin1String word)
{
    const QString tag = element.parentNode().toElement().tagName();
    // Asked for every name in a dictionary: QString::contains would cost more than the rest of the walk.
    return std::search(tag.begin(), tag.end(), word.begin(), word.end()) != tag.end();
}

const QLatin1String deviceTag("Device");

/// Sorts the elements of a document while a walk passes them.
class ElementSorter
{
public:
    explicit ElementSorter(const std::function<void(DeviceElements& device)>& readDevice)
        : m_readDevice(readDevice)
    {}

    void enter(const QDomElement& element, int depth)
    {
        const QString tag = element.tagName();
        if (const SectionTag* row = sectionTagOf(tag))
            addSection(element, row->section);
        else if (tag == deviceTag)
            openDevice(depth);
        else if (tag == QLatin1String("Vendor") && m_found.vendor.isNull())
            m_found.vendor = element;
        else if (tag == QLatin1String("Modules") && parentTagContains(element, QLatin1String("Descriptions")))
            m_found.moduleLists.push_back(element);
    }

    void leave(int depth)
    {
        if (m_open.empty() || m_open.back().depth != depth)
            return;
        m_open.pop_back();
        if (!m_open.empty())
            return;
        for (DeviceElements& device : m_devices)
            m_readDevice(device);
        m_devices.clear();
    }

    DocumentElements takeFound() { return std::move(m_found); }

private:
    /// A device that the walk is inside of.
    struct OpenDevice
    {
        std::size_t index; ///< in `m_devices`
        int depth;
    };

    void openDevice(int depth)
    {
        m_open.push_back({m_devices.size(), depth});
        m_devices.emplace_back();
    }

    /// A section belongs to every device that it is under.
    void addSection(const QDomElement& element, DeviceSection section)
    {
        if (m_open.empty())
            return;
        const bool isDirect = parentTagContains(element, deviceTag);
        if (!isDirect && section != DeviceSection::Slots)
            return;
        for (const OpenDevice& open : m_open) {
            DeviceElements& device = m_devices[open.index];
            device.hasSlots = device.hasSlots || section == DeviceSection::Slots;
            if (isDirect)
                device.sections[static_cast<std::size_t>(section)].push_back(element);
        }
    }

    const std::function<void(DeviceElements& device)>& m_readDevice;
    DocumentElements m_found;
    std::vector<DeviceElements> m_devices; ///< the outermost device that the walk is inside of, and those in it
    std::vector<OpenDevice> m_open; ///< from the outermost to the innermost
};

} // namespace

DocumentElements walkDocument(const QDomElement& root, const std::function<void(DeviceElements& device)>& readDevice)
{
    ElementSorter sorter(readDevice);
    walkElements(
        root, [&](const QDomElement& element, int depth) { sorter.enter(element, depth); },
        [&](int depth) { sorter.leave(depth); });
    return sorter.takeFound();
}
