// moreInfoWriter.cpp - the DeviceMoreInfo item: when the file was exported, and the names of device and modules.
#include "ktl/ktlExport.h"
#include "ktl/writing/itemWriter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

constexpr std::size_t alignment = 4;
constexpr std::size_t textRoom = 1000; // bytes that the controller keeps for the text

/// The name of the device, then each module of the file in a line of its own.
class InfoText
{
public:
    /// Adds a string if the text stays below its limit with it. A string that does not fit is left out as a whole, and
    /// so is everything after it.
    /// @return  whether there may be room for more
    bool add(const std::string& piece)
    {
        m_isFull = m_isFull || m_text.size() + piece.size() >= textRoom;
        if (!m_isFull)
            m_text += piece;
        return !m_isFull;
    }

    /// The bytes of the text in the item. After a string that did not fit they are zero to the limit.
    /// ODD, KEPT: the remainder of a division by 4 is added, where one would expect what is missing to a multiple. So
    /// the length is one for remainders of 0 and 2 only. Pinned by tst_MoreInfo::lengthOfTheText and
    /// tst_MoreInfo::textThatDoesNotFit.
    [[nodiscard]] std::string bytes() const
    {
        const std::size_t length = m_isFull ? textRoom : m_text.size() + m_text.size() % alignment;
        std::string padded = m_text;
        padded.resize(std::min(length, textRoom), '\0');
        return padded;
    }

private:
    std::string m_text;
    bool m_isFull = false;
};

std::string namesOf(const struct_EtherCatDevice& device, const struct_FilenameDevice& file)
{
    const std::string lineFeed = "\n";
    InfoText text;
    text.add(device.Name);
    for (const struct_commentmodule& group : file.vcommentmodule)
        for (const struct_module& module : group.vmodule)
            if (!text.add(lineFeed) || !text.add(module.Name))
                return text.bytes();
    return text.bytes();
}

/// Three parts as decimal digits one after another: hours, minutes, seconds 9, 5, 7 are 90507.
std::uint32_t decimalDigits(int first, int second, int third)
{
    constexpr int firstPlace = 10000;
    constexpr int secondPlace = 100;
    return static_cast<std::uint32_t>(first * firstPlace + second * secondPlace + third);
}

} // namespace

void writeDeviceMoreInfo(std::FILE* out, const struct_EtherCatDevice& device, const struct_FilenameDevice& file,
                         const QDateTime& exportTime)
{
    if (out == nullptr || file.vcommentmodule.empty())
        return;
    const std::string text = namesOf(device, file);
    const QDate date = exportTime.date();
    const QTime time = exportTime.time();
    constexpr std::size_t headSize = headSizeOf<struct_KTL_DeviceMoreInfo, char>;
    struct_KTL_DeviceMoreInfo head{};
    head.m_iItemType = KTL_ITEM_DeviceMoreInfo;
    head.m_iSize = static_cast<std::uint32_t>((headSize + text.size() + alignment - 1) / alignment * alignment);
    head.m_iDate = decimalDigits(date.year(), date.month(), date.day());
    head.m_iTime = decimalDigits(time.hour(), time.minute(), time.second());
    head.m_iVersion = formatVersion;
    ItemWriter item(head, headSize);
    for (const char byte : text)
        item.add(byte);
    item.writeTo(out, ItemFill::Zeros);
}

void KTL_write_device_DeviceMoreInfo(std::FILE* out, struct_EtherCatDevice* device, struct_FilenameDevice* filedevices)
{
    if (device != nullptr && filedevices != nullptr)
        writeDeviceMoreInfo(out, *device, *filedevices, QDateTime::currentDateTime());
}
