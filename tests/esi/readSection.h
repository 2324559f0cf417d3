// readSection.h - runs one section reader of the ESI reader over a piece of XML.
#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QtGlobal>

#include <string>

/// Parses `xml` with namespace processing on and gives its root element to a section reader.
/// @param record  what the reader finds; a cleared record if nothing is given
/// @return        the record afterwards
template<typename Record>
[[nodiscard]] Record readSection(void (*reader)(QDomElement*, Record*), const QString& xml, Record record = {})
{
    QDomDocument document;
    if (!document.setContent(xml, true))
        qFatal("the XML of this test is not well-formed: %s", qPrintable(xml));
    QDomElement root = document.documentElement();
    reader(&root, &record);
    return record;
}

/// A field of a record as a test shows it when it differs.
[[nodiscard]] inline QString text(const std::string& field)
{
    return QString::fromStdString(field);
}
