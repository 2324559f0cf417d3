#include "diff/differenceWords.h"

#include "diff/words.h"

namespace diff {

namespace {

std::string labelOf(const facts::UnitFacts& device)
{
    return named(identityWords(device), device.name);
}

/// "device added", "operation mode 2 removed", "startup command PS 0x6060:0 added: 0x08".
std::string wordsOfPart(const Difference& difference)
{
    const Value& value = difference.change == Change::Added ? difference.after : difference.before;
    std::string words = difference.spot.part + " " + std::string(nameOf(difference.change));
    if (value.isThere() && !value.text.empty())
        words += ": " + shown(value);
    return words;
}

/// As `shown`; words of ours are empty where a list is, or where a file does not say what it could.
std::string shownOrNone(const Value& value)
{
    return value.kind == ValueKind::Words && value.text.empty() ? shown(noValue()) : shown(value);
}

} // namespace

std::string headOf(const ComparedDevices& compared)
{
    if (compared.before == nullptr && compared.after == nullptr)
        return "modules";
    if (compared.before == nullptr || compared.after == nullptr)
        return labelOf(compared.before != nullptr ? *compared.before : *compared.after);
    const std::string before = labelOf(*compared.before);
    const std::string after = labelOf(*compared.after);
    return before == after ? before : before + " -> " + after;
}

std::string wordsOf(const Difference& difference)
{
    const std::string values = shownOrNone(difference.before) + " -> " + shownOrNone(difference.after);
    const std::string& part = difference.spot.part;
    switch (difference.change) {
    case Change::Moved:
        return part + " moved: " + values;
    case Change::Changed:
        return part + (part.empty() ? "" : ", ") + std::string(difference.words) + ": " + values;
    default:
        return wordsOfPart(difference);
    }
}

} // namespace diff
