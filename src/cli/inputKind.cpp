#include "cli/inputKind.h"

#include "ktl/format/itemBytes.h"
#include "ktl/format/ktlLayout.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace cli {

namespace {

/// Whether text begins with "<" after blanks, a byte order mark, and the zeros of wider characters.
bool beginsAsXml(const QByteArray& beginning)
{
    constexpr std::array<unsigned char, 5> markBytes{0xEF, 0xBB, 0xBF, 0xFE, 0xFF};
    constexpr int maxZeros = 3; // beside a character of one byte
    int zeros = 0;
    for (const char character : beginning) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isMark = std::find(markBytes.begin(), markBytes.end(), byte) != markBytes.end();
        const bool isBlank = character == ' ' || character == '\t' || character == '\r' || character == '\n';
        zeros = byte == 0 ? zeros + 1 : 0;
        if (character == '<')
            return true;
        if (!isMark && !isBlank && (byte != 0 || zeros > maxZeros))
            return false;
    }
    return beginning.size() == bytesOfKind; // blanks may be followed by anything: the parser of XML judges that
}

/// Whether a first item is of the format, also of a version that has more items than this one.
bool beginsAsKtl(const QByteArray& beginning)
{
    constexpr std::uint32_t firstCode = 40000;
    constexpr std::uint32_t lastCode = 40999;
    if (beginning.size() < static_cast<int>(sizeof(std::uint32_t)))
        return false;
    const ItemBytes bytes(reinterpret_cast<const unsigned char*>(beginning.constData()), sizeof(std::uint32_t));
    const auto type = bytes.at<std::uint32_t>(0);
    return isKnownItem(type) || (type >= firstCode && type <= lastCode);
}

} // namespace

InputKind inputKindOf(const QByteArray& beginning)
{
    if (beginning.isEmpty())
        return InputKind::Empty;
    if (beginsAsKtl(beginning))
        return InputKind::Ktl;
    return beginsAsXml(beginning) ? InputKind::Esi : InputKind::Neither;
}

} // namespace cli
