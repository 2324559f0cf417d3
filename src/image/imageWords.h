// imageWords.h - the words of process images that all forms share.
#pragma once

#include "image/imageRows.h"

#include <string>
#include <string_view>

namespace image {

/// "entry", "gap" or "padding".
[[nodiscard]] std::string_view kindName(RowKind kind);

/// "device 2, 0x7e570002:0x5001:0x30001, MB-C100 "Bus coupler"": texts are cut where they are longer than people read.
[[nodiscard]] std::string labelOf(const Device& device);

/// "Outputs, sync manager 2: 14 bytes used, length 14, at most 64", and warnings.
[[nodiscard]] std::string labelOf(const Area& area);

/// "PDO 0x1600 "Control", slot 3".
[[nodiscard]] std::string labelOf(const Pdo& pdo);

} // namespace image
