#include "editing/deviceLabel.h"

#include "model/valueTexts.h"
#include "text/shownText.h"

#include <QFile>

std::uint32_t vendorIdOf(const struct_FilenameDevice& file, const struct_EtherCatDevice& device)
{
    const std::uint32_t own = device.TypeAttributes.m_iVendor_Id;
    return own != 0 ? own : file.Vendor_Id;
}

QString identityText(const struct_FilenameDevice& file, const struct_EtherCatDevice& device)
{
    return QStringLiteral("%1:%2:%3")
        .arg(hexNumber(vendorIdOf(file, device)), hexNumber(device.TypeAttributes.Product_Code),
             hexNumber(device.TypeAttributes.Revision_No));
}

QString deviceLabel(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::size_t number)
{
    return QStringLiteral("device %1 %2 (%3)")
        .arg(QString::number(number), shownText(QString::fromStdString(device.Name)), identityText(file, device));
}

QString inputPathOf(const struct_FilenameDevice& file)
{
    return QFile::decodeName(file.xmlfilepath.c_str());
}
