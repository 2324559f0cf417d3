#include "cli/messages.h"

#include "cli/inputFile.h"
#include "cli/progress.h"
#include "system/fileNameCodec.h"

#include <QDir>

#include <ostream>

namespace {

/// The name before a message, for what is about no file too.
QString placeOf(const QString& file)
{
    return file.isEmpty() ? QStringLiteral("ktl") : shownName(file);
}

/// Values are cut where they are put in; this is for those that are part of somebody else's words.
QString cutText(const QString& text)
{
    constexpr int maxLength = 2000;
    if (text.size() <= maxLength)
        return text;
    const int length = text.at(maxLength).isLowSurrogate() ? maxLength - 1 : maxLength;
    return text.left(length) + QStringLiteral("...");
}

} // namespace

QString oneLine(QString text)
{
    for (QChar& character : text) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Other_Format || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph)
            character = QLatin1Char(' ');
    }
    return text.trimmed();
}

QString shownName(const QString& file)
{
    return isStandardInput(file) ? QStringLiteral("<stdin>") : QDir::toNativeSeparators(file);
}

void Messages::error(const QString& file, const QString& text)
{
    m_hasErrors = true;
    tell(placeOf(file), "error", text);
}

void Messages::note(const QString& file, const QString& text)
{
    tell(placeOf(file), "note", text);
}

void Messages::error(const QString& file, int line, int column, const QString& text)
{
    m_hasErrors = true;
    // Several arguments at once: the name of a file may hold what looks like a place for the next one.
    tell(QStringLiteral("%1:%2:%3").arg(shownName(file), QString::number(line), QString::number(column)), "error",
         text);
}

void Messages::outputError(const QString& file, const QString& text)
{
    m_hasOutputErrors = true;
    tell(placeOf(file), "error", text);
}

void Messages::warning(const QString& file, WarningCode code, const QString& text)
{
    m_hasWarnings = m_hasWarnings || m_ignored.count(code) == 0;
    tell(placeOf(file), "warning", QStringLiteral("%1 [%2]").arg(oneLine(cutText(text)), nameOf(code)));
}

ExitCode Messages::exitCode(bool strict) const
{
    if (m_hasOutputErrors)
        return ExitCode::NotWritten;
    if (m_hasErrors)
        return ExitCode::Unusable;
    return strict && m_hasWarnings ? ExitCode::DoneWithWarnings : ExitCode::Done;
}

void Messages::tell(const QString& place, const char* severity, const QString& text)
{
    const Progress::Pause pause; // its line must not stand in front of the message
    m_out << readableUtf8(oneLine(place)) << ": " << severity << ": " << readableUtf8(oneLine(cutText(text)))
          << std::endl;
}
