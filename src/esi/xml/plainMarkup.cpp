#include "esi/xml/plainMarkup.h"

#include "esi/xml/characterReference.h"

#include <QByteArray>
#include <QLatin1String>
#include <QRegularExpression>
#include <QString>

#include <algorithm>

namespace xml {

std::optional<std::size_t> plainDeclarationLength(std::string_view file)
{
    static const QRegularExpression declaration(
        QLatin1String(R"x(^<\?xml\s+version\s*=\s*(?:"1\.0"|'1\.0'))x"
                      R"x((?:\s+encoding\s*=\s*(?:"[A-Za-z][A-Za-z0-9._-]*"|'[A-Za-z][A-Za-z0-9._-]*'))?)x"
                      R"x((?:\s+standalone\s*=\s*(?:"(?:yes|no)"|'(?:yes|no)'))?\s*\?>)x"));
    constexpr std::string_view mark = "<?xml";
    if (file.substr(0, mark.size()) != mark || isOf(file.substr(0, mark.size() + 1).back(), NameRest))
        return 0;
    const std::string_view start = file.substr(0, maxPlainDeclaration);
    const QRegularExpressionMatch match =
        declaration.match(QString::fromLatin1(start.data(), static_cast<int>(start.size())));
    return match.hasMatch() ? std::make_optional(static_cast<std::size_t>(match.capturedLength())) : std::nullopt;
}

bool isBlankText(std::string_view text)
{
    const auto isOther = [](char character) { return !isOf(character, Blank); };
    const auto* const first = std::find_if(text.begin(), text.end(), isOther);
    if (first == text.end() || static_cast<unsigned char>(*first) < 0x80)
        return first == text.end();
    return QString::fromUtf8(text.data(), static_cast<int>(text.size())).simplified().isEmpty();
}

bool isReservedTarget(std::string_view name)
{
    return QString::fromLatin1(name.data(), static_cast<int>(name.size())).toLower() == QLatin1String("xml");
}

bool arePlainTogether(const std::vector<QualifiedName>& attributes)
{
    return std::none_of(attributes.begin(), attributes.end(), [&](const QualifiedName& prefixed) {
        const auto isNamesake = [&](const QualifiedName& other) { return other.local == prefixed.local; };
        return !prefixed.prefix.empty() && std::count_if(attributes.begin(), attributes.end(), isNamesake) > 1;
    });
}

std::size_t appendReferenced(std::string_view text, std::string& to)
{
    constexpr std::size_t maxLength = 12;
    const std::string_view start = text.substr(1, maxLength);
    const std::size_t length = start.find(';');
    const std::optional<char16_t> character = referencedCharacter(start.substr(0, length));
    if (length == std::string_view::npos || !character.has_value())
        return 0;
    const QByteArray utf8 = QString(QChar(*character)).toUtf8();
    to.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    return 1 + length + 1;
}

} // namespace xml
