// pdoLink.h - what an entry of a PDO is linked to, as records and the KTL file hold it.
#pragma once

#include <cstdint>

/// Links of a PDO entry to an input or output of the controller. -3 is not assigned.
enum enum_KTL_PDO_TYPE : std::int32_t
{
    KTL_PDO_TYPE_NONE = 0,
    KTL_PDO_TYPE_DIN = -1,
    KTL_PDO_TYPE_DOUT = -2,
    KTL_PDO_TYPE_I16_AIN = -4,
    KTL_PDO_TYPE_I32_AIN = -5,
    KTL_PDO_TYPE_FLOAT_AIN = -6,
    KTL_PDO_TYPE_I16_AOUT = -7,
    KTL_PDO_TYPE_I32_AOUT = -8,
    KTL_PDO_TYPE_FLOAT_AOUT = -9,
    KTL_PDO_TYPE_ENCODER32 = -10
};
