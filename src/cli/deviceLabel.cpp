#include "cli/deviceLabel.h"

#include "esi/xmlCharConversion.h"

QString identityText(const struct_FilenameDevice& file, const struct_EtherCatDevice& device)
{
    return QStringLiteral("%1:%2:%3")
        .arg(xmlGetStringuint(file.Vendor_Id), xmlGetStringuint(device.TypeAttributes.Product_Code),
             xmlGetStringuint(device.TypeAttributes.Revision_No));
}

QString deviceLabel(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::size_t number)
{
    return QStringLiteral("device %1 %2 (%3)")
        .arg(QString::number(number), shownText(QString::fromStdString(device.Name)), identityText(file, device));
}

QString shownText(const QString& text)
{
    constexpr int maxLength = 80;
    if (text.size() <= maxLength)
        return QLatin1Char('"') + text + QLatin1Char('"');
    const int length = text.at(maxLength).isLowSurrogate() ? maxLength - 1 : maxLength;
    return QLatin1Char('"') + text.left(length) + QStringLiteral("...\"");
}
