#include "facts/dictionary/standardTypes.h"

#include "model/valueTexts.h"

#include <algorithm>
#include <array>

namespace facts {

namespace {

struct NamedType
{
    std::string_view name;
    DataKind kind;
    std::uint64_t bits;
};

/// By name, for the binary search.
constexpr std::array namedTypes{
    NamedType{"BIT", DataKind::Bits, 1},
    NamedType{"BITARR16", DataKind::Bits, 16},
    NamedType{"BITARR32", DataKind::Bits, 32},
    NamedType{"BITARR8", DataKind::Bits, 8},
    NamedType{"BOOL", DataKind::Bits, 1},
    NamedType{"BOOLEAN", DataKind::Bits, 1},
    NamedType{"BYTE", DataKind::Bits, 8},
    NamedType{"COMMAND_PAR", DataKind::Unknown, 0},
    NamedType{"DATE", DataKind::Unknown, 0},
    NamedType{"DATE_AND_TIME", DataKind::Unknown, 0},
    NamedType{"DINT", DataKind::Signed, 32},
    NamedType{"DOMAIN", DataKind::Bytes, 0},
    NamedType{"DT", DataKind::Unknown, 0},
    NamedType{"DWORD", DataKind::Bits, 32},
    NamedType{"GUID", DataKind::Bytes, 128},
    NamedType{"IDENTITY", DataKind::Unknown, 0},
    NamedType{"INT", DataKind::Signed, 16},
    NamedType{"LINT", DataKind::Signed, 64},
    NamedType{"LREAL", DataKind::Real, 64},
    NamedType{"LTIME", DataKind::Unknown, 0},
    NamedType{"LWORD", DataKind::Bits, 64},
    NamedType{"OCTET_STRING", DataKind::Bytes, 0},
    NamedType{"PDO_MAPPING", DataKind::Unknown, 0},
    NamedType{"PDO_PARAMETER", DataKind::Unknown, 0},
    NamedType{"REAL", DataKind::Real, 32},
    NamedType{"REAL32", DataKind::Real, 32},
    NamedType{"REAL64", DataKind::Real, 64},
    NamedType{"SDO_PARAMETER", DataKind::Unknown, 0},
    NamedType{"SINT", DataKind::Signed, 8},
    NamedType{"STRING", DataKind::Text, 0},
    NamedType{"TIME", DataKind::Unknown, 0},
    NamedType{"TIME_DIFFERENCE", DataKind::Bits, 48},
    NamedType{"TIME_OF_DAY", DataKind::Bits, 48},
    NamedType{"TOD", DataKind::Unknown, 0},
    NamedType{"UDINT", DataKind::Unsigned, 32},
    NamedType{"UINT", DataKind::Unsigned, 16},
    NamedType{"ULINT", DataKind::Unsigned, 64},
    NamedType{"UNICODE_STRING", DataKind::Text, 0},
    NamedType{"USINT", DataKind::Unsigned, 8},
    NamedType{"VISIBLE_STRING", DataKind::Text, 0},
    NamedType{"WORD", DataKind::Bits, 16},
    NamedType{"WSTRING", DataKind::Text, 0},
};

/// Names with the number of bits after them.
struct CountedName
{
    std::string_view name;
    DataKind kind;
    std::uint32_t maxBits;
    bool isAnyNumber; ///< of bits; else the standard has 24, 40, 48 and 56, since the others have names of their own
};

constexpr std::array countedNames{
    CountedName{"BIT", DataKind::Bits, 16, true},       CountedName{"BITARR", DataKind::Bits, 64, true},
    CountedName{"INT", DataKind::Signed, 64, false},    CountedName{"UINT", DataKind::Unsigned, 64, false},
    CountedName{"INTEGER", DataKind::Signed, 64, true}, CountedName{"UNSIGNED", DataKind::Unsigned, 64, true},
};

/// Names with a number of units in brackets after them.
struct SizedName
{
    std::string_view name;
    DataKind kind;
    std::uint64_t bitsOfUnit;
};

constexpr std::array sizedNames{
    SizedName{"STRING", DataKind::Text, 8},        SizedName{"VISIBLE_STRING", DataKind::Text, 8},
    SizedName{"OCTET_STRING", DataKind::Bytes, 8}, SizedName{"UNICODE_STRING", DataKind::Text, 16},
    SizedName{"WSTRING", DataKind::Text, 16},
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

bool hasNoOtherName(std::uint32_t bits)
{
    constexpr std::array<std::uint32_t, 4> lengths{24, 40, 48, 56};
    return std::find(lengths.begin(), lengths.end(), bits) != lengths.end();
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
            return TypeShape{row.kind, bits, row.isAnyNumber || hasNoOtherName(bits)};
    }
    return std::nullopt;
}

/// "STRING(12)", "STRING[12]"
std::optional<TypeShape> sizedType(std::string_view name)
{
    if (name.empty() || (name.back() != ')' && name.back() != ']'))
        return std::nullopt;
    const char opening = name.back() == ')' ? '(' : '[';
    for (const SizedName& row : sizedNames) {
        const std::size_t bracket = row.name.size();
        if (!beginsWith(name, row.name) || name[bracket] != opening)
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
    return TypeShape{DataKind::Bytes, (std::uint64_t{toUint(last)} - toUint(first) + 1) * base->bits};
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

bool canBeSame(DataKind left, DataKind right) noexcept
{
    const auto isVague = [](DataKind kind) {
        return kind == DataKind::Unknown || kind == DataKind::Bits || kind == DataKind::Bytes;
    };
    return left == right || isVague(left) || isVague(right);
}

std::string_view elementTypeName(std::string_view name)
{
    constexpr std::string_view array = "ARRAY";
    constexpr std::string_view of = "OF ";
    while (beginsWith(name, array)) {
        const std::size_t bounds = name.find(']');
        const std::size_t word = bounds == std::string_view::npos ? bounds : name.find(of, bounds);
        if (word == std::string_view::npos)
            break;
        name.remove_prefix(word + of.size());
    }
    return name;
}

} // namespace facts
