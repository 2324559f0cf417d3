#include "esi/documentElements.h"

#include "esi/domIteration.h"

#include <QLatin1String>
#include <QString>

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
    for (const SectionTag& row : sectionTags)
        if (tag == row.tag)
            return &row;
    return nullptr;
}

bool parentTagContains(const QDomElement& element, QLatin1String word)
{
    return element.parentNode().toElement().tagName().contains(word);
}

const QLatin1String deviceTag("Device");

/// Sorts the elements of a document while a walk passes them.
class ElementSorter
{
public:
    void enter(const QDomElement& element)
    {
        const QString tag = element.tagName();
        if (const SectionTag* row = sectionTagOf(tag))
            addSection(element, row->section);
        else if (tag == deviceTag)
            openDevice();
        else if (tag == QLatin1String("Vendor") && m_found.vendor.isNull())
            m_found.vendor = element;
        else if (tag == QLatin1String("Modules") && parentTagContains(element, QLatin1String("Descriptions")))
            m_found.moduleLists.push_back(element);
    }

    void leave(const QDomElement& element)
    {
        if (element.tagName() == deviceTag)
            m_open.pop_back();
    }

    DocumentElements takeFound() { return std::move(m_found); }

private:
    void openDevice()
    {
        m_open.push_back(m_found.devices.size());
        m_found.devices.emplace_back();
    }

    /// A section belongs to every device that it stands under.
    void addSection(const QDomElement& element, DeviceSection section)
    {
        if (m_open.empty())
            return;
        const bool isDirect = parentTagContains(element, deviceTag);
        if (!isDirect && section != DeviceSection::Slots)
            return;
        for (const std::size_t index : m_open) {
            DeviceElements& device = m_found.devices[index];
            device.hasSlots = device.hasSlots || section == DeviceSection::Slots;
            if (isDirect)
                device.sections[static_cast<std::size_t>(section)].push_back(element);
        }
    }

    DocumentElements m_found;
    std::vector<std::size_t> m_open; ///< positions of the devices that the walk is inside of
};

} // namespace

DocumentElements documentElements(const QDomElement& root)
{
    ElementSorter sorter;
    walkElements(
        root, [&](const QDomElement& element) { sorter.enter(element); },
        [&](const QDomElement& element) { sorter.leave(element); });
    return sorter.takeFound();
}
