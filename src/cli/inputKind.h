// inputKind.h - what a file is, told by how it begins.
#pragma once

#include <QByteArray>

/// What an input is taken for.
enum class InputKind
{
    Esi,
    Ktl,
    Neither
};

/// Bytes that the kind is told by.
inline constexpr int bytesOfKind = 4096;

/// The kind of a file. One whose first character is "<", blanks and a byte order mark apart, is an ESI file, also one
/// that shows nothing but these yet; one that begins with an item of the KTL format is a KTL file.
/// @param beginning  its first `bytesOfKind` bytes, or all of it
[[nodiscard]] InputKind inputKindOf(const QByteArray& beginning);
