#include "esi/xml/xmlDecoding.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

/// First bytes that reveal the encoding of a file.
struct Opening
{
    QByteArray bytes;
    const char* encoding;
    bool isMark; ///< a byte order mark, which is no part of the text
};

/// The longer one first where one begins like another.
const std::array<Opening, 9>& openings()
{
    static const std::array<Opening, 9> rows{{
        {QByteArrayLiteral("\xEF\xBB\xBF"), "UTF-8", true},
        {QByteArrayLiteral("\xFF\xFE\0\0"), "UTF-32LE", true},
        {QByteArrayLiteral("\0\0\xFE\xFF"), "UTF-32BE", true},
        {QByteArrayLiteral("\xFF\xFE"), "UTF-16LE", true},
        {QByteArrayLiteral("\xFE\xFF"), "UTF-16BE", true},
        {QByteArrayLiteral("<\0\0\0"), "UTF-32LE", false},
        {QByteArrayLiteral("\0\0\0<"), "UTF-32BE", false},
        {QByteArrayLiteral("<\0"), "UTF-16LE", false},
        {QByteArrayLiteral("\0<"), "UTF-16BE", false},
    }};
    return rows;
}

/// Codec that the XML declaration names, or null if there is none that makes sense.
const QTextCodec* declaredCodec(const QByteArray& bytes)
{
    static const QRegularExpression declaration(QStringLiteral(R"(^<\?xml\s[^>]*?\bencoding\s*=\s*["']([^"'>]*)["'])"));
    const QRegularExpressionMatch match =
        declaration.match(QString::fromLatin1(bytes.left(XmlDecoder::maxDeclarationBytes)));
    if (!match.hasMatch())
        return nullptr;
    const QTextCodec* codec = QTextCodec::codecForName(match.captured(1).toLatin1());
    const QByteArray start = QByteArrayLiteral("<?xml");
    return codec != nullptr && codec->toUnicode(start) == QLatin1String(start) ? codec : nullptr;
}

/// Cuts the text where the parser would take a character for the end of its input.
/// @return  whether it did
bool cutAtNonCharacter(QString& text)
{
    const int length = text.size();
    for (const QChar nonCharacter : {QChar(0xFFFE), QChar(0xFFFF)})
        if (const int position = text.indexOf(nonCharacter); position >= 0)
            text.truncate(position);
    return text.size() < length;
}

} // namespace

// A mark counts for more than the declaration: makers of devices ship files that were saved again under an old
// declaration. An encoding that is unknown, or in which the declaration itself would not read as it does ("UTF-16" in a
// file of single bytes), is passed over.
XmlEncoding xmlEncodingOf(const QByteArray& start)
{
    const auto opening = std::find_if(openings().begin(), openings().end(),
                                      [&](const Opening& row) { return start.startsWith(row.bytes); });
    const bool isKnown = opening != openings().end();
    const QTextCodec* codec = isKnown ? QTextCodec::codecForName(opening->encoding) : declaredCodec(start);
    if (codec == nullptr)
        codec = QTextCodec::codecForName("UTF-8");
    return {codec, isKnown && opening->isMark ? opening->bytes.size() : 0};
}

XmlDecoder::XmlDecoder(const QByteArray& start)
    : m_state(QTextCodec::IgnoreHeader) // the mark is left out here, so the codec need not look for one
{
    const XmlEncoding encoding = xmlEncodingOf(start);
    m_codec = encoding.codec;
    m_markLength = encoding.markLength;
}

QString XmlDecoder::decode(const QByteArray& bytes)
{
    if (m_hasEnded)
        return {};
    const int start = std::min(m_markLength, bytes.size());
    m_markLength -= start;
    QString text = m_codec->toUnicode(bytes.constData() + start, bytes.size() - start, &m_state);
    m_hasEnded = cutAtNonCharacter(text);
    return text;
}

QString decodedXml(const QByteArray& bytes)
{
    return XmlDecoder(bytes).decode(bytes);
}
