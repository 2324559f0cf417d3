// plainScan.h - the elements of a plain ESI file, straight from its bytes.
#pragma once

#include "find/deviceWalk.h"

#include <QIODevice>

namespace find {

/// Goes through a file that is plain as `xml::treeOfPlainXml` has it, a block at a time.
/// @param file  open for reading, at its start
/// @param walk  takes the elements; of no use if the file is not plain
/// @return      false if the file is not plain, broken, or beyond a limit: which it is, its document tells
[[nodiscard]] bool scanPlain(QIODevice& file, DeviceWalk& walk);

} // namespace find
