// xmlparsing.cpp - the walk over an ESI document.
#include "esi/xmlparsing.h"

#include "esi/domIteration.h"

#include <QDomComment>

#include <array>
#include <cstddef>
#include <utility>

namespace {

/// Stores the name of a device without the CDATA mark that some files have written out in their text.
void storeDeviceName(QDomElement* element, struct_EtherCatDevice* device)
{
    // ODD, KEPT: both counts are one more than the marks searched for, so that the angle brackets around a mark go with
    // it, and the removal starts at position 0 wherever the mark stood: it only ever stands in front of the name.
    constexpr int openingLength = 9; // <![CDATA[
    constexpr int closingLength = 3; // ]]>
    QString name = element->text();
    if (name.contains(QLatin1String("![CDATA["))) {
        name.remove(0, openingLength);
        if (const auto closing = name.indexOf(QLatin1String("]]")); closing >= 0)
            name.remove(closing, closingLength);
    }
    device->Name = name.toStdString(); // the last name of a device wins, whatever its language
}

struct SectionRule
{
    QLatin1String tag;
    void (*read)(QDomElement* element, struct_EtherCatDevice* device);
};

/// Sections of a device in the order of their reading. A section that occurs twice is read twice.
constexpr std::array sectionRules{
    SectionRule{QLatin1String("Type"), read_device_Productinfo},
    SectionRule{QLatin1String("Name"), storeDeviceName},
    SectionRule{QLatin1String("Mailbox"), read_device_Mailboxinfo},
    SectionRule{QLatin1String("Fmmu"), read_device_Fmmuinfo},
    SectionRule{QLatin1String("Sm"), read_device_SMinfo},
    SectionRule{QLatin1String("Dc"), read_device_Dcinfo},
    SectionRule{QLatin1String("RxPdo"), read_device_RxPdoinfo},
    SectionRule{QLatin1String("TxPdo"), read_device_TxPdoinfo},
    SectionRule{QLatin1String("Slots"), read_device_Slotsinfo},
};

/// What one pass over a device's subtree finds.
struct DeviceElements
{
    std::array<std::vector<QDomElement>, sectionRules.size()> sections; ///< in the order of `sectionRules`
    std::vector<QDomElement> profiles;
    bool hasSlots = false; ///< a `Slots` element at whatever depth and under whatever parent
};

/// Whether an element stands directly under one whose tag contains the word: `Device` passes, and so does `Devices`.
bool parentTagContains(const QDomElement& element, QLatin1String word)
{
    return element.parentNode().toElement().tagName().contains(word);
}

DeviceElements elementsOf(const QDomElement& device)
{
    constexpr QLatin1String deviceWord("Device");
    DeviceElements found;
    forEachDescendantElement(device, [&](const QDomElement& element) {
        const QString tag = element.tagName();
        if (tag == QLatin1String("Profile")) {
            if (parentTagContains(element, deviceWord))
                found.profiles.push_back(element);
            return;
        }
        for (std::size_t index = 0; index < sectionRules.size(); ++index)
            if (tag == sectionRules[index].tag) {
                found.hasSlots = found.hasSlots || tag == QLatin1String("Slots");
                if (parentTagContains(element, deviceWord))
                    found.sections[index].push_back(element);
                return;
            }
    });
    return found;
}

void storeProfileNumber(const QDomElement& element, bool hasSlots, struct_EtherCatDevice& device)
{
    SetXmlTypeToDevice(&device, static_cast<int>(toUint(element.text())), hasSlots ? 1 : 0);
}

void readDictionary(const QDomElement& dictionary, struct_EtherCatDevice& device)
{
    forEachChildElement(dictionary, [&](QDomElement child, const QString& tag) {
        if (tag == QLatin1String("DataTypes"))
            read_device_DataTypes(&child, &device);
        else if (tag == QLatin1String("Objects"))
            read_device_Objects(&child, &device);
    });
}

/// Device class and dictionary. A device without a profile number keeps class 0, whether it has slots or not.
void readProfile(const QDomElement& profile, bool hasSlots, struct_EtherCatDevice& device)
{
    forEachChildElement(profile, [&](const QDomElement& child, const QString& tag) {
        if (tag == QLatin1String("ProfileNo")) {
            storeProfileNumber(child, hasSlots, device);
        } else if (tag == QLatin1String("ChannelInfo")) {
            // Only the very first child counts: the channels that follow describe further axes of the same profile.
            const QDomElement first = child.firstChild().toElement();
            if (first.tagName() == QLatin1String("ProfileNo"))
                storeProfileNumber(first, hasSlots, device);
        } else if (tag == QLatin1String("Dictionary")) {
            readDictionary(child, device);
        }
    });
}

struct_EtherCatDevice deviceFrom(const QDomElement& element)
{
    DeviceElements elements = elementsOf(element);
    struct_EtherCatDevice device;
    for (std::size_t index = 0; index < sectionRules.size(); ++index)
        for (QDomElement& section : elements.sections[index])
            sectionRules[index].read(&section, &device);
    // The profile comes last: a drive counts its slots as axes, so they have to be read by then.
    for (const QDomElement& profile : elements.profiles)
        readProfile(profile, elements.hasSlots, device);
    return device;
}

/// The last child of `Vendor` whose tag contains "Id" gives the vendor id; without one it is 0.
std::uint32_t vendorIdOf(const QDomElement& vendor)
{
    std::uint32_t vendorId = 0;
    forEachChildElement(vendor, [&](const QDomElement& child, const QString& tag) {
        if (tag.contains(QLatin1String("Id")))
            vendorId = toUint(child.text());
    });
    return vendorId;
}

/// Takes a run of modules up to the next comment. Inside a run any element counts as a module, other nodes are passed.
/// @return  the node behind the run
QDomNode takeRun(QDomNode node, std::vector<struct_module>& modules)
{
    for (; !node.isNull() && !node.isComment(); node = node.nextSibling()) {
        if (!node.isElement())
            continue;
        QDomElement element = node.toElement();
        struct_module module;
        read_device_Module(&element, &module);
        modules.push_back(std::move(module));
    }
    return node;
}

/// Groups the modules of a file under the comment that stands before each run. Of several comments in a row the last
/// one counts; comments behind the last run make no group.
void appendModuleGroups(const QDomElement& modules, std::vector<struct_commentmodule>& groups)
{
    QDomNode node = modules.firstChild();
    while (!node.isNull()) {
        struct_commentmodule group;
        for (; node.isComment(); node = node.nextSibling())
            group.comment = node.toComment().data().toStdString();
        if (node.isNull())
            return;
        // A run starts with a `Module` element. Any other node in that place is stepped over and takes the comments
        // before it along: a text makes no group, an element of another name one group without modules.
        if (node.toElement().tagName() == QLatin1String("Module")) {
            node = takeRun(node, group.vmodule);
            groups.push_back(std::move(group));
        } else {
            if (node.isElement())
                groups.push_back(std::move(group));
            node = node.nextSibling();
        }
    }
}

} // namespace

bool read_xmldevice(const QString& projectName)
{
    const QDomElement root = domDocument.documentElement();
    const auto [vendors, devices, moduleLists] =
        descendantsByTag<3>(root, {QLatin1String("Vendor"), QLatin1String("Device"), QLatin1String("Modules")});
    if (vendors.empty())
        return false;

    struct_FilenameDevice file;
    file.xmlfilepath = projectName.toStdString();
    file.Vendor_Id = vendorIdOf(vendors.front()); // only the first vendor of a document counts
    file.device.reserve(devices.size());
    for (const QDomElement& device : devices)
        file.device.push_back(deviceFrom(device));
    for (const QDomElement& moduleList : moduleLists)
        if (parentTagContains(moduleList, QLatin1String("Descriptions")))
            appendModuleGroups(moduleList, file.vcommentmodule);

    // The order counts: slots are made uniform before modules move into them, oversampled PDOs are plain before they
    // get startup commands, and the lengths add up what is assigned in the end.
    device_check_Slots(&file);
    device_pdo_defalutset(&file);
    device_slotmodule_defalutset(&file);
    device_startup_defalutset(&file);
    device_sm_defalutset(&file);
    g_xmlfiledevices.push_back(std::move(file));
    return true;
}
