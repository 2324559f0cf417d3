// problems.h - what is wrong with a choices file.
#pragma once

#include "choices/problemCodes.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

namespace choices {

/// One mistake.
struct Problem
{
    ProblemCode code;
    QString text; ///< with its path in the file, if it has one
    int line = 0; ///< from 1; 0 if the path says the place
    int column = 0; ///< from 1, in characters
};

/// Collects what is wrong, so that one run tells all of it. Only the first ones are kept, all are counted.
class Problems
{
public:
    /// How many are kept. A file with more mistakes than this has one that is made again and again.
    static constexpr std::size_t maxKept = 20;

    /// @param path  the place in the file: "devices[0].driveAxes"; empty for the file as a whole
    void add(ProblemCode code, const QString& path, const QString& text)
    {
        add({code, path.isEmpty() ? text : path + QStringLiteral(": ") + text});
    }

    void add(const Problem& problem)
    {
        if (m_count++ < maxKept)
            m_kept.push_back(problem);
    }

    /// Adds words to the first mistake of certain kinds, if one is kept.
    /// @param from  position among all mistakes to start at, in the order in which they were added
    void explain(std::size_t from, std::initializer_list<ProblemCode> codes, const QString& words)
    {
        const auto isMeant = [&](const Problem& problem) {
            return std::find(codes.begin(), codes.end(), problem.code) != codes.end();
        };
        const auto start = m_kept.begin() + static_cast<std::ptrdiff_t>(std::min(from, m_kept.size()));
        if (const auto found = std::find_if(start, m_kept.end(), isMeant); found != m_kept.end())
            found->text += words;
    }

    [[nodiscard]] const std::vector<Problem>& kept() const { return m_kept; }
    [[nodiscard]] std::size_t count() const { return m_count; }

private:
    std::vector<Problem> m_kept;
    std::size_t m_count = 0;
};

} // namespace choices
