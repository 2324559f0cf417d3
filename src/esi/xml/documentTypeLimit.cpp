#include "esi/xml/documentTypeLimit.h"

#include "esi/xml/xmlLimits.h"

#include <QLatin1String>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

const QLatin1String documentTypeMark("<!DOCTYPE");

/// Text in which no character has a meaning of its own until the end mark.
struct Enclosure
{
    QLatin1String begin;
    QLatin1String end;
};

const std::array<Enclosure, 4> enclosures{{
    {QLatin1String("<!--"), QLatin1String("-->")},
    {QLatin1String("<?"), QLatin1String("?>")},
    {QLatin1String("\""), QLatin1String("\"")},
    {QLatin1String("'"), QLatin1String("'")},
}};

bool isAt(const QString& text, int position, QLatin1String mark)
{
    return text.midRef(position, mark.size()) == mark;
}

/// Position after the comment, instruction or quoted text at `position`, or `position` itself if there is none. One
/// without an end goes to the end of the text.
int afterEnclosure(const QString& text, int position)
{
    for (const Enclosure& enclosure : enclosures)
        if (isAt(text, position, enclosure.begin)) {
            const int end = text.indexOf(enclosure.end, position + enclosure.begin.size());
            return end < 0 ? text.size() : end + enclosure.end.size();
        }
    return position;
}

/// Position after the document type declaration at `start`; somewhere in it if it is too long, and the end of the text
/// if it is not closed.
int afterDocumentType(const QString& text, int start)
{
    int openBrackets = 0;
    int position = start + documentTypeMark.size();
    while (position < text.size() && position - start <= maxDocumentTypeLength) {
        const int after = afterEnclosure(text, position);
        if (after > position) {
            position = after;
            continue;
        }
        const QChar character = text.at(position);
        position += 1;
        if (character == QLatin1Char('['))
            openBrackets += 1;
        else if (character == QLatin1Char(']'))
            openBrackets -= 1;
        else if (character == QLatin1Char('>') && openBrackets <= 0)
            break;
    }
    return position;
}

/// The document type declarations of a file.
struct DocumentTypes
{
    QString text; ///< one after the other; the parser takes several, although one is allowed
    int start = 0; ///< of the first
    int end = 0; ///< after the last
    int endOfSearch = 0; ///< where the first thing is that may not precede the root element
    [[nodiscard]] bool isTooLong() const { return text.size() > maxDocumentTypeLength; }
    [[nodiscard]] bool declaresEntity() const { return text.contains(QLatin1String("<!ENTITY")); }
};

/// Goes through what may precede the root element.
DocumentTypes documentTypesOf(const QString& text)
{
    DocumentTypes found;
    int& position = found.endOfSearch;
    while (position < text.size() && !found.isTooLong()) {
        const int start = position;
        if (text.at(position).isSpace()) {
            position += 1;
        } else if (isAt(text, position, documentTypeMark)) {
            position = afterDocumentType(text, position);
            found.start = found.text.isEmpty() ? start : found.start;
            found.end = position;
            found.text += text.midRef(start, position - start);
        } else {
            position = afterEnclosure(text, position);
            if (position == start)
                break;
        }
    }
    return found;
}

/// Whether a parameter entity is referred to: "%", name, ";". Its replacement text continues in the text after it, so a
/// comment or quote may start in the one and end in the other, and nothing but the parser can tell where the
/// declaration ends.
bool hasParameterReference(const QString& declaration)
{
    static const QRegularExpression reference(QStringLiteral(R"(%[^\s;]*;)"));
    return declaration.contains(reference);
}

/// Counts the references inside a declaration, also those whose sign is written as a character reference and takes
/// effect when the entity is used.
int nestedReferencesIn(const QString& declaration)
{
    static const QRegularExpression reference(QStringLiteral(R"(&(?!#)|&#0*38;|&#x0*26;)"));
    return declaration.count(reference);
}

/// Whether the reference at a position is to a character, by number or by name. The parser takes the five names for
/// these characters whatever a declaration makes of them, so none of them can grow.
bool isCharacterReference(const QString& text, int position)
{
    static const std::array references{QLatin1String("&#"),   QLatin1String("&amp;"),  QLatin1String("&lt;"),
                                       QLatin1String("&gt;"), QLatin1String("&quot;"), QLatin1String("&apos;")};
    return std::any_of(references.begin(), references.end(),
                       [&](QLatin1String reference) { return isAt(text, position, reference); });
}

/// Position of the reference that is one too many; -1 if there is none.
int positionOfReferenceTooMany(const QString& text, int start)
{
    int count = 0;
    for (int position = start; (position = text.indexOf(QLatin1Char('&'), position)) >= 0; ++position) {
        count += isCharacterReference(text, position) ? 0 : 1;
        if (count > maxReferences)
            return position;
    }
    return -1;
}

/// Counts lines as the parser does: CR, LF and the pair of them end one.
XmlFormatError errorAt(const QString& text, int position, const QString& message)
{
    XmlFormatError error{message, 1, 1};
    for (int i = 0; i < position; ++i) {
        const bool isPair = text.at(i) == QLatin1Char('\r') && isAt(text, i + 1, QLatin1String("\n"));
        const bool isEnd = text.at(i) == QLatin1Char('\n') || (text.at(i) == QLatin1Char('\r') && !isPair);
        error.line += isEnd ? 1 : 0;
        error.column = isEnd ? 1 : error.column + 1;
    }
    return error;
}

} // namespace

std::optional<XmlFormatError> brokenDocumentTypeLimit(const QString& text)
{
    const DocumentTypes types = documentTypesOf(text);
    if (types.isTooLong())
        return errorAt(
            text, types.start,
            QStringLiteral("the document type declaration is longer than %1 characters").arg(maxDocumentTypeLength));
    if (hasParameterReference(types.text))
        return errorAt(text, types.start, QStringLiteral("the document type declaration refers to a parameter entity"));
    if (nestedReferencesIn(types.text) > maxNestedReferences)
        return errorAt(text, types.start,
                       QStringLiteral("the document type declaration has more than %1 references to entities")
                           .arg(maxNestedReferences));
    if (!types.declaresEntity())
        return std::nullopt;
    const int tooMany = positionOfReferenceTooMany(text, types.end);
    if (tooMany < 0)
        return std::nullopt;
    return errorAt(
        text, tooMany,
        QStringLiteral("a file that declares entities has more than %1 references to entities").arg(maxReferences));
}

bool isEnoughForDocumentTypeLimit(const QString& beginning)
{
    const DocumentTypes types = documentTypesOf(beginning);
    const bool isSearchedThrough = types.endOfSearch + documentTypeMark.size() <= beginning.size(); // no mark is cut
    return types.isTooLong() || (isSearchedThrough && !types.declaresEntity());
}
