// encodingFault.h - contents of a file that contradict the encoding that it declares.
#pragma once

#include "esi/xml/tree.h"

#include <QString>

#include <optional>
#include <string_view>

namespace check {

/// The first place where the bytes of a file are not what its declaration says.
struct EncodingFault
{
    xml::Place place;
    QString text; ///< as in a finding
    bool isLossy = false; ///< whether characters are lost when the file is read
};

/// Holds the bytes of an XML file against its byte order mark and its declaration.
/// @return  nothing if they agree, or if the encoding is none that can be told from others by its bytes
[[nodiscard]] std::optional<EncodingFault> encodingFaultOf(std::string_view bytes);

} // namespace check
