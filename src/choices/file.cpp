#include "choices/file.h"

#include "choices/reader.h"
#include "json/jsonText.h"

#include <algorithm>

namespace choices {

namespace {

constexpr int mebibyte = 1024 * 1024;
constexpr int maxMebibytes = 16;

bool isTooLarge(const QByteArray& text)
{
    return text.size() > maxMebibytes * mebibyte;
}

/// Whether a text has more objects and lists than are read. An empty one takes three bytes of a file and up to a
/// hundred times that in memory, so the size of the file is no limit for them. Brackets in texts count too.
bool hasTooMany(const QByteArray& text, int maxBrackets)
{
    return std::count_if(text.begin(), text.end(), [](char byte) { return byte == '{' || byte == '['; }) > maxBrackets;
}

} // namespace

QByteArray textOf(QIODevice& file)
{
    QByteArray text;
    QByteArray piece;
    do {
        piece = file.read(mebibyte);
        text += piece;
    } while (!piece.isEmpty() && !isTooLarge(text));
    return text;
}

std::optional<FileChoices> choicesIn(const QByteArray& text, Problems& problems)
{
    constexpr int maxBrackets = 1000000;
    if (isTooLarge(text)) {
        problems.add(ProblemCode::Size, {}, QStringLiteral("a choices file has %1 MiB at most").arg(maxMebibytes));
        return std::nullopt;
    }
    if (hasTooMany(text, maxBrackets)) {
        problems.add(ProblemCode::Size, {},
                     QStringLiteral("a choices file has %1 objects and lists at most").arg(maxBrackets));
        return std::nullopt;
    }
    const json::Parsing parsing = json::parse(text);
    if (!parsing.problem.has_value())
        return choicesFrom(parsing.value(), problems);
    problems.add({ProblemCode::Json, parsing.problem->text, parsing.problem->line, parsing.problem->column});
    return std::nullopt;
}

MadeChoices applyFile(const QByteArray& text, std::vector<struct_FilenameDevice>& files,
                      const DeviceSelectors& selectors, Problems& problems)
{
    const std::optional<FileChoices> choices = choicesIn(text, problems);
    return choices.has_value() ? makeChoices(*choices, files, selectors, problems) : MadeChoices();
}

} // namespace choices
