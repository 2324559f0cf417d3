// nmtoken.h - the name tokens of the ESI schema that the workbench tells apart.
#pragma once

#include <cstdint>

/// One token: a state transition of the EtherCAT state machine, a category or access right of a dictionary entry, a
/// mapping token, or a value of `CheckProductCode`. The numbers go into the KTL file as they are here.
enum NMTOKEN : std::uint32_t
{
    UnknownType = 0, ///< no token, or one that is not in this list
    IP = 1, ///< INIT to PREOP
    PS = 2, ///< PREOP to SAFEOP
    IP_PS = 3, ///< IP and PS in one command; generated or read from a KTL file, no ESI text reads as this
    PI = 4, ///< PREOP to INIT
    SP = 5, ///< SAFEOP to PREOP
    SO = 6, ///< SAFEOP to OP
    SI = 7, ///< SAFEOP to INIT
    OS = 8, ///< OP to SAFEOP
    OP = 9, ///< OP to PREOP
    OI = 10, ///< OP to INIT
    IB = 11, ///< INIT to BOOT
    BI = 12, ///< BOOT to INIT
    m = 13, ///< category mandatory
    o = 14, ///< category optional
    c = 15, ///< category conditional
    ro = 16, ///< read only
    rw = 17, ///< read and write
    wo = 18, ///< write only
    t = 19, ///< mapping token, stored by no reader
    r = 20, ///< mapping token, stored by no reader
    tr = 21, ///< mapping token, stored by no reader
    NONE = 22, ///< value of `CheckProductCode`
    EQ = 23 ///< value of `CheckProductCode`
};
