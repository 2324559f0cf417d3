// imageWords.h - the words of process images that all forms share.
#pragma once

#include "image/imageRows.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace image {

/// "entry", "gap" or "padding".
[[nodiscard]] std::string_view kindName(RowKind kind);

/// "outputs" or "inputs".
[[nodiscard]] std::string_view directionName(const Area& area);

/// Vendor id, product code and revision as selectors have them: `0x7e570002:0x5001:0x30001`.
[[nodiscard]] std::string identityOf(const Device& device);

/// "device 2, 0x7e570002:0x5001:0x30001, MB-C100 "Bus coupler"": texts are cut where they are longer than people read.
[[nodiscard]] std::string labelOf(const Device& device);

/// "Outputs, sync manager 2: 14 bytes used, length 14, at most 64", and warnings.
[[nodiscard]] std::string labelOf(const Area& area);

/// "PDO 0x1600 "Control", slot 3".
[[nodiscard]] std::string labelOf(const Pdo& pdo);

/// A bit as "12.3": the byte, and the bit in it.
[[nodiscard]] std::string placeText(std::int64_t bit);

/// "0x6000:1".
[[nodiscard]] std::string objectText(const Row& row);

/// The number of a module's place from 1, empty for a PDO of the device.
[[nodiscard]] std::string slotText(const Pdo& pdo);

/// "1 byte", "2 bytes".
[[nodiscard]] std::string counted(std::int64_t number, std::string_view unit);

} // namespace image
