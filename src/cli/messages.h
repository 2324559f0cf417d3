// messages.h - the messages of the command: one line each, as compilers and build servers know them.
#pragma once

#include "cli/exitCode.h"

#include <QString>

#include <iosfwd>

/// Tells errors and warnings, and knows what they mean for the exit status. A line reads `FILE: severity: text`, with
/// `:LINE:COLUMN` behind the file where there is a place. What is not about a file stands under the command's own name.
class Messages
{
public:
    /// @param out  takes the lines; it must outlive this object
    explicit Messages(std::ostream& out)
        : m_out(out)
    {}

    /// @param file  path as the user gave it, "-" for standard input, empty for what is about no file
    void error(const QString& file, const QString& text);
    /// @param line, column  from 1
    void error(const QString& file, int line, int column, const QString& text);
    void warning(const QString& file, const QString& text);

    /// @param strict  whether warnings count
    [[nodiscard]] ExitCode exitCode(bool strict = false) const;

private:
    void tell(const QString& place, const char* severity, const QString& text);

    std::ostream& m_out;
    bool m_hasErrors = false;
    bool m_hasWarnings = false;
};

/// A file as messages and listings name it: its path with native separators, "<stdin>" for standard input.
[[nodiscard]] QString shownName(const QString& file);

/// A text as one line: line feeds and other characters that would move what stands around them become blanks.
[[nodiscard]] QString oneLine(QString text);
