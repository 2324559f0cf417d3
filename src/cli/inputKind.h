// inputKind.h - what a file is, judged by how it begins.
#pragma once

#include <QByteArray>

namespace cli {

/// What an input is taken for.
enum class InputKind
{
    Esi,
    Ktl,
    Neither,
    Empty
};

/// Bytes that show the kind.
inline constexpr int bytesOfKind = 4096;

/// The kind of a file. One whose first character after blanks and a byte order mark is "<" is an ESI file, and so is
/// one that has shown nothing but these yet; one that begins with an item of the KTL format is a KTL file. One without
/// a byte is of a kind of its own.
/// @param beginning  its first `bytesOfKind` bytes, or all of it
[[nodiscard]] InputKind inputKindOf(const QByteArray& beginning);

} // namespace cli
