// plainScanner.h - reads plain XML files straight into a tree.
#pragma once

#include "esi/xml/tree.h"

#include <optional>
#include <string>

namespace xml {

/// The tree of a file, without a document in between. It is made of plain files alone, and is then the tree of their
/// document: of well-formed elements, attributes, texts, CDATA sections, comments and processing instructions in UTF-8
/// or Latin-1, with ASCII names and with references to characters only, within the limits of `xmlLimits.h`.
/// @param file  its bytes
/// @return      nothing for any other file, well-formed or not: the parser of documents judges it
[[nodiscard]] std::optional<Tree> treeOfPlainXml(std::string file);

} // namespace xml
