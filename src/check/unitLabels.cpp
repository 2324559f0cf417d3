#include "check/unitLabels.h"

#include "model/valueTexts.h"
#include "text/shownText.h"

#include <cstddef>

namespace check {

QString shown(std::string_view text)
{
    constexpr std::size_t enough = 400; // bytes: 80 characters are shown, and a text of megabytes may be shown often
    return shownText(QString::fromUtf8(text.data(), static_cast<int>(text.substr(0, enough).size())));
}

QString counted(std::int64_t number, const char* what)
{
    return QStringLiteral("%1 %2%3").arg(QString::number(number), QLatin1String(what),
                                         QLatin1String(number == 1 ? "" : "s"));
}

QString labelOf(const PdoFacts& pdo)
{
    return QStringLiteral("PDO %1").arg(hexNumber(pdo.index));
}

QString objectText(std::uint32_t index, std::uint32_t subIndex)
{
    return QStringLiteral("%1:%2").arg(hexNumber(index)).arg(subIndex);
}

QString labelOf(const CommandFacts& command)
{
    return QStringLiteral("the command for %1").arg(objectText(command.index, command.subIndex));
}

} // namespace check
