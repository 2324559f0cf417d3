// messages.h - the messages of the command: one line each, as compilers and build servers know them.
#pragma once

#include "cli/exitCode.h"
#include "cli/warningCodes.h"

#include <QString>

#include <cstddef>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace cli {

/// A text as messages have it: on one line, and readable.
[[nodiscard]] std::string messageText(const QString& text);

/// Reports errors and warnings, and knows what they mean for the exit status. A line reads `FILE: severity: text`, with
/// `:LINE:COLUMN` after the file where there is one, and the code of a warning in brackets at its end. What is
/// about no file comes under the command's own name. A text that is longer than people read is cut.
class Messages
{
public:
    static constexpr std::size_t maxListed = 20; ///< lines of one kind

    /// Keeps what is reported, for another object to report.
    Messages() = default;

    /// @param out  takes the lines; it must outlive this object
    explicit Messages(std::ostream& out)
        : m_out(&out)
    {}

    /// Reports what another object has kept. Its warnings all count for the exit status.
    void report(const Messages& kept);

    /// The errors that are kept, as their lines have them but for the severity: "choices.json:3:5: text".
    [[nodiscard]] std::vector<std::string> keptErrors() const;

    /// @param file  path as the user gave it, "-" for standard input, empty for what is about no file
    void error(const QString& file, const QString& text);
    /// @param line, column  from 1
    void error(const QString& file, int line, int column, const QString& text);
    /// An output that cannot be written.
    void outputError(const QString& file, const QString& text);
    void warning(const QString& file, WarningCode code, const QString& text);
    /// What a user may want to know although nothing is wrong, or what adds to an error.
    void note(const QString& file, const QString& text);

    /// Warnings of that kind are still reported, but no longer count for the exit status.
    void ignore(WarningCode code) { m_ignored.insert(code); }

    /// The worst that was reported: an output that cannot be written, then any other error, then a warning.
    /// @param strict  whether warnings count
    [[nodiscard]] ExitCode exitCode(bool strict = false) const;

private:
    struct Message
    {
        QString place;
        const char* severity;
        QString text;
    };
    void write(const Message& message);

    std::ostream* m_out = nullptr; ///< null if messages are kept
    std::vector<Message> m_kept;
    std::set<WarningCode> m_ignored;
    bool m_hasErrors = false;
    bool m_hasOutputErrors = false;
    bool m_hasWarnings = false; ///< of kinds that count
};

} // namespace cli
