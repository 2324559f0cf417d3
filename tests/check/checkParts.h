// checkParts.h - small ESI files for tests of rules, and their findings as texts.
#pragma once

#include "check/checkFile.h"
#include "check/checkedFile.h"
#include "esi/esiFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace checkParts {

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

/// Findings of one rule as "line:column: text", in the order of the file.
inline QStringList linesOf(const check::Findings& findings, const char* code)
{
    QStringList lines;
    for (const check::Finding& finding : findings.list)
        if (finding.rule->code == code)
            lines += QStringLiteral("%1:%2: %3").arg(finding.place.line).arg(finding.place.column).arg(finding.text);
    return lines;
}

/// An ESI file that was read.
struct LoadedFile
{
    explicit LoadedFile(const QByteArray& bytes)
        : read(esiTreeOf(bytes.toStdString()))
        , encodingFault(check::encodingFaultOf(bytes.toStdString()))
    {
        if (!read.tree.has_value())
            return;
        file = declaredFileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreSkipped).file;
        areComplete = completeDevices(file);
    }

    /// None in a file that cannot be read.
    [[nodiscard]] check::Findings findings(const QStringList& givenFiles = {}) const
    {
        return read.tree.has_value() ? check::checkEsi({*read.tree, file, areComplete, givenFiles, encodingFault})
                                     : check::Findings();
    }

    EsiTreeResult read;
    std::optional<check::EncodingFault> encodingFault;
    struct_FilenameDevice file;
    std::vector<bool> areComplete;
};

/// The findings of one rule in an ESI file, see `linesOf`.
inline QStringList findingsOf(const char* code, const QByteArray& file)
{
    return linesOf(LoadedFile(file).findings(), code);
}

} // namespace checkParts
