// jsonSchema.h - as much of JSON schema as the schema of choices files needs; a word that it does not know is a
// problem.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <cmath>

/// A schema, and what differs from it.
class JsonSchema
{
public:
    explicit JsonSchema(const QJsonObject& root)
        : m_root(root)
    {}

    /// A definition by its name, the schema itself if the name is empty.
    [[nodiscard]] QJsonObject definition(const QString& name) const
    {
        return name.isEmpty() ? m_root : m_root.value("definitions").toObject().value(name).toObject();
    }

    [[nodiscard]] QStringList definitionNames() const { return m_root.value("definitions").toObject().keys(); }

    /// What a reference points to; anything else as it is.
    [[nodiscard]] QJsonObject resolved(const QJsonObject& form) const
    {
        return form.contains("$ref") ? definition(form.value("$ref").toString().section('/', 2)) : form;
    }

    /// What is not as the schema wants it, each with its place.
    [[nodiscard]] QStringList problemsOf(const QJsonValue& value) const { return problemsOf(value, m_root, "file"); }

private:
    [[nodiscard]] QStringList problemsOf(const QJsonValue& value, const QJsonObject& unresolved,
                                         const QString& path) const
    {
        static const QStringList words{
            "$schema",    "title",   "description", "definitions", "$ref",  "type",  "required", "additionalProperties",
            "properties", "items",   "const",       "enum",        "oneOf", "anyOf", "allOf",    "minimum",
            "maximum",    "pattern", "minLength",   "minItems"};
        const QJsonObject form = resolved(unresolved);
        QStringList problems;
        for (const QString& word : form.keys())
            if (!words.contains(word))
                problems += QStringLiteral("the schema has an unknown word: ") + word;
        if (!fitsSimpleWords(value, form))
            problems += path + QStringLiteral(": does not fit");
        problems += problemsOfChoices(value, form, path);
        if (value.isObject())
            problems += problemsOfMembers(value.toObject(), form, path);
        int position = 0;
        for (const QJsonValue& element : value.toArray())
            if (form.contains("items"))
                problems += problemsOf(element, form.value("items").toObject(),
                                       QStringLiteral("%1[%2]").arg(path).arg(position++));
        return problems;
    }

    [[nodiscard]] QStringList problemsOfChoices(const QJsonValue& value, const QJsonObject& form,
                                                const QString& path) const
    {
        QStringList problems;
        for (const char* word : {"oneOf", "anyOf", "allOf"}) {
            const QJsonArray forms = form.value(word).toArray();
            int fitting = 0;
            for (const QJsonValue& one : forms)
                fitting += problemsOf(value, one.toObject(), path).isEmpty() ? 1 : 0;
            const bool fits = QLatin1String(word) == "anyOf"   ? fitting > 0
                              : QLatin1String(word) == "oneOf" ? fitting == 1
                                                               : fitting == forms.size();
            if (!forms.isEmpty() && !fits)
                problems += QStringLiteral("%1: fits %2 of %3").arg(path).arg(fitting).arg(word);
        }
        return problems;
    }

    [[nodiscard]] QStringList problemsOfMembers(const QJsonObject& object, const QJsonObject& form,
                                                const QString& path) const
    {
        QStringList problems;
        const QJsonObject properties = form.value("properties").toObject();
        for (const QJsonValue& name : form.value("required").toArray())
            if (!object.contains(name.toString()))
                problems += path + QStringLiteral(": is missing ") + name.toString();
        for (auto member = object.begin(); member != object.end(); ++member) {
            if (properties.contains(member.key()))
                problems +=
                    problemsOf(member.value(), properties.value(member.key()).toObject(), path + '.' + member.key());
            else if (form.value("additionalProperties") == QJsonValue(false))
                problems += path + QStringLiteral(": knows no ") + member.key();
        }
        return problems;
    }

    static bool isOfType(const QJsonValue& value, const QString& type)
    {
        if (type == "integer")
            return value.isDouble() && std::floor(value.toDouble()) == value.toDouble();
        return (type == "object" && value.isObject()) || (type == "array" && value.isArray())
               || (type == "string" && value.isString()) || (type == "null" && value.isNull())
               || (type == "boolean" && value.isBool());
    }

    static bool fitsSimpleWords(const QJsonValue& value, const QJsonObject& form)
    {
        const double number = value.toDouble();
        const QString text = value.toString();
        return (!form.contains("type") || isOfType(value, form.value("type").toString()))
               && (!form.contains("const") || value == form.value("const"))
               && (!form.contains("enum") || form.value("enum").toArray().contains(value))
               && (!value.isDouble() || !form.contains("minimum") || number >= form.value("minimum").toDouble())
               && (!value.isDouble() || !form.contains("maximum") || number <= form.value("maximum").toDouble())
               && (!value.isArray() || value.toArray().size() >= form.value("minItems").toInt(0))
               && (!value.isString() || text.size() >= form.value("minLength").toInt(0))
               && (!value.isString() || !form.contains("pattern")
                   || QRegularExpression(form.value("pattern").toString()).match(text).hasMatch());
    }

    QJsonObject m_root;
};
