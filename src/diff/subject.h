// subject.h - a device as it is compared, wherever it comes from.
#pragma once

#include "diff/difference.h"
#include "facts/processImage.h"
#include "facts/unitFacts.h"
#include "model/nmtoken.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace diff {

/// What a device says of itself besides its identity.
struct DeviceTraits
{
    std::uint32_t serial = 0;
    NMTOKEN checkProductCode = UnknownType; ///< no token in a KTL file
    std::uint32_t deviceType = 0; ///< a value of `enum_KTL_DEVICE_TYPE`
    std::uint32_t driveAxes = 0;
    bool hasSdoInfo = false;
    bool canUploadPdos = false;
    bool canConfigurePdos = false;
    bool hasSegmentedSdo = false;
    bool hasDiagnosisHistory = false;
    bool isEoeIp = false;
    bool isEoeMac = false;
    bool hasSdoSupport = false; ///< false in an ESI file, where what is below is 0 too
    std::uint32_t countedSlots = 0;
    std::uint32_t countedModules = 0;
};

/// What a device says of all its slots.
struct SlotListTraits
{
    facts::Where where = 0;
    bool isThere = false;
    bool sendsIdents = false;
    bool sendsAddresses = false;
    std::uint32_t indexStep = 0;
    std::uint32_t pdoStep = 0;
    std::uint32_t groups = 0; ///< 0 in a KTL file, as below
    std::uint32_t groupIndexStep = 0;
    std::uint32_t groupPdoStep = 0;
    std::string_view identifiedBy;
    std::string transition;
    std::uint32_t most = 0; ///< slots
};

/// An ident that a slot takes.
struct SlotIdent
{
    std::uint32_t ident = 0;
    bool isDefault = false;
};

/// A slot.
struct SlotTraits
{
    facts::Where where = 0;
    std::string_view name; ///< empty in a KTL file
    std::uint32_t least = 0;
    std::uint32_t most = 0;
    std::uint32_t indexStep = 0;
    std::uint32_t pdoStep = 0;
    std::int32_t group = -1; ///< -1 in a KTL file, which has none of what follows either
    std::vector<std::string_view> classes;
    std::vector<SlotIdent> idents;
};

/// A module that is in a place of a device.
struct PlacedModule
{
    facts::Where where = 0;
    std::size_t place = 0; ///< from 0
    std::uint32_t ident = 0;
};

/// A part of a device that an export of it leaves out.
struct Loss
{
    Area area;
    std::string part; ///< in words
    facts::Where where;
};

/// A device as it is compared. It refers to the facts of its file, and its image to itself.
struct Subject
{
    Subject() = default;
    ~Subject() = default;
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;
    Subject(Subject&&) = default;
    Subject& operator=(Subject&&) = default;

    const facts::UnitFacts* unit = nullptr;
    DeviceTraits traits;
    SlotListTraits slotList;
    std::vector<SlotTraits> slotTraits;
    std::vector<PlacedModule> placed;
    std::vector<facts::UnitFacts> modules; ///< that go out with a device of a KTL file
    std::vector<std::string_view> moduleNames; ///< of all modules of the file that a device of a KTL file comes from
    std::vector<facts::PdoFacts> presetPdos; ///< see `facts::presetPdosOf`
    facts::ProcessImage image; ///< of the unit and these PDOs
    std::vector<Loss> losses; ///< of a device as its export carries it
};

} // namespace diff
