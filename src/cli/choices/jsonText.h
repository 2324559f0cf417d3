// jsonText.h - the text of a JSON file.
#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <optional>

/// What is wrong with a text, and where.
struct JsonProblem
{
    int line = 0; ///< from 1
    int column = 0; ///< from 1, in characters
    QString text;
};

/// Result of parsing.
struct JsonParsing
{
    QJsonValue value; ///< the object or array of the file
    std::optional<JsonProblem> problem; ///< nothing if the text is JSON, and no object holds a key twice
};

/// Parses a JSON text in UTF-8. Qt's reader takes the last one of two equal keys; here they are a problem, since one of
/// the two would be lost without a word.
[[nodiscard]] JsonParsing parseJson(const QByteArray& text);
