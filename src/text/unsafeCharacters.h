// unsafeCharacters.h - characters of a text that must not reach a terminal, or a file that people look at, as they are.
#pragma once

#include <QChar>

/// Whether a character changes the direction in which those after it are written, unseen: marks, embeddings, overrides
/// and isolates of bidirectional text. A name that holds one can look like another name.
[[nodiscard]] inline bool changesDirection(QChar character) noexcept
{
    const ushort code = character.unicode();
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
           || (code >= 0x2066 && code <= 0x2069);
}

/// Whether a character does something to a terminal instead of being shown there: a control (U+0000 to U+001F and
/// U+007F to U+009F), or one that changes the direction.
[[nodiscard]] inline bool isUnsafe(QChar character) noexcept
{
    return character.category() == QChar::Other_Control || changesDirection(character);
}
