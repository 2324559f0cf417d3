// sectionReaders.h - the readers of the sections: each takes the element of its section and the record to fill. Nothing
// is reported: what is missing stays cleared, what does not convert becomes 0 or `UnknownType`.
#pragma once

#include "esi/fieldRules.h"
#include "esi/sections/dictionaries.h"
#include "esi/xml/tree.h"
#include "model/deviceRecords.h"
#include "model/dictionaryRecords.h"
#include "model/moduleRecords.h"

#include <array>
#include <vector>

void readType(struct_EtherCatDevice& device, const xml::Element& element);
void readMailbox(struct_EtherCatDevice& device, const xml::Element& element);
void appendFmmu(struct_EtherCatDevice& device, const xml::Element& element);
void appendSm(struct_EtherCatDevice& device, const xml::Element& element);
void readDc(struct_EtherCatDevice& device, const xml::Element& element);
void appendRxPdo(struct_EtherCatDevice& device, const xml::Element& element);
void appendTxPdo(struct_EtherCatDevice& device, const xml::Element& element);
void readSlots(struct_EtherCatDevice& device, const xml::Element& element);

/// Appends the data types of a `DataTypes` element, of a device or of a module.
void readDataTypes(std::vector<struct_DataTypes>& dataTypes, const xml::Element& element);

/// Appends the objects of an `Objects` element, of a device or of a module.
void readObjects(std::vector<struct_Object>& objects, const xml::Element& element);

/// Reads an element of a run of modules.
void readModule(struct_module& module, const xml::Element& element, Dictionaries dictionaries);

template<typename Dictionary>
const std::array dictionaryRules{
    child<Dictionary>("DataTypes",
                      [](Dictionary& to, const xml::Element& element) { readDataTypes(to.vdatatype, element); }),
    child<Dictionary>("Objects", [](Dictionary& to, const xml::Element& element) { readObjects(to.vobject, element); }),
};

/// Reads a `Dictionary` element of a device or of a module.
template<typename Dictionary> void readDictionary(Dictionary& to, const xml::Element& element)
{
    readChildren(element, dictionaryRules<Dictionary>, to);
}
