// syncRecords.h - sync managers, FMMUs and distributed clocks of a device.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Attributes of a sync manager.
struct SmAttributes
{
    std::uint16_t StartAddress = 0; ///< physical start address
    std::uint16_t MinSize = 0; ///< bytes
    std::uint16_t MaxSize = 0; ///< bytes
    std::uint16_t DefaultSize = 0; ///< bytes
    std::uint32_t ControlByte = 0; ///< control register value
    std::uint32_t Enable = 0; ///< enable value
    std::uint32_t m_Virtual = 0; ///< not 0: exists in the description only and is not exported
};

/// One sync manager.
struct struct_SM
{
    std::uint8_t SM = 0; ///< number: its place in `vSM` when it was read
    SmAttributes Attributes;
    std::string Name; ///< element text, such as "MBoxOut"
    std::uint8_t Smtype = 0; ///< 1 MBoxOut, 2 MBoxIn, 3 Outputs, 4 Inputs
    float Length = 0; ///< working length: plain float sum of byte.bit forms, with no carry
};
using str_SM = struct_SM;

/// One fieldbus memory management unit.
struct Struct_Fmmu
{
    std::string m_Name; ///< element text
    bool m_OpOnly = false;
    std::uint32_t m_Sm = 0; ///< number of its sync manager
    std::uint32_t m_Su = 0; ///< number of its sync unit
    std::int16_t m_FmmuType = 0; ///< 0 unknown, 1 MBoxOut, 2 MBoxIn, 3 Outputs, 4 Inputs
};
using Str_Fmmu = Struct_Fmmu;

/// Attributes of a PDO in an operation mode.
struct DCPdoAttributes
{
    std::uint32_t m_OsFac = 0; ///< oversampling factor
};

/// One PDO of a sync manager in an operation mode.
struct Struct_DCPdo
{
    DCPdoAttributes Attributes;
    std::uint32_t m_index = 0; ///< PDO index
};
using Str_DCPdo = Struct_DCPdo;

/// Attributes of a sync manager in an operation mode.
struct DCSmAttributes
{
    std::uint32_t m_No = 0; ///< number of the sync manager
};

/// One sync manager of an operation mode.
struct Struct_DCSm
{
    DCSmAttributes Attributes;
    std::int32_t m_SyncType = 0; ///< not read from ESI
    std::int32_t m_CycleTime = 0; ///< not read from ESI
    std::int32_t m_ShiftTime = 0; ///< not read from ESI
    std::vector<Struct_DCPdo> m_Pdo;
};
using Str_DCSm = Struct_DCSm;

/// Oversampling of an operation mode.
struct DCOversampling
{
    std::uint32_t m_DefaultFactor = 0;
    std::uint32_t m_MinCycleTime = 0; ///< ns
};

/// Vendor block of an operation mode.
struct DCVendorBlock
{
    DCOversampling oversampling;
};

/// Vendor specific part of an operation mode.
struct DCVendorSpecific
{
    DCVendorBlock twinCAT;
};

/// One operation mode of the distributed clocks. The first mode of a device is the chosen one.
struct Struct_DCOpMode
{
    std::string Name;
    std::string Desc;
    std::uint32_t AssignActivate = 0; ///< DC assign-activate word
    std::int32_t m_CycleTimeSync0 = 0; ///< ns
    std::int32_t m_ShiftTimeSync0 = 0; ///< ns
    std::int32_t m_CycleTimeSync1 = 0; ///< ns
    std::int32_t m_ShiftTimeSync1 = 0; ///< ns
    std::vector<Struct_DCSm> m_Sm;
    DCVendorSpecific vendorSpecific;
};
using Str_DCOpMode = Struct_DCOpMode;

// Compiled once, in recordLists.cpp.
extern template class std::vector<struct_SM>;
extern template class std::vector<Struct_Fmmu>;
extern template class std::vector<Struct_DCPdo>;
extern template class std::vector<Struct_DCSm>;
extern template class std::vector<Struct_DCOpMode>;
