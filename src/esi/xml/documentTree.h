// documentTree.h - the tree of a document.
#pragma once

#include "esi/xml/tree.h"

#include <QDomElement>

namespace xml {

/// The tree of an element with all that is in it, as it is now. Its texts are in UTF-8; half of a surrogate pair, which
/// no UTF-8 holds, becomes a question mark.
/// @param element  the root of the tree; a null one gives a root without name and content
/// @throws std::length_error if it holds 4 GB of text
[[nodiscard]] Tree treeOf(const QDomElement& element);

} // namespace xml
