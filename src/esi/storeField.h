// storeField.h - the usual ways to store the value of an attribute or element in a field of a record.
#pragma once

#include "model/valueTexts.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>

/// Record that a member pointer points into, and the type of that member.
template<typename MemberPointer> struct MemberOf;

template<typename Owner, typename Value> struct MemberOf<Value Owner::*>
{
    using Record = Owner;
    using Type = Value;
};

template<auto Field> using RecordOf = typename MemberOf<decltype(Field)>::Record;

template<auto Field> using FieldType = typename MemberOf<decltype(Field)>::Type;

/// Stores the unsigned number of a text, cut to the width of the field.
template<auto Field> void storeUint(RecordOf<Field>& to, const QString& value)
{
    to.*Field = static_cast<FieldType<Field>>(toUint(value));
}

/// Stores the signed number of a text.
template<auto Field> void storeInt(RecordOf<Field>& to, const QString& value)
{
    to.*Field = toInt(value);
}

/// Stores the truth value of a text.
template<auto Field> void storeBool(RecordOf<Field>& to, const QString& value)
{
    to.*Field = toBool(value);
}

/// Stores the token of a text.
template<auto Field> void storeToken(RecordOf<Field>& to, const QString& value)
{
    to.*Field = toToken(value);
}

/// A text as UTF-8. Plain ASCII, as most texts are, is copied as it is.
[[nodiscard]] inline std::string utf8Of(const QString& text)
{
    const auto isAscii = [](QChar letter) { return letter.unicode() < 0x80; };
    if (!std::all_of(text.begin(), text.end(), isAscii))
        return text.toStdString();
    std::string ascii(static_cast<std::size_t>(text.size()), '\0');
    std::transform(text.begin(), text.end(), ascii.begin(), [](QChar letter) { return letter.toLatin1(); });
    return ascii;
}

/// Stores the text itself, as UTF-8, also when it is empty.
template<auto Field> void storeText(RecordOf<Field>& to, const QString& value)
{
    to.*Field = utf8Of(value);
}

/// Stores the text itself, as UTF-8, but keeps what is there if the text is empty.
template<auto Field> void storeTextIfAny(RecordOf<Field>& to, const QString& value)
{
    if (!value.isEmpty())
        to.*Field = utf8Of(value);
}
