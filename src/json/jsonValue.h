// jsonValue.h - a value of a JSON file that has been read.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>

struct json_t;

namespace json {

/// Looks at a value; it is valid as long as the file's `Parsing`. A value that is not there is none of the kinds.
class Value
{
public:
    explicit Value(json_t* value = nullptr)
        : m_value(value)
    {}

    [[nodiscard]] bool isThere() const { return m_value != nullptr; }
    [[nodiscard]] bool isNull() const;
    [[nodiscard]] bool isObject() const;
    [[nodiscard]] bool isList() const;

    /// The text; nothing if this is none.
    [[nodiscard]] std::optional<QString> text() const;
    /// The number, whole or not; nothing if this is none.
    [[nodiscard]] std::optional<double> number() const;
    /// Whether it is true; nothing if this is neither true nor false.
    [[nodiscard]] std::optional<bool> flag() const;

    /// The value of a key of an object; one that is not there if the object has no such key.
    [[nodiscard]] Value member(QLatin1String key) const;
    /// The keys of an object, in the order of the file.
    [[nodiscard]] QStringList keys() const;
    /// How many elements a list has; 0 for anything else.
    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] Value element(std::size_t position) const;

    /// The value as messages show it: long texts are cut, of lists and objects the brackets are shown.
    [[nodiscard]] QString shown() const;

private:
    json_t* m_value; ///< owned by the `Parsing`
};

} // namespace json
