// xmlDecoding.h - the characters of an XML file, whatever its encoding.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTextCodec>

/// How the characters of an XML file are encoded.
struct XmlEncoding
{
    const QTextCodec* codec; ///< belongs to Qt
    int markLength; ///< bytes of the byte order mark, which is no part of the text
};

/// The encoding of an XML file. The byte order mark decides on it, or else a first "<" of two or four bytes, or else
/// the declaration, or else it is UTF-8.
/// @param start  the first bytes of the file, `XmlDecoder::maxDeclarationBytes` of them or all
[[nodiscard]] XmlEncoding xmlEncodingOf(const QByteArray& start);

/// Decodes the bytes of an XML file, any number at a time.
class XmlDecoder
{
public:
    /// The bytes that may have to be known at the start: far more than mark and declaration take.
    static constexpr int maxDeclarationBytes = 1024;

    /// @param start  the first bytes of the file, `maxDeclarationBytes` of them or all; they are not decoded yet
    explicit XmlDecoder(const QByteArray& start);

    /// Decodes the bytes after those of the last call, first those at the start. The text ends before
    /// the first U+FFFE or U+FFFF: these are no characters, and the parser takes them for the end of its input.
    /// @return  the text without the mark; an invalid byte becomes U+FFFD, a part of a character waits for its rest
    [[nodiscard]] QString decode(const QByteArray& bytes);

private:
    const QTextCodec* m_codec; ///< belongs to Qt
    QTextCodec::ConverterState m_state;
    int m_markLength = 0; ///< what is still to be left out
    bool m_hasEnded = false; ///< at what is no character
};

/// Decodes the bytes of a whole file, see `XmlDecoder`.
[[nodiscard]] QString decodedXml(const QByteArray& bytes);
