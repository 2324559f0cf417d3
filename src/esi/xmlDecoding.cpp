#include "esi/xmlDecoding.h"

#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>
#include <array>

namespace {

/// First bytes that tell the encoding of a file.
struct Opening
{
    QByteArray bytes;
    const char* encoding;
    bool isMark; ///< a byte order mark, which is no part of the text
};

/// The longer mark first where one begins like another.
const std::array<Opening, 7>& openings()
{
    static const std::array<Opening, 7> rows{{
        {QByteArrayLiteral("\xEF\xBB\xBF"), "UTF-8", true},
        {QByteArrayLiteral("\xFF\xFE\0\0"), "UTF-32LE", true},
        {QByteArrayLiteral("\0\0\xFE\xFF"), "UTF-32BE", true},
        {QByteArrayLiteral("\xFF\xFE"), "UTF-16LE", true},
        {QByteArrayLiteral("\xFE\xFF"), "UTF-16BE", true},
        {QByteArrayLiteral("<\0"), "UTF-16LE", false},
        {QByteArrayLiteral("\0<"), "UTF-16BE", false},
    }};
    return rows;
}

QString decoded(const QByteArray& bytes, int start, const QTextCodec& codec)
{
    // The mark is left out by `start`, so the codec need not look for one.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.toUnicode(bytes.constData() + start, bytes.size() - start, &state);
}

/// Codec that the XML declaration names, or null if there is none that makes sense.
const QTextCodec* declaredCodec(const QByteArray& bytes)
{
    constexpr int longestDeclaration = 1024; // far more than version, encoding and "standalone" take
    static const QRegularExpression declaration(QStringLiteral(R"(^<\?xml\s[^>]*?\bencoding\s*=\s*["']([^"'>]*)["'])"));
    const QRegularExpressionMatch match = declaration.match(QString::fromLatin1(bytes.left(longestDeclaration)));
    if (!match.hasMatch())
        return nullptr;
    const QTextCodec* codec = QTextCodec::codecForName(match.captured(1).toLatin1());
    const QByteArray start = QByteArrayLiteral("<?xml");
    return codec != nullptr && decoded(start, 0, *codec) == QLatin1String(start) ? codec : nullptr;
}

/// Cuts the text where the parser would take a character for the end of its input.
void cutAtNonCharacter(QString& text)
{
    for (const QChar nonCharacter : {QChar(0xFFFE), QChar(0xFFFF)})
        if (const int position = text.indexOf(nonCharacter); position >= 0)
            text.truncate(position);
}

} // namespace

QString decodedXml(const QByteArray& bytes)
{
    const auto opening = std::find_if(openings().begin(), openings().end(),
                                      [&](const Opening& row) { return bytes.startsWith(row.bytes); });
    const QTextCodec* codec =
        opening != openings().end() ? QTextCodec::codecForName(opening->encoding) : declaredCodec(bytes);
    if (codec == nullptr)
        codec = QTextCodec::codecForName("UTF-8");
    const bool hasMark = opening != openings().end() && opening->isMark;
    QString text = decoded(bytes, hasMark ? opening->bytes.size() : 0, *codec);
    cutAtNonCharacter(text);
    return text;
}
