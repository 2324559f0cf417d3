// xmlDecoding.h - the characters of an XML file, whatever its encoding.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTextCodec>

/// Decodes the bytes of an XML file, as many at a time as its user likes.
/// The encoding is told by the byte order mark, or else by a first "<" of two or four bytes, or else by the
/// declaration, or else it is UTF-8. A mark counts for more than the declaration: makers of devices ship files that
/// were saved anew under an old declaration. An encoding that is unknown, or in which the declaration itself would not
/// read as it does ("UTF-16" in a file of single bytes), is passed over.
class XmlDecoder
{
public:
    /// The bytes that may have to be known at the start: far more than mark and declaration take.
    static constexpr int longestDeclaration = 1024;

    /// @param start  the first bytes of the file, `longestDeclaration` of them or all; they are not decoded yet
    explicit XmlDecoder(const QByteArray& start);

    /// Decodes the bytes behind those of the call before; the first call takes those at the start of the file.
    /// @return  their text without the mark; an invalid byte becomes U+FFFD. A character whose bytes are not all there
    ///          comes with the next call. The whole text ends before the first U+FFFE or U+FFFF: these are no
    ///          characters, and the parser takes them for the end of its input
    [[nodiscard]] QString decode(const QByteArray& bytes);

private:
    const QTextCodec* m_codec; ///< belongs to Qt
    QTextCodec::ConverterState m_state;
    int m_markLength = 0; ///< what is still to be left out
    bool m_hasEnded = false; ///< at what is no character
};

/// Decodes the bytes of a whole file, see `XmlDecoder`.
[[nodiscard]] QString decodedXml(const QByteArray& bytes);
