// couplerItems.h - what the sample of a bus coupler must give, item by item, as it is written down by hand.
#pragma once

#include "workbench/itemsByHand.h"

/// MB-C100 of samples/bus-coupler.xml, and the seven modules of its file.
namespace coupler {

using namespace byHand;

constexpr Identity identity{0x7E570002, 0x00005001, 0x00030001};

/// SdoInfo, PdoAssign, PdoConfig, SegmentedSdo, DiagHistory; complete access is read from no file.
constexpr const char* coeFlags = "01 01 00 01 01 00 01";

/// Items from the FMMUs to the PDO of the coupler itself, 2 bytes of inputs.
/// @param outputs  bytes of the outputs of all modules
/// @param inputs   bytes of all inputs
/// @param link     of the count of modules, an entry of the coupler's own PDO
inline QByteArrayList channels(std::uint32_t outputs, std::uint32_t inputs, int link = 0)
{
    return {
        fmmus({fmmu(3), fmmu(4), fmmu(0)}),
        syncManagers({syncManager(0x1000, 40, 512, 256, 0x26, 1), syncManager(0x1200, 40, 512, 256, 0x22, 1),
                      syncManager(0x1400, 0, 512, outputs, 0x64, 1), syncManager(0x1A00, 0, 512, inputs, 0x20, 1)}),
        pdoItem(deviceInputs, {0x1AFF, 3, true, true},
                {entry(0xF100, 1, 1), entry(0xF100, 2, 1), gap(6), entry(0xF100, 3, 8, link)}),
    };
}

/// The start of the CoE commands: both assign objects are cleared, and the coupler's own PDO is fixed.
inline QByteArrayList clearedAssignments()
{
    return {command(0x1C12, 0, 1, 0), command(0x1C13, 0, 1, 0)};
}

inline QByteArray slotTable()
{
    return slotItem({true, 1, 16}, {slot(1, 1, 16, 1), slot(0, 1, 16, 1), slot(0, 14, 16, 1)});
}

inline QByteArray names()
{
    return moreInfoItem({"MB-C100 bus coupler for 16 modules", "MB-PF24 power feed 24 V with monitor",
                         "MB-DI08 eight digital inputs", "MB-DI16 十六路数字量输入", "MB-DO08 eight digital outputs",
                         "MB-DO16 sixteen digital outputs", "MB-AI04 four analog inputs",
                         "MB-AO04 four analog outputs"});
}

/// Entries of one object with the subindexes from 1 on, all of one length, as PDO items hold them.
inline QByteArrayList entries(std::uint32_t object, int count, std::uint32_t bits)
{
    QByteArrayList records;
    for (int subIndex = 1; subIndex <= count; ++subIndex)
        records.append(entry(object, std::uint32_t(subIndex), bits));
    return records;
}

/// The same as the blocks of modules hold them; the object depends on the slot.
inline QByteArrayList blockEntries(std::uint32_t object, int count, std::uint32_t bits)
{
    QByteArrayList records;
    for (int subIndex = 1; subIndex <= count; ++subIndex)
        records.append(moduleEntry(true, object, std::uint32_t(subIndex), bits));
    return records;
}

/// Assigns a PDO of a module; what is assigned depends on the slot.
inline QByteArray assigned(std::uint32_t object, std::uint32_t pdo)
{
    return moduleCommand(true, object, 1, 2, pdo);
}

/// A command of a module with one byte of value 0.
inline QByteArray oneByteOff(std::uint32_t subIndex)
{
    return moduleCommand(true, 0x8000, subIndex, 1, 0);
}

/// The startup block of MB-AO04, the only module with a PDO that is not fixed: its mapping comes before the commands
/// of the file, the assignment after them.
inline QByteArray analogOutputStartup()
{
    return moduleStartup({
        moduleCommand(true, 0x1600, 0, 1, 0),
        moduleCommand(true, 0x1600, 1, 4, 0x70000110),
        moduleCommand(true, 0x1600, 2, 4, 0x70000210),
        moduleCommand(true, 0x1600, 3, 4, 0x70000310),
        moduleCommand(true, 0x1600, 4, 4, 0x70000410),
        moduleCommand(true, 0x1600, 0, 1, 4),
        moduleCommand(true, 0x8000, 1, 2, 1),
        moduleCommand(true, 0x8000, 2, 4, 0x7FFF8000),
        assigned(0x1C12, 0x1600),
    });
}

/// The blocks of all modules of the file, whether they are in a slot or not, in the order of the file.
inline QByteArrayList moduleBlocks()
{
    const PdoHead outputs{0x1600, 2, true};
    const PdoHead inputs{0x1A00, 3, true};
    return {
        module(0x010), // MB-PF24
        pdoItem(moduleInputs, inputs,
                {moduleEntry(true, 0x6000, 1, 1), moduleEntry(true, 0x6000, 2, 1), moduleEntry(false, 0, 0, 6)}),
        moduleStartup({assigned(0x1C13, 0x1A00)}),
        module(0x108), // MB-DI08
        pdoItem(moduleInputs, inputs, blockEntries(0x6000, 8, 1)),
        moduleStartup({assigned(0x1C13, 0x1A00)}),
        module(0x116), // MB-DI16
        pdoItem(moduleInputs, inputs, blockEntries(0x6000, 16, 1)),
        moduleStartup({assigned(0x1C13, 0x1A00)}),
        module(0x208), // MB-DO08
        pdoItem(moduleOutputs, outputs, blockEntries(0x7000, 8, 1)),
        moduleStartup({oneByteOff(1), assigned(0x1C12, 0x1600)}),
        module(0x216), // MB-DO16
        pdoItem(moduleOutputs, outputs, blockEntries(0x7000, 16, 1)),
        pdoItem(moduleInputs, inputs, blockEntries(0x6000, 1, 16)),
        moduleStartup({oneByteOff(1), assigned(0x1C12, 0x1600), assigned(0x1C13, 0x1A00)}),
        module(0x304), // MB-AI04
        pdoItem(moduleInputs, inputs, blockEntries(0x6000, 4, 16)),
        moduleStartup({oneByteOff(1), oneByteOff(2), oneByteOff(3), oneByteOff(4), assigned(0x1C13, 0x1A00)}),
        module(0x404), // MB-AO04
        pdoItem(moduleOutputs, {0x1600, 2}, blockEntries(0x7000, 4, 16)),
        analogOutputStartup(),
    };
}

/// What follows the CoE item of a device of type 5.
/// @param occupied  how many modules are in the 16 places
/// @param idents    of the first places; the others are empty
inline QByteArrayList presetTail(std::uint32_t occupied, QList<std::uint32_t> idents)
{
    while (idents.size() < 16)
        idents.append(0);
    return QByteArrayList{slotTable(), slotPreset(occupied, idents), names()} + moduleBlocks() + QByteArrayList{end()};
}

} // namespace coupler
