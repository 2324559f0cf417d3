// hostileFile.h - loads a file after one that is loaded already, and watches the time and that one.
#pragma once

#include "loadedFiles.h"
#include "model/XMLParsing.h"
#include "sized.h"
#include "xml/temporaryFile.h"

#include <QByteArray>
#include <QDomDocument>
#include <QtGlobal>

#include <cstddef>
#include <ctime>

/// Empties the list of files but for one, which `load` looks after.
inline void loadOneBefore()
{
    g_xmlfiledevices.clear();
    g_xmlfiledevices.resize(1);
    g_xmlfiledevices[0].device.resize(1);
    g_xmlfiledevices[0].device[0].Name = "Loaded before";
}

/// How a file ends.
struct Ending
{
    EsiLoadStatus status = EsiLoadStatus::Loaded;
    EsiLoadReason error;
};

/// Processor time that one file may take, in seconds. The sanitizers slow everything down.
inline constexpr double maxSeconds =
#if defined(KINETRA_SANITIZED)
    30;
#else
    5;
#endif

[[nodiscard]] inline double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Loads a file with this content after the one of `loadOneBefore`. Ends the test program if that takes too long or
/// changes what was loaded before.
/// @throws std::out_of_range if a PDO names a sync manager that its device does not declare
[[nodiscard]] inline Ending load(const QByteArray& content)
{
    const QTemporaryDir folder;
    const double start = processorSeconds();
    const EsiLoadResult result = loadIntoList(writeFile(folder, QStringLiteral("hostile.xml"), content));
    const double seconds = processorSeconds() - start;
    domDocument = QDomDocument();
    if (seconds > maxSeconds)
        qFatal("loading took %f seconds", seconds);
    if (g_xmlfiledevices.empty() || g_xmlfiledevices[0].device.at(0).Name != "Loaded before")
        qFatal("what was loaded before is gone");
    if (g_xmlfiledevices.size() != (result.status == EsiLoadStatus::Loaded ? std::size_t{2} : std::size_t{1}))
        qFatal("%d files are loaded", static_cast<int>(g_xmlfiledevices.size()));
    return {result.status, result.reason};
}

/// A file with one device that has a name and these children.
[[nodiscard]] inline QByteArray inDevice(const QByteArray& children)
{
    return "<EtherCATInfo><Vendor><Id>5</Id></Vendor><Descriptions><Devices><Device><Name>Hostile</Name>" + children
           + "</Device></Devices></Descriptions></EtherCATInfo>";
}

/// A file with these declarations in front, and one device with this name.
[[nodiscard]] inline QByteArray withDocumentType(const QByteArray& declarations, const QByteArray& name)
{
    return "<!DOCTYPE EtherCATInfo [" + declarations + "]>" + inDevice("<Name>" + name + "</Name>");
}

/// Pieces of which each has its number, from `first` to `last`, in place of "%1", and the number before in place of
/// "%2".
[[nodiscard]] inline QByteArray numbered(const QByteArray& piece, int first, int last)
{
    QByteArray all;
    for (int number = first; number <= last; ++number)
        all +=
            QByteArray(piece).replace("%1", QByteArray::number(number)).replace("%2", QByteArray::number(number - 1));
    return all;
}

/// First device of the file that was loaded last.
[[nodiscard]] inline const struct_EtherCatDevice& loadedDevice()
{
    return g_xmlfiledevices.at(1).device.at(0);
}
