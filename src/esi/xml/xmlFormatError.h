// xmlFormatError.h - why a file is refused before its elements are looked at.
#pragma once

#include <QString>

/// Why a file is no well-formed document, or goes beyond a limit of `xmlLimits.h` or `copyLimit.h`.
struct XmlFormatError
{
    QString message; ///< in the parser's words, or the limit
    int line = 0; ///< from 1
    int column = 0; ///< from 1
};
