#include "json/jsonText.h"

#include <algorithm>
#include <iterator>
#include <new>

#include <jansson.h>

namespace json {

namespace {

/// The words for a kind of error. Errors of syntax have the library's words after ours: what it met, and what it
/// expected.
struct ErrorWords
{
    enum json_error_code code; // a function has the same name
    const char* words;
};

constexpr ErrorWords errorWords[] = {
    {json_error_invalid_utf8, "the file is not in UTF-8"},
    {json_error_premature_end_of_input, "the file ends too early"},
    {json_error_end_of_input_expected, "something follows the end of the object"},
    {json_error_stack_overflow, "lists and objects are nested too deeply"},
    {json_error_numeric_overflow, "the number does not fit into 64 bits"},
    {json_error_null_character, "a text holds the character U+0000"},
    {json_error_null_byte_in_key, "a key holds the character U+0000"},
};

QString wordsOf(const json_error_t& error)
{
    const auto* const found = std::find_if(std::begin(errorWords), std::end(errorWords), [&](const ErrorWords& words) {
        return words.code == json_error_code(&error);
    });
    return found == std::end(errorWords)
               ? QStringLiteral("this is no JSON: ") + QString::fromUtf8(static_cast<const char*>(error.text))
               : QString::fromLatin1(found->words);
}

/// Offset of the quotation mark that opens the string which ends before `end`.
int openingQuote(const QByteArray& text, int end)
{
    for (int quote = text.lastIndexOf('"', end - 2); quote > 0; quote = text.lastIndexOf('"', quote - 1)) {
        int backslashes = 0;
        while (backslashes < quote && text.at(quote - 1 - backslashes) == '\\')
            ++backslashes;
        if (backslashes % 2 == 0)
            return quote;
    }
    return 0;
}

/// The problem of a key that its object holds already, at the start of the key.
Problem repeatedKey(const QByteArray& text, int keyEnd)
{
    const int quote = openingQuote(text, keyEnd);
    const QByteArray before = text.left(quote);
    const int lineStart = before.lastIndexOf('\n') + 1;
    const QByteArray key = text.mid(quote, keyEnd - quote);
    const std::unique_ptr<json_t, Release> decoded(
        json_loadb(key.constData(), static_cast<std::size_t>(key.size()), JSON_DECODE_ANY, nullptr));
    return {before.count('\n') + 1, QString::fromUtf8(before.mid(lineStart)).size() + 1,
            QStringLiteral("the key %1 is given twice").arg(Value(decoded.get()).shown())};
}

} // namespace

void Release::operator()(json_t* root) const
{
    json_decref(root);
}

Parsing parse(const QByteArray& text)
{
    const QByteArray mark("\xEF\xBB\xBF");
    const QByteArray json = text.startsWith(mark) ? text.mid(mark.size()) : text;
    json_error_t error{};
    Parsing parsing;
    parsing.root.reset(
        json_loadb(json.constData(), static_cast<std::size_t>(json.size()), JSON_REJECT_DUPLICATES, &error));
    if (parsing.root != nullptr)
        return parsing;
    const enum json_error_code code = json_error_code(&error);
    if (code == json_error_out_of_memory || error.text[0] == '\0') // the library says nothing of some of these
        throw std::bad_alloc();
    if (code == json_error_duplicate_key)
        parsing.problem = repeatedKey(json, error.position);
    else
        parsing.problem = Problem{error.line, std::max(error.column, 1), wordsOf(error)};
    return parsing;
}

} // namespace json
