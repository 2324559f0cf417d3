// fileNameCodec.h - names of files, with whatever bytes the system allows in them.
#pragma once

#include <QString>

#include <string>

namespace os {

/// Makes every name of a file and every argument come in and go out byte by byte, whatever the locale is: as UTF-8,
/// with a lone surrogate U+DC80 to U+DCFF for each byte that is no part of it. To be called before any name is read.
void keepFileNames();

/// A text in UTF-8 for people: such a byte of a name is written as "\xff".
[[nodiscard]] std::string readableUtf8(const QString& text);

} // namespace os
