#include "check/standardTypes.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <array>

namespace check {

namespace {

struct NamedType
{
    std::string_view name;
    ValueKind kind;
    std::uint64_t bits;
};

/// By name, for the binary search.
constexpr std::array namedTypes{
    NamedType{"BIT", ValueKind::Bits, 1},
    NamedType{"BITARR16", ValueKind::Bits, 16},
    NamedType{"BITARR32", ValueKind::Bits, 32},
    NamedType{"BITARR8", ValueKind::Bits, 8},
    NamedType{"BOOL", ValueKind::Bits, 1},
    NamedType{"BOOLEAN", ValueKind::Bits, 1},
    NamedType{"BYTE", ValueKind::Bits, 8},
    NamedType{"DINT", ValueKind::Signed, 32},
    NamedType{"DOMAIN", ValueKind::Bytes, 0},
    NamedType{"DWORD", ValueKind::Bits, 32},
    NamedType{"GUID", ValueKind::Bytes, 128},
    NamedType{"INT", ValueKind::Signed, 16},
    NamedType{"LINT", ValueKind::Signed, 64},
    NamedType{"LREAL", ValueKind::Real, 64},
    NamedType{"LWORD", ValueKind::Bits, 64},
    NamedType{"OCTET_STRING", ValueKind::Bytes, 0},
    NamedType{"REAL", ValueKind::Real, 32},
    NamedType{"REAL32", ValueKind::Real, 32},
    NamedType{"REAL64", ValueKind::Real, 64},
    NamedType{"SINT", ValueKind::Signed, 8},
    NamedType{"STRING", ValueKind::Text, 0},
    NamedType{"TIME_DIFFERENCE", ValueKind::Bits, 48},
    NamedType{"TIME_OF_DAY", ValueKind::Bits, 48},
    NamedType{"UDINT", ValueKind::Unsigned, 32},
    NamedType{"UINT", ValueKind::Unsigned, 16},
    NamedType{"ULINT", ValueKind::Unsigned, 64},
    NamedType{"UNICODE_STRING", ValueKind::Text, 0},
    NamedType{"USINT", ValueKind::Unsigned, 8},
    NamedType{"VISIBLE_STRING", ValueKind::Text, 0},
    NamedType{"WORD", ValueKind::Bits, 16},
    NamedType{"WSTRING", ValueKind::Text, 0},
};

/// Names with the number of bits after them.
struct CountedName
{
    std::string_view name;
    ValueKind kind;
    std::uint32_t maxBits;
};

constexpr std::array countedNames{
    CountedName{"BIT", ValueKind::Bits, 16},          CountedName{"INT", ValueKind::Signed, 64},
    CountedName{"UINT", ValueKind::Unsigned, 64},     CountedName{"INTEGER", ValueKind::Signed, 64},
    CountedName{"UNSIGNED", ValueKind::Unsigned, 64},
};

/// Names with a number of units in brackets after them.
struct SizedName
{
    std::string_view name;
    ValueKind kind;
    std::uint64_t bitsOfUnit;
};

constexpr std::array sizedNames{
    SizedName{"STRING", ValueKind::Text, 8},        SizedName{"VISIBLE_STRING", ValueKind::Text, 8},
    SizedName{"OCTET_STRING", ValueKind::Bytes, 8}, SizedName{"UNICODE_STRING", ValueKind::Text, 16},
    SizedName{"WSTRING", ValueKind::Text, 16},
};

bool areDigits(std::string_view text)
{
    constexpr std::size_t maxDigits = 9;
    return !text.empty() && text.size() <= maxDigits
           && std::all_of(text.begin(), text.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool beginsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

const NamedType* namedType(std::string_view name)
{
    const auto found =
        std::lower_bound(namedTypes.begin(), namedTypes.end(), name,
                         [](const NamedType& row, std::string_view wanted) { return row.name < wanted; });
    return found != namedTypes.end() && found->name == name ? &*found : nullptr;
}

/// "UINT24"
std::optional<TypeShape> countedType(std::string_view name)
{
    for (const CountedName& row : countedNames) {
        const std::string_view digits = beginsWith(name, row.name) ? name.substr(row.name.size()) : std::string_view();
        if (!areDigits(digits))
            continue;
        const std::uint32_t bits = toUint(digits);
        if (bits > 0 && bits <= row.maxBits)
            return TypeShape{row.kind, bits};
    }
    return std::nullopt;
}

/// "STRING(12)"
std::optional<TypeShape> sizedType(std::string_view name)
{
    if (name.empty() || name.back() != ')')
        return std::nullopt;
    for (const SizedName& row : sizedNames) {
        const std::size_t bracket = row.name.size();
        if (!beginsWith(name, row.name) || name[bracket] != '(')
            continue;
        const std::string_view digits = name.substr(bracket + 1, name.size() - bracket - 2);
        if (areDigits(digits))
            return TypeShape{row.kind, toUint(digits) * row.bitsOfUnit};
    }
    return std::nullopt;
}

/// "ARRAY [0..3] OF BYTE"
std::optional<TypeShape> arrayType(std::string_view name)
{
    constexpr std::string_view start = "ARRAY [";
    constexpr std::string_view dots = "..";
    constexpr std::string_view of = "] OF ";
    const std::size_t dotsAt = name.find(dots);
    const std::size_t ofAt = name.find(of);
    if (!beginsWith(name, start) || dotsAt == std::string_view::npos || ofAt == std::string_view::npos || ofAt < dotsAt)
        return std::nullopt;
    const std::string_view first = name.substr(start.size(), dotsAt - start.size());
    const std::string_view last = name.substr(dotsAt + dots.size(), ofAt - dotsAt - dots.size());
    const NamedType* const base = namedType(name.substr(ofAt + of.size()));
    if (base == nullptr || !areDigits(first) || !areDigits(last) || toUint(last) < toUint(first))
        return std::nullopt;
    return TypeShape{ValueKind::Bytes, (std::uint64_t{toUint(last)} - toUint(first) + 1) * base->bits};
}

} // namespace

std::optional<TypeShape> standardTypeNamed(std::string_view name)
{
    constexpr std::size_t maxLength = 64;
    if (name.size() > maxLength)
        return std::nullopt;
    if (const NamedType* const row = namedType(name))
        return TypeShape{row->kind, row->bits};
    if (const std::optional<TypeShape> counted = countedType(name))
        return counted;
    if (const std::optional<TypeShape> sized = sizedType(name))
        return sized;
    return arrayType(name);
}

bool canBeSame(ValueKind left, ValueKind right) noexcept
{
    const auto isVague = [](ValueKind kind) {
        return kind == ValueKind::Unknown || kind == ValueKind::Bits || kind == ValueKind::Bytes;
    };
    return left == right || isVague(left) || isVague(right);
}

} // namespace check
