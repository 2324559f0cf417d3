// boundedXmlReader.h - parses an XML file into a document, within the limits.
#pragma once

#include "esi/xml/xmlFormatError.h"

class QDomDocument;
class QIODevice;

/// Parses an open file into `document`, with namespace processing on: tags and attributes have local names. Comments
/// and line ends inside texts are kept: text mode is switched off. Nothing but the file is read; an external entity
/// stays empty.
/// @param error  set on failure
/// @return       false if the file is not well-formed, or goes beyond a limit of `xmlLimits.h`
[[nodiscard]] bool parseXml(QIODevice& file, QDomDocument& document, XmlFormatError& error);
