#include "system/fileNameCodec.h"

#include <QByteArray>
#include <QTextCodec>

#include <array>

namespace os {

namespace {

constexpr ushort firstByteSurrogate = 0xDC80;
constexpr ushort lastByteSurrogate = 0xDCFF;
constexpr ushort byteSurrogates = 0xDC00; ///< what is added to a byte
constexpr unsigned bitsPerTrail = 6;
constexpr unsigned trailMask = 0x3F;

bool standsForByte(QChar character)
{
    return character.unicode() >= firstByteSurrogate && character.unicode() <= lastByteSurrogate;
}

/// A kind of UTF-8 sequence, by its first byte.
struct SequenceKind
{
    unsigned mask; ///< of the bits in the first byte that show the kind
    unsigned mark; ///< those bits
    int length;
    char32_t smallest; ///< what is below is written shorter
};

constexpr std::array sequenceKinds{
    SequenceKind{0x80, 0x00, 1, 0},
    SequenceKind{0xE0, 0xC0, 2, 0x80},
    SequenceKind{0xF0, 0xE0, 3, 0x800},
    SequenceKind{0xF8, 0xF0, 4, 0x10000},
};

/// A character at the start of some bytes.
struct Sequence
{
    int length = 0; ///< 0 if it is no UTF-8
    char32_t character = 0;
};

Sequence sequenceOf(const SequenceKind& kind, const char* bytes)
{
    char32_t character = static_cast<unsigned char>(*bytes) & ~kind.mask;
    for (int index = 1; index < kind.length; ++index) {
        const unsigned trail = static_cast<unsigned char>(bytes[index]);
        if ((trail & ~trailMask) != 0x80)
            return {};
        character = character << bitsPerTrail | (trail & trailMask);
    }
    if (character < kind.smallest || character > QChar::LastValidCodePoint || QChar::isSurrogate(character))
        return {};
    return {kind.length, character};
}

Sequence sequenceAt(const char* bytes, int left)
{
    for (const SequenceKind& kind : sequenceKinds)
        if ((static_cast<unsigned char>(*bytes) & kind.mask) == kind.mark)
            return kind.length <= left ? sequenceOf(kind, bytes) : Sequence{};
    return {};
}

class FileNameCodec final : public QTextCodec
{
public:
    [[nodiscard]] QByteArray name() const override { return "ktl-file-names"; }
    [[nodiscard]] int mibEnum() const override { return 0; } // none: it is known to this program only

protected:
    QString convertToUnicode(const char* bytes, int length, ConverterState* /*state*/) const override
    {
        QString text;
        for (int offset = 0; offset < length;) {
            const Sequence sequence = sequenceAt(bytes + offset, length - offset);
            if (sequence.length == 0)
                text += QChar(static_cast<ushort>(byteSurrogates + static_cast<unsigned char>(bytes[offset])));
            else if (QChar::requiresSurrogates(sequence.character))
                text.append(QChar(QChar::highSurrogate(sequence.character)))
                    .append(QChar(QChar::lowSurrogate(sequence.character)));
            else
                text += QChar(static_cast<ushort>(sequence.character));
            offset += sequence.length == 0 ? 1 : sequence.length;
        }
        return text;
    }

    QByteArray convertFromUnicode(const QChar* text, int length, ConverterState* /*state*/) const override
    {
        QByteArray bytes;
        for (int offset = 0; offset < length; ++offset) {
            const bool isPair =
                text[offset].isHighSurrogate() && offset + 1 < length && text[offset + 1].isLowSurrogate();
            if (!isPair && standsForByte(text[offset])) {
                bytes += static_cast<char>(text[offset].cell()); // the byte itself
                continue;
            }
            bytes += QString(text + offset, isPair ? 2 : 1).toUtf8();
            offset += isPair ? 1 : 0;
        }
        return bytes;
    }
};

} // namespace

void keepFileNames()
{
    QTextCodec::setCodecForLocale(new FileNameCodec); // a codec belongs to Qt as soon as it is made
}

std::string readableUtf8(const QString& text)
{
    QString readable;
    for (int index = 0; index < text.size(); ++index) {
        const bool isSecondHalf = index > 0 && text.at(index - 1).isHighSurrogate();
        if (standsForByte(text.at(index)) && !isSecondHalf)
            readable += QStringLiteral("\\x") + QString::number(text.at(index).unicode() - byteSurrogates, 16);
        else
            readable += text.at(index);
    }
    return readable.toStdString();
}

} // namespace os
