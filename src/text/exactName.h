// exactName.h - comparison of the names in a document with those that the reader knows.
#pragma once

#include <QChar>
#include <QLatin1String>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Whether a name is the given one, exactly: what `tag == name` says, in place. A document asks it millions of times,
/// and nearly always the lengths or the first letters differ.
[[nodiscard]] inline bool isNamed(const QString& tag, QLatin1String name)
{
    return std::equal(tag.begin(), tag.end(), name.begin(), name.end(),
                      [](QChar letter, char expected) { return letter == QLatin1Char(expected); });
}

/// As above, of a name in UTF-8.
[[nodiscard]] inline bool isNamed(std::string_view name, QLatin1String expected)
{
    return name == std::string_view(expected.data(), static_cast<std::size_t>(expected.size()));
}

/// Whether a name has the given part in it, exactly: what `name.contains(part)` says, in place. The toolkit's own
/// search takes longer to begin than most names take to be looked through.
[[nodiscard]] inline bool hasInName(const QString& name, QLatin1String part)
{
    return std::search(name.begin(), name.end(), part.begin(), part.end(),
                       [](QChar letter, char expected) { return letter == QLatin1Char(expected); })
           != name.end();
}

/// As above, of a name in UTF-8.
[[nodiscard]] inline bool hasInName(std::string_view name, QLatin1String part)
{
    return name.find(std::string_view(part.data(), static_cast<std::size_t>(part.size()))) != std::string_view::npos;
}
