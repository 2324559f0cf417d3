#include "show/showWords.h"

#include "editing/deviceTypeTexts.h"
#include "editing/linkTexts.h"
#include "facts/processImage.h"
#include "model/assignActivate.h"
#include "model/syncDirection.h"
#include "model/valueTexts.h"
#include "show/cutText.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace show {

namespace {

struct NumberName
{
    std::int64_t number;
    const char* name;
};

constexpr std::array directionNames{
    NumberName{KTL_UnknownType, "unknown"}, NumberName{KTL_MBoxOut, "MBoxOut"}, NumberName{KTL_MBoxIn, "MBoxIn"},
    NumberName{KTL_Outputs, "Outputs"},     NumberName{KTL_Inputs, "Inputs"},   NumberName{KTL_DyOutputs, "DyOutputs"},
    NumberName{KTL_DyInputs, "DyInputs"},   NumberName{KTL_Local, "Local"},
};

constexpr std::array assignActivateBits{
    NumberName{static_cast<std::int64_t>(AssignActivateBit::CyclicMode), "cyclic operation enabled"},
    NumberName{static_cast<std::int64_t>(AssignActivateBit::Sync0), "SYNC 0"},
    NumberName{static_cast<std::int64_t>(AssignActivateBit::Sync1), "SYNC 1"},
};

template<std::size_t Size> std::string nameIn(const std::array<NumberName, Size>& names, std::int64_t number)
{
    const auto* const found = std::find_if(names.begin(), names.end(),
                                           [=](const NumberName& candidate) { return candidate.number == number; });
    return found == names.end() ? std::string() : found->name;
}

std::string joined(const std::vector<std::string>& words)
{
    std::string all;
    for (const std::string& word : words)
        all += (all.empty() ? "" : ", ") + word;
    return all;
}

} // namespace

std::string hexText(std::int64_t number)
{
    constexpr int hexadecimal = 16;
    constexpr std::size_t maxDigits = 16;
    const auto bits = static_cast<std::uint64_t>(number);
    std::array<char, maxDigits> digits{};
    char* const end =
        std::to_chars(digits.data(), digits.data() + maxDigits, number < 0 ? 0 - bits : bits, hexadecimal).ptr;
    return std::string(number < 0 ? "-0x" : "0x").append(digits.data(), end);
}

std::string timeText(std::int64_t nanoseconds)
{
    constexpr std::int64_t perMicrosecond = 1000;
    constexpr std::int64_t perMillisecond = 1000 * perMicrosecond;
    const bool isMilliseconds = nanoseconds % perMillisecond == 0;
    const std::int64_t unit = isMilliseconds ? perMillisecond : perMicrosecond;
    const std::int64_t size = nanoseconds < 0 ? -nanoseconds : nanoseconds;
    std::string digits = std::to_string(unit + size % unit).substr(1); // with all zeros in front
    digits.erase(digits.find_last_not_of('0') + 1);
    return (nanoseconds < 0 ? "-" : "") + std::to_string(size / unit) + (digits.empty() ? "" : "." + digits)
           + (isMilliseconds ? " ms" : " us");
}

std::string bytesText(const ItemBytes& item, std::size_t begin, std::size_t end)
{
    QByteArray bytes;
    for (std::size_t offset = begin; offset < end; ++offset)
        bytes.append(item.at<char>(offset));
    return bytes.toHex(' ').toStdString();
}

std::string deviceTypeName(std::int64_t type)
{
    const DeviceTypeText* const known = deviceTypeTextOf(type);
    return known == nullptr ? std::string() : known->name;
}

std::string linkWords(std::int32_t link)
{
    return linkText(link).toStdString();
}

std::string directionName(std::int64_t direction)
{
    return nameIn(directionNames, direction);
}

std::string tokenName(std::int64_t token)
{
    return tokenText(static_cast<NMTOKEN>(token)).toStdString();
}

std::vector<std::string> assignActivateWords(std::int64_t assignActivate)
{
    constexpr unsigned bits = 32;
    std::vector<std::string> words;
    for (unsigned bit = 0; bit < bits; ++bit) {
        if (((static_cast<std::uint64_t>(assignActivate) >> bit) & 1U) == 0)
            continue;
        const std::string name = nameIn(assignActivateBits, bit);
        words.push_back("bit " + std::to_string(bit) + (name.empty() ? "" : ": " + name));
    }
    return words;
}

std::string_view dataDirection(bool isInput)
{
    return isInput ? "inputs" : "outputs";
}

std::string identityText(std::uint32_t vendor, std::uint32_t product, std::uint32_t revision)
{
    return numberText(vendor) + ':' + numberText(product) + ':' + numberText(revision);
}

std::string withName(std::uint16_t index, std::string_view name)
{
    return hexText(index) + (name.empty() ? "" : " \"" + cutName(name) + '"');
}

std::string slotLabel(int place)
{
    return "slot " + std::to_string(place + 1);
}

std::string pdoLabel(std::uint16_t index, std::string_view name, int place)
{
    return "PDO " + withName(index, name) + (place < 0 ? "" : ", " + slotLabel(place));
}

std::string objectText(std::uint16_t index, std::uint32_t subIndex)
{
    return hexText(index) + ':' + std::to_string(subIndex);
}

std::string placeText(std::int64_t bit)
{
    return std::to_string(facts::byteOf(bit)) + '.' + std::to_string(facts::bitInByte(bit));
}

std::string wordsOf(KtlMeaning meaning, std::int64_t number)
{
    switch (meaning) {
    case KtlMeaning::Number:
        break;
    case KtlMeaning::DeviceType:
        return deviceTypeName(number);
    case KtlMeaning::Direction:
        return directionName(number);
    case KtlMeaning::Link:
        return linkWords(static_cast<std::int32_t>(number));
    case KtlMeaning::Transition:
    case KtlMeaning::Access:
        return tokenName(number);
    case KtlMeaning::AssignActivate:
        return joined(assignActivateWords(number));
    }
    return {};
}

} // namespace show
