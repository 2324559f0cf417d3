// unitFacts.h - what is known of a device or module, wherever it comes from.
#pragma once

#include "facts/owner.h"
#include "facts/startupFault.h"
#include "model/nmtoken.h"
#include "model/syncRecords.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace facts {

class DictionaryFacts;

/// A sync manager; its number is its place in the list.
struct SyncManagerFacts
{
    Where where = 0;
    std::uint8_t direction = 0; ///< a value of `enum_KTL_SMFMMU_TYPE`; 0 if its kind is unknown
    SmAttributes attributes;
    std::int64_t exportedBytes = -1; ///< length that the KTL file has for process data; -1 if it has none
    std::string_view name; ///< empty in a KTL file
};

/// An FMMU.
struct FmmuFacts
{
    Where where = 0;
    std::uint8_t direction = 0; ///< a value of `enum_KTL_SMFMMU_TYPE`; 0 if its kind is unknown
    std::string_view name; ///< empty in a KTL file
    std::uint32_t syncManager = 0; ///< its number
    std::uint32_t syncUnit = 0; ///< its number
    bool isForOpOnly = false;
};

/// A PDO that an operation mode puts on a sync manager.
struct ModePdoFacts
{
    std::uint32_t syncManager = 0;
    std::uint32_t index = 0;
    std::uint32_t oversamplingFactor = 0;
};

/// An operation mode of the distributed clocks.
struct ModeFacts
{
    Where where = 0;
    std::string_view name; ///< empty in a KTL file
    std::uint32_t assignActivate = 0;
    std::int32_t cycleTimeSync0 = 0; ///< ns, as the others; 0 in a KTL file
    std::int32_t shiftTimeSync0 = 0;
    std::int32_t cycleTimeSync1 = 0;
    std::int32_t shiftTimeSync1 = 0;
    std::vector<ModePdoFacts> pdos; ///< none in a KTL file
    std::string_view description; ///< empty in a KTL file
    std::uint32_t oversamplingFactor = 0; ///< 0 in a KTL file, as below
    std::uint32_t minCycleTime = 0; ///< ns
    std::int32_t cycleFactorSync0 =
        0; ///< of the cycle of the controller, as the file declares it; nothing is made of it
    std::int32_t cycleFactorSync1 = 0; ///< of that of SYNC 0
};

/// An entry of a PDO.
struct EntryFacts
{
    Where where = 0;
    std::uint16_t index = 0; ///< 0 for a gap
    bool movesWithSlot = false; ///< its index depends on the slot of its module
    std::uint32_t subIndex = 0;
    int bits = 0; ///< negative for a number above 2^31 in a file
    std::string_view dataType; ///< empty in a KTL file
    std::int32_t link = 0; ///< a value of `enum_KTL_PDO_TYPE`, or what a file has in its place
    std::string_view name; ///< empty in a KTL file
    bool movesWithGroup = false; ///< its index depends on the group of the slot of its module; false in a KTL file
    bool isFixed = false; ///< false in an ESI file
};

/// A PDO.
struct PdoFacts
{
    Where where = 0;
    bool isInput = false; ///< a TxPdo
    bool isCopy = false; ///< of a sample, or of a module in a slot
    bool isExported = true; ///< as a PDO of the device
    int place = -1; ///< of the module that it is a copy of, from 0; -1 for a PDO of the device itself
    std::uint16_t index = 0;
    bool movesWithSlot = false; ///< its index depends on the slot of its module
    bool movesWithGroup = false; ///< its index depends on the group of that slot
    int syncManager = -1; ///< -1 if it is not assigned
    bool isFixed = false;
    bool isMandatory = false;
    bool isOverwritten = false; ///< a module in a slot may bring a PDO of the same index, which counts instead
    int oversamplingFactor = 0;
    std::uint32_t declaredFactor = 0; ///< of the oversampling, also where samples stand for the PDO; 0 in a KTL file
    int oversamplingMin = 0;
    int oversamplingMax = 0;
    std::vector<EntryFacts> entries;
    std::vector<std::uint16_t> excluded; ///< indexes of PDOs that cannot be assigned together with it
    std::string_view name; ///< empty in a KTL file
    int syncUnit = 0; ///< its number
};

/// Startup commands of a protocol of which none are read.
struct UnreadCommands
{
    Where where = 0; ///< of the protocol
    std::string_view protocol;
    std::size_t count = 0;
};

/// A PDO of more samples than go out on its sync manager.
struct LostSamples
{
    Where where = 0;
    std::uint16_t index = 0;
    int samples = 0;
};

/// A startup command.
struct CommandFacts
{
    Where where = 0;
    bool isDerived = false; ///< generated, or the copy of a module's
    NMTOKEN transition = UnknownType;
    std::uint16_t index = 0;
    std::uint16_t subIndex = 0;
    bool isCompleteAccess = false;
    std::uint16_t bytes = 0; ///< of the value, as the file announces it
    std::uint32_t data = 0; ///< the value as far as it is a number of four bytes
    bool declaresCompleteAccess = false; ///< in the file, where nothing of it is read
    bool hasMark = false; ///< its data begins with "#x", which counts as a byte
    bool isZero = false; ///< all digits of its data are 0
    std::size_t transitions = 1; ///< that the file declares; the last one counts
    std::string_view comment; ///< empty in a KTL file
    std::string longValue; ///< hexadecimal digits of a value of more than four bytes, in lower case; none in a KTL file
    std::vector<std::uint32_t> values; ///< of a complete access
    bool movesWithSlot = false; ///< its index depends on the slot of its module
    bool movesWithGroup = false; ///< its index depends on the group of that slot; false in a KTL file
};

/// A device, or a module of a file.
struct UnitFacts
{
    Owner owner;
    Where where = 0;
    std::uint32_t vendor = 0; ///< of a device
    std::uint32_t product = 0; ///< of a device
    std::uint32_t revision = 0; ///< of a device
    std::uint32_t moduleIdent = 0; ///< of a module
    std::int32_t modulePdoGroup = 0; ///< of a module
    std::string_view moduleClass; ///< of a module; empty in a KTL file
    std::uint32_t profile = 0; ///< number, of a module; 0 in a KTL file
    bool supportsSraParameters = false; ///< a module
    std::string_view name;
    std::string_view type; ///< text of the `Type` element; empty in a KTL file
    bool isFromKtl = false;
    bool isComplete = true; ///< false for a device whose derivation ended in an error: copies and lengths are missing
    bool hasSlots = false; ///< a device whose objects may be those of modules; never of a KTL file
    bool hasCoe = false;
    bool hasMailboxProtocol = false; ///< CoE or another one
    bool canAssign = true; ///< its assign objects can be written
    bool supportsCompleteAccess = false;
    std::vector<SyncManagerFacts> syncManagers; ///< none of a module
    /// Whether PDOs name sync managers by their places. In a KTL file virtual sync managers are left out, which moves
    /// the others up.
    bool hasPlacesOfSyncManagers = true;
    std::vector<FmmuFacts> fmmus; ///< none of a module
    std::vector<ModeFacts> modes; ///< none of a module
    std::vector<PdoFacts> pdos; ///< outputs first
    std::vector<CommandFacts> commands; ///< of CoE, in the order of sending
    std::vector<CommandFacts> eoeCommands; ///< as above
    std::vector<UnreadCommands> unreadCommands;
    std::vector<LostSamples> lostSamples;
    std::vector<StartupFault> startupFaults; ///< in the order of sending
    const DictionaryFacts* dictionary = nullptr; ///< null if the file has none for it

    [[nodiscard]] bool isDevice() const noexcept { return owner.kind == OwnerKind::Device; }
};

} // namespace facts
