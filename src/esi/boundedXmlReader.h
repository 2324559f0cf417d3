// boundedXmlReader.h - parses an XML file into a document, but not one that is nested without sense.
#pragma once

#include <QString>

class QDomDocument;
class QFile;

/// Deepest nesting of elements that is read; the root element is at depth 1. ESI files reach about 20. The parser and
/// the document tree recurse, so an unbounded depth would overflow the stack.
inline constexpr int deepestNesting = 1000;

/// Why a file is no well-formed document.
struct XmlFormatError
{
    QString message; ///< in the parser's words
    int line = 0; ///< from 1
    int column = 0; ///< from 1
};

/// Parses an open file into `document`, with namespace processing on: tags and attributes have their local names.
/// Comments are kept, and line ends inside texts stay as they stand in the file: the parser takes the file itself and
/// switches its text mode off.
/// @param error  set on failure
/// @return       false if the file is not well-formed, or nested deeper than `deepestNesting`
[[nodiscard]] bool parseXml(QFile& file, QDomDocument& document, XmlFormatError& error);
