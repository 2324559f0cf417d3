#include "choices/words.h"

#include "editing/deviceTypeTexts.h"
#include "editing/moduleEdits.h"
#include "model/valueTexts.h"
#include "text/writtenNumber.h"

namespace choices {

QString deviceTypeName(std::uint16_t type)
{
    const DeviceTypeText* const known = deviceTypeTextOf(type);
    return known == nullptr ? QString::number(type) : QString::fromLatin1(known->name);
}

std::optional<std::uint16_t> deviceTypeNamed(const QString& name)
{
    for (const DeviceTypeText& entry : deviceTypeTexts)
        if (name == QLatin1String(entry.name))
            return entry.type;
    return std::nullopt;
}

QStringList deviceTypeNames()
{
    QStringList names;
    for (const DeviceTypeText& entry : deviceTypeTexts)
        names.append(QString::fromLatin1(entry.name));
    return names;
}

QStringList typesThatTakeModules()
{
    QStringList names;
    for (const DeviceTypeText& entry : deviceTypeTexts)
        if (!moduleRefusal(entry.type).has_value())
            names.append(QString::fromLatin1(entry.name));
    return names;
}

std::vector<std::size_t> modesNamed(const std::vector<Struct_DCOpMode>& modes, const QString& text)
{
    const std::string name = text.toStdString();
    std::vector<std::size_t> positions;
    for (std::size_t position = 0; position < modes.size(); ++position)
        if (modes[position].Name == name || modes[position].Desc == name)
            positions.push_back(position);
    return positions;
}

QString objectText(const ObjectAddress& address)
{
    return hexNumber(address.index) + QLatin1Char(':') + QString::number(address.subIndex);
}

std::optional<ObjectAddress> objectIn(const QString& text)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    const std::optional<std::uint32_t> index = ::numberIn(text.left(colon));
    const std::optional<std::uint32_t> subIndex = ::numberIn(text.mid(colon + 1));
    if (colon < 0 || !index.has_value() || !subIndex.has_value())
        return std::nullopt;
    return ObjectAddress{*index, *subIndex};
}

} // namespace choices
