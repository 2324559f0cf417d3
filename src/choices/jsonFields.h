// jsonFields.h - the fields of a JSON object, each held against what it has to be.
#pragma once

#include "choices/problems.h"
#include "json/jsonValue.h"

#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

namespace choices {

/// A key that an object may have.
struct JsonKey
{
    QLatin1String name;
    bool isNeeded;
};

constexpr std::uint32_t max16Bits = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint32_t max32Bits = std::numeric_limits<std::uint32_t>::max();

/// A number as a user writes one: a whole JSON number, or a text with a number in decimal or in one of the hexadecimal
/// forms of ESI files and C.
[[nodiscard]] std::optional<std::uint32_t> numberOf(const json::Value& value);

/// A number from 0 to `max32Bits` that is written as a number, or a text that names something. Anything else is told.
struct CountOrText
{
    std::optional<std::uint32_t> count;
    QString text; ///< empty where a number is given
};

/// @param path         of the value
/// @param alternative  what the text is, for the message: "a name"
[[nodiscard]] CountOrText countOrTextIn(const json::Value& value, const QString& path, QLatin1String alternative,
                                        Problems& problems);

/// Reads the fields of one object. What is not as it has to be is told, with its path, and reads as not given.
class JsonFields
{
public:
    /// Tells unknown keys, and needed ones that are missing. The key "about" may be anywhere and hold anything.
    /// @param problems  must outlive this object
    template<std::size_t Count>
    JsonFields(const json::Value& value, QString path, const std::array<JsonKey, Count>& keys, Problems& problems)
        : m_object(value)
        , m_path(std::move(path))
        , m_problems(problems)
    {
        check(keys.data(), Count);
    }

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] QString pathOf(QLatin1String key) const;
    [[nodiscard]] bool has(QLatin1String key) const { return value(key).isThere(); }
    [[nodiscard]] json::Value value(QLatin1String key) const { return m_object.member(key); }

    /// A number from 0 to `maximum`.
    std::optional<std::uint32_t> number(QLatin1String key, std::uint32_t maximum);
    /// As `number`, but a text with a number is none: for keys whose texts mean something else, and for counts.
    /// @param alternative  what else the key may be, for the message: "a name"; empty for nothing else
    std::optional<std::uint32_t> count(QLatin1String key, std::uint32_t maximum, QLatin1String alternative = {});
    std::optional<QString> text(QLatin1String key);
    std::optional<bool> flag(QLatin1String key);

    /// Calls `visit(value, path)` for each value of a list.
    template<typename Visitor> void forEach(QLatin1String key, Visitor visit)
    {
        const json::Value list = value(key);
        if (has(key) && !list.isList())
            refuse(key, QStringLiteral("a list"));
        for (std::size_t position = 0; position < list.size(); ++position)
            visit(list.element(position), QStringLiteral("%1[%2]").arg(pathOf(key), QString::number(position)));
    }

    /// Tells that a value is not what it has to be.
    void refuse(QLatin1String key, const QString& wanted);

private:
    void check(const JsonKey* keys, std::size_t count);
    std::optional<std::uint32_t> inRange(QLatin1String key, std::optional<std::uint32_t> number, std::uint32_t maximum,
                                         QLatin1String alternative = {});

    json::Value m_object;
    QString m_path;
    Problems& m_problems;
};

} // namespace choices
