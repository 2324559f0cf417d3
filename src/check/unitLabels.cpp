#include "check/unitLabels.h"

#include "model/valueTexts.h"
#include "text/shownText.h"

namespace check {

QString shown(std::string_view text)
{
    return shownText(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
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
