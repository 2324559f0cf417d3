// summaryOf.h - summaries of ESI files that tests write down.
#pragma once

#include "esi/esiFile.h"
#include "show/shownFile.h"
#include "show/summary.h"

#include <QByteArray>

#include <sstream>
#include <utility>

/// Loads an ESI file to be shown.
inline void setEsiText(show::ShownFile& file, const QByteArray& esi)
{
    const EsiTreeResult read = esiTreeOf(esi.toStdString());
    EsiLoadResult loaded = fileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreRead);
    file.setEsi(std::move(loaded.file), [](const show::ExportProblem& /*problem*/) {});
}

/// The summary of a file.
inline QByteArray summaryOf(const show::ShownFile& file, std::size_t lineWidth = show::usualWidth)
{
    std::ostringstream out;
    show::writeSummary(out, file, lineWidth);
    return QByteArray::fromStdString(out.str());
}

/// A device of an ESI file.
/// @param parts  elements after its `Name`
inline QByteArray deviceElement(const QByteArray& parts, const QByteArray& name = "N")
{
    return "<Device><Type ProductCode=\"#x5001\" RevisionNo=\"#x30001\">T</Type><Name>" + name + "</Name>" + parts
           + "</Device>";
}

/// An ESI file of vendor 0x7e57.
inline QByteArray esiFile(const QByteArray& devices, const QByteArray& modules = {})
{
    return "<EtherCATInfo><Vendor><Id>#x7e57</Id></Vendor><Descriptions><Devices>" + devices + "</Devices>"
           + (modules.isEmpty() ? QByteArray() : "<Modules>" + modules + "</Modules>")
           + "</Descriptions></EtherCATInfo>";
}
