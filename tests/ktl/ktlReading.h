// ktlReading.h - KTL files as a test writes them down, item by item, and what the reader makes of them.
#pragma once

#include "ktl/ktlBytes.h"
#include "ktl/reading/ktlReader.h"

#include <QByteArray>

#include <cstdint>
#include <initializer_list>
#include <vector>

/// What a read of a file gives.
struct Reading
{
    bool isComplete = false;
    int errorCode = -77;
    std::vector<struct_FilenameDevice> files; ///< those that the read added
};

/// Reads a file; the list of loaded files is empty before and afterwards.
inline Reading readingOf(const QByteArray& file)
{
    g_xmlfiledevices.clear();
    const FileHandle ktl = streamWith(file); // at its end: the reader itself goes to its start
    Reading reading;
    reading.isComplete = device_writektltodevices(ktl.get(), QStringLiteral("/ktl/伺服.ktl"), &reading.errorCode);
    reading.files.swap(g_xmlfiledevices);
    return reading;
}

/// An item of a type with what follows its head.
inline QByteArray ktlItem(std::uint32_t type, const QByteArray& body = {})
{
    return le32(type) + le32(static_cast<std::uint32_t>(8 + body.size())) + body;
}

inline QByteArray endItem()
{
    return ktlItem(0, zeros(4));
}

/// A General item of a product code, all else 0.
inline QByteArray generalItem(std::uint32_t productCode = 0x2A)
{
    return ktlItem(40000, zeros(4) + le32(productCode) + zeros(36));
}

/// A ModuleType item of an ident, all else 0.
inline QByteArray moduleItem(std::uint32_t ident)
{
    return ktlItem(40013, le32(ident) + zeros(8));
}

/// The only device of a file of one General item and the given ones; a device without a name if it is not the only one.
inline struct_EtherCatDevice deviceReadFrom(const QByteArray& items)
{
    const Reading reading = readingOf(generalItem() + items + endItem());
    const bool isOnly = reading.isComplete && reading.files.size() == 1 && reading.files[0].device.size() == 1;
    return isOnly ? reading.files[0].device[0] : struct_EtherCatDevice();
}

/// The only module of a file of one ModuleType item and the given ones; one without a name if it is not the only one.
inline struct_module moduleReadFrom(const QByteArray& items)
{
    const Reading reading = readingOf(generalItem() + moduleItem(0x99) + items + endItem());
    const bool isOnly = reading.isComplete && reading.files.size() == 1 && reading.files[0].vcommentmodule.size() == 1
                        && reading.files[0].vcommentmodule[0].vmodule.size() == 1;
    return isOnly ? reading.files[0].vcommentmodule[0].vmodule[0] : struct_module();
}
