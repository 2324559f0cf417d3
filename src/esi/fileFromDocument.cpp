// fileFromDocument.cpp - the walk over an ESI document.
#include "esi/esiFile.h"

#include "esi/derivation/copyLimit.h"
#include "esi/documentElements.h"
#include "esi/fieldRules.h"
#include "esi/xml/domIteration.h"
#include "esi/xmlparsing.h"

#include <QDomComment>

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

/// Stores the name of a device without the CDATA mark that some files have written out in their text.
void storeDeviceName(QDomElement* element, struct_EtherCatDevice* device)
{
    // ODD, KEPT: both counts are one more than the marks searched for, so that the angle brackets around a mark go with
    // it, and the removal starts at position 0, where one would expect it to start at the mark. Pinned by
    // tst_WalkDevice::cdataMark.
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

struct SectionReader
{
    DeviceSection section;
    void (*read)(QDomElement* element, struct_EtherCatDevice* device);
};

/// Readers of the sections, in the order of their calls. A section that occurs twice is read twice.
constexpr std::array sectionReaders{
    SectionReader{DeviceSection::Type, read_device_Productinfo},
    SectionReader{DeviceSection::Name, storeDeviceName},
    SectionReader{DeviceSection::Mailbox, read_device_Mailboxinfo},
    SectionReader{DeviceSection::Fmmu, read_device_Fmmuinfo},
    SectionReader{DeviceSection::Sm, read_device_SMinfo},
    SectionReader{DeviceSection::Dc, read_device_Dcinfo},
    SectionReader{DeviceSection::RxPdo, read_device_RxPdoinfo},
    SectionReader{DeviceSection::TxPdo, read_device_TxPdoinfo},
    SectionReader{DeviceSection::Slots, read_device_Slotsinfo},
};

void storeProfileNumber(const QDomElement& element, bool hasSlots, struct_EtherCatDevice& device)
{
    SetXmlTypeToDevice(&device, static_cast<int>(toUint(element.text())), hasSlots ? 1 : 0);
}

const std::array dictionaryRules{
    child("DataTypes", bySection<read_device_DataTypes>),
    child("Objects", bySection<read_device_Objects>),
};

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
            readChildren(child, dictionaryRules, device);
        }
    });
}

std::vector<QDomElement>& sectionOf(DeviceElements& elements, DeviceSection section)
{
    return elements.sections[static_cast<std::size_t>(section)];
}

struct_EtherCatDevice deviceFrom(DeviceElements& elements)
{
    struct_EtherCatDevice device;
    for (const SectionReader& reader : sectionReaders)
        for (QDomElement& element : sectionOf(elements, reader.section))
            reader.read(&element, &device);
    // The profile comes last: a drive counts its slots as axes, so they have to be read by then.
    for (const QDomElement& profile : sectionOf(elements, DeviceSection::Profile))
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
/// @return  the node after the run
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

/// Groups the modules of a file under the comment before each run. Of several comments in a row the last
/// one counts; comments after the last run make no group.
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

EsiLoadResult tooManyCopies()
{
    const QString text =
        QStringLiteral("the PDOs and modules of the file stand for more than %1 bytes").arg(maxCopiedBytes);
    return {EsiLoadStatus::NotWellFormed, {text, 1, 1}, {}};
}

} // namespace

EsiLoadResult fileFrom(const QDomDocument& document, const QString& path)
{
    EsiLoadResult result;
    struct_FilenameDevice& file = result.file;
    const DocumentElements elements = walkDocument(
        document.documentElement(), [&](DeviceElements& device) { file.device.push_back(deviceFrom(device)); });
    if (elements.vendor.isNull())
        return {EsiLoadStatus::NotEsi, {}, {}};
    file.xmlfilepath = path.toStdString();
    file.Vendor_Id = vendorIdOf(elements.vendor);
    for (const QDomElement& moduleList : elements.moduleLists)
        appendModuleGroups(moduleList, file.vcommentmodule);

    if (!isWithinCopyLimit(file))
        return tooManyCopies();
    // The order counts: slots are made uniform before modules move into them, oversampled PDOs are plain before they
    // get startup commands, and the lengths add up what is assigned in the end.
    device_check_Slots(&file);
    device_pdo_defalutset(&file);
    device_slotmodule_defalutset(&file);
    device_startup_defalutset(&file);
    device_sm_defalutset(&file);
    return result;
}
