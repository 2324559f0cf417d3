// imageWriters.h - the writers by their forms, for `makeWriter`.
#pragma once

#include "image/imageWriter.h"

namespace image {

[[nodiscard]] std::unique_ptr<Writer> makeTextWriter(std::ostream& out, std::size_t lineWidth);
[[nodiscard]] std::unique_ptr<Writer> makeCsvWriter(std::ostream& out);
[[nodiscard]] std::unique_ptr<Writer> makeJsonWriter(std::ostream& out);
/// @param height  see `Page`
[[nodiscard]] std::unique_ptr<Writer> makeSvgWriter(std::ostream& out, std::int64_t height);

} // namespace image
