// documentScan.h - the elements of any ESI file, by the parser that documents are made with.
#pragma once

#include "esi/xml/xmlFormatError.h"
#include "find/deviceWalk.h"

#include <QIODevice>

#include <optional>

namespace find {

/// Goes through a file with the parser of documents, within the limits of ESI files, but makes no document.
/// @param file  open for reading, at its start
/// @param walk  takes the elements, up to where the file is broken
/// @return      what is wrong with the file, in the words of loading; nothing if it is whole
[[nodiscard]] std::optional<XmlFormatError> scanAsDocument(QIODevice& file, DeviceWalk& walk);

} // namespace find
