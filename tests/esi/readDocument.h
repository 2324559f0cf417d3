// readDocument.h - runs the walk of the ESI reader over a whole document.
#pragma once

#include "esi/xmlparsing.h"

#include <QString>
#include <QtGlobal>

#include <stdexcept>

/// Parses `xml` into the document of the reader, as the caller of the walk does with a file.
inline void setDocument(const QString& xml)
{
    if (!domDocument.setContent(xml, true))
        qFatal("the XML of this test is not well-formed: %s", qPrintable(xml));
}

/// Runs the walk over `xml` with an empty list of files.
/// @return  the one record that was appended
[[nodiscard]] inline struct_FilenameDevice readDocument(const QString& xml)
{
    setDocument(xml);
    g_xmlfiledevices.clear();
    if (!read_xmldevice(QStringLiteral("test.xml")) || g_xmlfiledevices.size() != 1)
        throw std::runtime_error("the walk gave no record");
    return g_xmlfiledevices.front();
}

/// Runs the walk over a file with one vendor and these elements as its descriptions.
[[nodiscard]] inline struct_FilenameDevice readDescriptions(const QString& descriptions)
{
    return readDocument(QStringLiteral("<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions>%1</Descriptions>"
                                       "</EtherCATInfo>")
                            .arg(descriptions));
}

/// Runs the walk over a file with one device that has these children.
[[nodiscard]] inline struct_EtherCatDevice readDevice(const QString& children)
{
    return readDescriptions(QStringLiteral("<Devices><Device>%1</Device></Devices>").arg(children)).device.at(0);
}
