// jsonText.h - the text of a JSON file.
#pragma once

#include "json/jsonValue.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace json {

/// What is wrong with a text, and where.
struct Problem
{
    int line = 1; ///< from 1
    int column = 1; ///< from 1, in characters
    QString text;
};

/// Gives a tree of values back.
struct Release
{
    void operator()(json_t* root) const;
};

/// Result of parsing.
struct Parsing
{
    std::unique_ptr<json_t, Release> root; ///< the object or list of the file, null if there is a problem
    std::optional<Problem> problem; ///< nothing if the text is JSON, and no object holds a key twice

    [[nodiscard]] Value value() const { return Value(root.get()); }
};

/// Parses a JSON text (RFC 8259) in UTF-8; a byte order mark is passed over. Stricter than the standard:
/// an object with a key twice is refused, since one of the two would be lost silently, and so are a text with the
/// character U+0000 and numbers that do not fit into 64 bits.
/// @throws std::bad_alloc
[[nodiscard]] Parsing parse(const QByteArray& text);

} // namespace json
