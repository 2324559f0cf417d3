// dcSection.cpp - the `Dc` element of a device: operation modes of the distributed clocks.
#include "esi/fieldRules.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>
#include <utility>

namespace {

const std::array dcSmRules{
    attribute("No", storeUint<&DCSmAttributes::m_No>),
};

const std::array dcPdoRules{
    attribute("OSFac", storeUint<&DCPdoAttributes::m_OsFac>),
};

const std::array oversamplingRules{
    attribute("MinCycleTime", storeUint<&DCOversampling::m_MinCycleTime>),
    attribute("DefaultFactor", storeUint<&DCOversampling::m_DefaultFactor>),
};

void appendPdo(Struct_DCSm& syncManager, const xml::Element& element)
{
    Struct_DCPdo pdo;
    pdo.m_index = toUint(element.text());
    readAttributes(element, dcPdoRules, pdo.Attributes);
    syncManager.m_Pdo.push_back(pdo);
}

const std::array dcSmChildRules{
    child("Pdo", appendPdo),
};

void appendModeSm(Struct_DCOpMode& mode, const xml::Element& element)
{
    Struct_DCSm syncManager;
    readAttributes(element, dcSmRules, syncManager.Attributes);
    readChildren(element, dcSmChildRules, syncManager);
    mode.m_Sm.push_back(std::move(syncManager));
}

void readVendorSpecific(Struct_DCOpMode& mode, const xml::Element& element)
{
    xml::forEachChildElement(element, "TwinCAT", [&](const xml::Element& block) {
        xml::forEachChildElement(block, "Oversampling", [&](const xml::Element& oversampling) {
            readAttributes(oversampling, oversamplingRules, mode.vendorSpecific.twinCAT.oversampling);
        });
    });
}

// Times are signed: a negative shift in plain decimal is kept.
const std::array opModeRules{
    child("Name", storeText<&Struct_DCOpMode::Name>),
    child("Desc", storeText<&Struct_DCOpMode::Desc>),
    child("AssignActivate", storeUint<&Struct_DCOpMode::AssignActivate>),
    child("CycleTimeSync0", storeInt<&Struct_DCOpMode::m_CycleTimeSync0>),
    child("ShiftTimeSync0", storeInt<&Struct_DCOpMode::m_ShiftTimeSync0>),
    child("CycleTimeSync1", storeInt<&Struct_DCOpMode::m_CycleTimeSync1>),
    child("ShiftTimeSync1", storeInt<&Struct_DCOpMode::m_ShiftTimeSync1>),
    child("Sm", appendModeSm),
    child("VendorSpecific", readVendorSpecific),
};

void appendOpMode(struct_EtherCatDevice& device, const xml::Element& element)
{
    Struct_DCOpMode mode;
    readChildren(element, opModeRules, mode);
    device.vopmode.push_back(std::move(mode));
}

const std::array dcRules{
    child("OpMode", appendOpMode),
};

} // namespace

void readDc(struct_EtherCatDevice& device, const xml::Element& element)
{
    readChildren(element, dcRules, device);
}
