#include "cli/messages.h"

#include "cli/progress.h"
#include "cli/streamName.h"
#include "system/fileNameCodec.h"
#include "text/oneLine.h"

#include <ostream>
#include <string_view>

namespace cli {

namespace {

constexpr char errorSeverity[] = "error";

/// The name before a message, for what is about no file too.
QString placeOf(const QString& file)
{
    return file.isEmpty() ? QStringLiteral("ktl") : shownName(file);
}

/// Values are cut where they are put in; this is for those within somebody else's words.
QString cutText(const QString& text)
{
    constexpr int maxLength = 2000;
    if (text.size() <= maxLength)
        return text;
    const int length = text.at(maxLength).isLowSurrogate() ? maxLength - 1 : maxLength;
    return text.left(length) + QStringLiteral("...");
}

/// A part of a message, which stays on its one line.
QString onLine(const QString& text)
{
    return oneLine(text, DrawingHints::BecomeBlanks).trimmed();
}

} // namespace

std::string messageText(const QString& text)
{
    return os::readableUtf8(onLine(text));
}

void Messages::error(const QString& file, const QString& text)
{
    m_hasErrors = true;
    write({placeOf(file), errorSeverity, text});
}

void Messages::note(const QString& file, const QString& text)
{
    write({placeOf(file), "note", text});
}

void Messages::error(const QString& file, int line, int column, const QString& text)
{
    m_hasErrors = true;
    // Several arguments at once: the name of a file may hold what looks like a place for the next one.
    write({QStringLiteral("%1:%2:%3").arg(shownName(file), QString::number(line), QString::number(column)),
           errorSeverity, text});
}

void Messages::outputError(const QString& file, const QString& text)
{
    m_hasOutputErrors = true;
    write({placeOf(file), errorSeverity, text});
}

void Messages::warning(const QString& file, WarningCode code, const QString& text)
{
    m_hasWarnings = m_hasWarnings || m_ignored.count(code) == 0;
    write({placeOf(file), "warning", QStringLiteral("%1 [%2]").arg(onLine(cutText(text)), nameOf(code))});
}

ExitCode Messages::exitCode(bool strict) const
{
    if (m_hasOutputErrors)
        return ExitCode::NotWritten;
    if (m_hasErrors)
        return ExitCode::Unusable;
    return strict && m_hasWarnings ? ExitCode::DoneWithWarnings : ExitCode::Done;
}

void Messages::report(const Messages& kept)
{
    m_hasErrors = m_hasErrors || kept.m_hasErrors;
    m_hasOutputErrors = m_hasOutputErrors || kept.m_hasOutputErrors;
    m_hasWarnings = m_hasWarnings || kept.m_hasWarnings;
    for (const Message& message : kept.m_kept)
        write(message);
}

std::vector<std::string> Messages::keptErrors() const
{
    std::vector<std::string> errors;
    for (const Message& message : m_kept)
        if (std::string_view(message.severity) == errorSeverity)
            errors.push_back(messageText(message.place) + ": " + messageText(cutText(message.text)));
    return errors;
}

void Messages::write(const Message& message)
{
    if (m_out == nullptr) {
        m_kept.push_back(message);
        return;
    }
    const Progress::Pause pause; // its line must not be in front of the message
    *m_out << messageText(message.place) << ": " << message.severity << ": " << messageText(cutText(message.text))
           << std::endl;
}

} // namespace cli
