#include "diff/words.h"

#include "model/valueTexts.h"
#include "text/shownText.h"

#include <QString>

#include <cstddef>

namespace diff {

std::string named(std::string part, std::string_view name)
{
    constexpr std::size_t enough = 400; // bytes: 80 characters are shown
    if (name.empty())
        return part;
    const QString start = QString::fromUtf8(name.data(), static_cast<int>(name.substr(0, enough).size()));
    return part + " " + shownText(start.trimmed()).toStdString();
}

std::string pdoWords(bool isInput, std::uint16_t index, std::string_view name)
{
    return named((isInput ? "TxPdo " : "RxPdo ") + numberText(index), name);
}

std::string objectWords(std::uint32_t index, std::uint32_t subIndex)
{
    return numberText(index) + ":" + std::to_string(subIndex);
}

std::string identityWords(const facts::UnitFacts& device)
{
    return numberText(device.vendor) + ":" + numberText(device.product) + ":" + numberText(device.revision);
}

} // namespace diff
