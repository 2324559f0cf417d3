#include "cli/deviceLabel.h"

#include "esi/xmlCharConversion.h"

QString deviceLabel(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::size_t number)
{
    return QStringLiteral("device %1 %2 (%3:%4:%5)")
        .arg(QString::number(number), shownText(QString::fromStdString(device.Name)), xmlGetStringuint(file.Vendor_Id),
             xmlGetStringuint(device.TypeAttributes.Product_Code), xmlGetStringuint(device.TypeAttributes.Revision_No));
}

QString shownText(const QString& text)
{
    constexpr int maxLength = 80;
    if (text.size() <= maxLength)
        return QLatin1Char('"') + text + QLatin1Char('"');
    const int length = text.at(maxLength).isLowSurrogate() ? maxLength - 1 : maxLength;
    return QLatin1Char('"') + text.left(length) + QStringLiteral("...\"");
}
