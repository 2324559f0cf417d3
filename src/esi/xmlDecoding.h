// xmlDecoding.h - the characters of an XML file, whatever its encoding.
#pragma once

#include <QByteArray>
#include <QString>

/// Decodes the bytes of an XML file by its byte order mark, or else by its declaration, or else as UTF-8.
/// A mark counts for more than the declaration: makers of devices ship files that were saved anew under an old
/// declaration. An encoding that is unknown, or in which the declaration itself would not read as it does ("UTF-16" in
/// a file of single bytes), is passed over.
/// @return  the text without the mark; an invalid byte becomes U+FFFD. It ends before the first U+FFFE or U+FFFF: these
///          are no characters, and the parser takes them for the end of its input
[[nodiscard]] QString decodedXml(const QByteArray& bytes);
