// deviceName.h - the name of a device, from the text of its element.
#pragma once

#include <string>
#include <string_view>

/// The name without the CDATA mark that some files have written out in their text.
[[nodiscard]] std::string deviceNameOf(std::string_view text);
