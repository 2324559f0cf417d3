// pdoRecords.h - process data objects (PDOs) that a device declares.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Attributes of a PDO entry.
struct PdoEntryAttributes
{
    bool Fixed = false; ///< not read from ESI
};

/// One entry of a device PDO.
struct struct_EntryPDOContent
{
    PdoEntryAttributes Attributes;
    std::uint16_t Index = 0; ///< object index, 0 for a gap
    std::uint32_t SubIndex = 0; ///< object sub-index
    int Bitlen = 0; ///< length in bits
    std::string Name; ///< entry name
    std::string DataType; ///< data type name
    std::int32_t Linkto = 0; ///< link to an input or output of the controller, a value of `enum_KTL_PDO_TYPE`
    std::uint32_t DefaultData = 0; ///< not read from ESI
    float Offs = 0; ///< place in the PDO, byte.bit form
};
using str_EntryPDOContent = struct_EntryPDOContent;

/// Attributes of a device PDO.
struct PdoAttributes
{
    bool Fixed = false; ///< the content cannot be changed
    bool Mandatory = false; ///< the PDO must be assigned
    int SM = -1; ///< number of the sync manager it is assigned to, -1 for none
    int SU = 0; ///< number of the sync unit
    int m_OSFac = 0; ///< oversampling factor
    int m_OSMin = 0; ///< first sample of the oversampling range
    int m_OSMax = 0; ///< last sample of the oversampling range
    int m_OSIndexInc = 0; ///< step of the entry index from one sample to the next
};

/// Index of a device PDO.
struct PdoIndex
{
    std::uint16_t Index = 0; ///< PDO index
};

/// Entries of a device PDO.
struct PdoEntryList
{
    std::vector<struct_EntryPDOContent> vPdo_c; ///< in document order
};

/// One PDO of a device.
struct struct_PDOList
{
    PdoAttributes Attributes;
    PdoIndex IndexAttributes;
    std::string Name; ///< PDO name
    PdoEntryList Entry;
    float Size = 0; ///< total size, byte.bit form
};
using str_PDOList = struct_PDOList;

// Compiled once, in recordLists.cpp.
extern template class std::vector<struct_EntryPDOContent>;
extern template class std::vector<struct_PDOList>;
