// sectionFronts.cpp - the readers of the sections by their fixed names, for elements of a document.
#include "esi/sections/sectionReaders.h"
#include "esi/xml/documentTree.h"
#include "esi/xmlparsing.h"

namespace {

/// Reads an element of a document; a null pointer reads nothing.
template<typename Record, typename Reader> void readElement(const QDomElement* element, Record* record, Reader read)
{
    if (element == nullptr || record == nullptr)
        return;
    const xml::Tree tree = xml::treeOf(*element);
    read(*record, tree.root());
}

} // namespace

void read_device_Productinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, readType);
}

void read_device_Mailboxinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, readMailbox);
}

void read_device_Fmmuinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, appendFmmu);
}

void read_device_SMinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, appendSm);
}

void read_device_Dcinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, readDc);
}

void read_device_RxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, appendRxPdo);
}

void read_device_TxPdoinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, appendTxPdo);
}

void read_device_DataTypes(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, [](struct_EtherCatDevice& device, const xml::Element& dataTypes) {
        readDataTypes(device.Dictionary.vdatatype, dataTypes);
    });
}

void read_device_Objects(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, [](struct_EtherCatDevice& device, const xml::Element& objects) {
        readObjects(device.Dictionary.vobject, objects);
    });
}

void read_device_Slotsinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    readElement(element, ether_device, readSlots);
}

void read_device_Module(QDomElement* element, struct_module* module)
{
    readElement(element, module, [](struct_module& record, const xml::Element& moduleElement) {
        readModule(record, moduleElement, Dictionaries::AreRead);
    });
}

void read_device_moduleDataTypes(QDomElement* element, struct_module* module)
{
    readElement(element, module, [](struct_module& record, const xml::Element& dataTypes) {
        readDataTypes(record.Dictionary.vdatatype, dataTypes);
    });
}

void read_device_moduleObjects(QDomElement* element, struct_module* module)
{
    readElement(element, module, [](struct_module& record, const xml::Element& objects) {
        readObjects(record.Dictionary.vobject, objects);
    });
}
