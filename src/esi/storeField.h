// storeField.h - the usual ways to store the value of an attribute or element in a field of a record.
#pragma once

#include "model/valueTexts.h"

#include <string>
#include <string_view>
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
template<auto Field> void storeUint(RecordOf<Field>& to, std::string_view value)
{
    to.*Field = static_cast<FieldType<Field>>(toUint(value));
}

/// Stores the signed number of a text.
template<auto Field> void storeInt(RecordOf<Field>& to, std::string_view value)
{
    to.*Field = toInt(value);
}

/// Stores the truth value of a text.
template<auto Field> void storeBool(RecordOf<Field>& to, std::string_view value)
{
    to.*Field = toBool(value);
}

/// Stores the token of a text.
template<auto Field> void storeToken(RecordOf<Field>& to, std::string_view value)
{
    to.*Field = toToken(value);
}

/// Stores the text itself, also when it is empty.
template<auto Field> void storeText(RecordOf<Field>& to, std::string_view value)
{
    to.*Field = value;
}

/// Stores the text itself, but keeps what is there if the text is empty.
template<auto Field> void storeTextIfAny(RecordOf<Field>& to, std::string_view value)
{
    if (!value.empty())
        to.*Field = value;
}
