// oneLine.h - texts on one line, for a terminal or a list that people read.
#pragma once

#include <QString>

#include <string>

/// Characters that show nothing themselves but say how those beside them are drawn, such as joiners, soft hyphens and
/// byte order marks.
enum class DrawingHints
{
    AreKept, ///< some scripts cannot be written without them
    BecomeBlanks, ///< as in messages, which are there to show that a name is not what it seems
};

/// A text on one line: controls, line feeds and characters that change the direction of writing become blanks.
[[nodiscard]] QString oneLine(QString text, DrawingHints hints);

/// As above.
/// @param utf8  a text in UTF-8, as the result is
[[nodiscard]] std::string oneLine(const std::string& utf8, DrawingHints hints);
