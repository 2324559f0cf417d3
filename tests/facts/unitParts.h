// unitParts.h - small ESI files for tests, and the facts of them.
#pragma once

#include "esi/esiFile.h"
#include "facts/esiFileFacts.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace unitParts {

/// A file with one device on lines of its own, to which the parts are added: line 1 declares the vendor, line 2 begins
/// the device with its type, the parts begin on line 3.
/// @param parts    elements of the device after its `Name`
/// @param modules  elements of `Modules`, on the line after the end of the device
inline QByteArray deviceFile(const QByteArray& parts, const QByteArray& modules = {})
{
    return "<EtherCATInfo><Vendor><Id>#x7e57</Id><Name>Test</Name></Vendor><Descriptions><Groups/><Devices>\n"
           "<Device Physics=\"YY\"><Type ProductCode=\"#x1\" RevisionNo=\"#x2\">T1</Type><Name>Device</Name>"
           "<GroupType>G</GroupType>\n"
           + parts + "</Device></Devices>\n" + (modules.isEmpty() ? QByteArray() : "<Modules>" + modules + "</Modules>")
           + "</Descriptions></EtherCATInfo>\n";
}

/// An ESI file that was read, with its facts.
struct LoadedUnits
{
    explicit LoadedUnits(const QByteArray& bytes)
        : read(esiTreeOf(bytes.toStdString()))
        , file(declaredFileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreSkipped).file)
        , areComplete(completeDevices(file))
        , facts(facts::esiFileFactsOf(*read.tree, file, areComplete))
    {}

    EsiTreeResult read;
    struct_FilenameDevice file;
    std::vector<bool> areComplete;
    facts::EsiFileFacts facts;
};

} // namespace unitParts
