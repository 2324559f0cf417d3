// dictionarySections.cpp - data types and objects of a device's dictionary. The walk calls both readers at their fixed
// places; neither has an effect yet.
#include "esi/xmlparsing.h"

void read_device_DataTypes(QDomElement* /*element*/, struct_EtherCatDevice* /*ether_device*/) {}

void read_device_Objects(QDomElement* /*element*/, struct_EtherCatDevice* /*ether_device*/) {}
