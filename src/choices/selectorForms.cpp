#include "choices/selectorForms.h"

#include "text/shownText.h"
#include "text/writtenNumber.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace choices {

namespace {

const QLatin1Char separator(':');
const QLatin1String anyNumber("*");

bool isIdentityPart(const QString& part)
{
    return part == anyNumber || numberIn(part).has_value();
}

} // namespace

std::optional<IdentitySelector> identityIn(const QString& selector)
{
    const QStringList parts = selector.split(separator);
    if (parts.size() < 2 || parts.size() > 3 || !std::all_of(parts.begin(), parts.end(), isIdentityPart))
        return std::nullopt;
    const auto numberAt = [&parts](int place) { return numberIn(parts.value(place, anyNumber)); };
    return IdentitySelector{numberAt(0), numberAt(1), numberAt(2)};
}

bool hasWildcard(const QString& selector)
{
    return selector.contains(QLatin1Char('*'));
}

std::optional<std::uint32_t> deviceNumberIn(const QString& selector)
{
    constexpr int decimal = 10;
    return numberOfDigits(selector, decimal);
}

QString formProblem(const QString& selector)
{
    static const QRegularExpression list(QStringLiteral(R"(^\d+(\s*[-,;]\s*\d+)+$)"));
    if (list.match(selector).hasMatch())
        return QStringLiteral("a selector takes no list and no range of numbers; each device has one of its own");
    const QStringList parts = selector.split(separator);
    if (parts.size() == 1)
        return {};
    const auto wrong = std::find_if_not(parts.begin(), parts.end(), isIdentityPart);
    if (parts.size() > 3 || wrong == parts.end())
        return QStringLiteral("an identity is VENDOR:PRODUCT[:REVISION]");
    return QStringLiteral("for an identity, VENDOR:PRODUCT[:REVISION], %1 would have to be a number: decimal, or "
                          "hexadecimal as 0x1a")
        .arg(shownText(*wrong));
}

} // namespace choices
