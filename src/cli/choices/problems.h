// problems.h - what is wrong with a choices file.
#pragma once

#include <QString>

#include <cstddef>
#include <vector>

/// Collects what is wrong, so that one run tells all of it.
class Problems
{
public:
    /// @param path  the place in the file: "devices[0].driveAxes"; empty for the file as a whole
    void add(const QString& path, const QString& text)
    {
        m_texts.push_back(path.isEmpty() ? text : path + QStringLiteral(": ") + text);
    }

    [[nodiscard]] const std::vector<QString>& texts() const { return m_texts; }
    [[nodiscard]] std::size_t count() const { return m_texts.size(); }

private:
    std::vector<QString> m_texts;
};

/// A text as messages quote it.
[[nodiscard]] inline QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}
