// documentTypeLimit.h - holds document type declarations, and what they declare, against the limits.
#pragma once

#include "esi/xml/xmlFormatError.h"

#include <QString>

#include <optional>

/// Holds the document type declarations of a file, and the entities that they declare, against the limits of
/// `xmlLimits.h`; references to parameter entities are always refused. The parser must not see such a declaration: it
/// would not be safe.
/// @param text  a whole XML file
/// @return      the first limit that is broken, with its place; nothing if none is
[[nodiscard]] std::optional<XmlFormatError> brokenDocumentTypeLimit(const QString& text);

/// Whether the beginning of a file is enough to know which limit of document types its whole text breaks, if any: all
/// that may precede the root element is in it, and no entity is declared there. References to declared entities count
/// up to the end of the file.
[[nodiscard]] bool isEnoughForDocumentTypeLimit(const QString& beginning);
