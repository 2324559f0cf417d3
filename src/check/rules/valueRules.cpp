// valueRules.cpp - values that are not what they have to be.
#include "check/esiFacts.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

namespace check {

namespace {

QString shown(std::string_view text)
{
    return shownText(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
}

/// "Sm of RxPdo is "x"" or "BitLen is "x"".
QString beginningOf(const ValueFault& fault)
{
    const QString element = QString::fromUtf8(fault.element.data(), static_cast<int>(fault.element.size()));
    const QString attribute = QString::fromUtf8(fault.attribute.data(), static_cast<int>(fault.attribute.size()));
    return attribute.isEmpty() ? QStringLiteral("%1 is %2").arg(element, shown(fault.text))
                               : QStringLiteral("%1 of %2 is %3").arg(attribute, element, shown(fault.text));
}

QString numberText(const ValueFault& fault)
{
    switch (fault.type.kind) {
    case ValueKind::Unsigned:
    case ValueKind::SubIndex:
        return QStringLiteral("which is no number from 0 on and is read as 0");
    case ValueKind::Signed:
        return QStringLiteral("which is no number and is read as 0");
    case ValueKind::Bytes:
    case ValueKind::HexDigits:
        return QStringLiteral("which is not made of hexadecimal digits alone");
    case ValueKind::Decimal:
        return QStringLiteral("which is no number");
    default:
        return QStringLiteral("which is no whole number");
    }
}

QString cutText(const ValueFault& fault)
{
    if (fault.type.kind == ValueKind::Bytes || fault.type.kind == ValueKind::HexDigits)
        return QStringLiteral("an odd number of hexadecimal digits; two make a byte");
    if (fault.type.kind == ValueKind::Signed)
        return QStringLiteral("which does not fit a signed number of %1 bits, and is read as 0").arg(fault.type.bits);
    if (!fault.number.has_value())
        return QStringLiteral("which is more than %1 bits hold, and is read as 0").arg(fault.type.bits);
    if (fault.type.kind == ValueKind::SubIndex)
        return QStringLiteral("which is more than the 8 bits of a sub-index");
    const std::uint32_t mask = (std::uint32_t{1} << fault.type.bits) - 1;
    return QStringLiteral("which is more than the %1 bits of its field hold; %2 is left of it")
        .arg(QString::number(fault.type.bits), hexNumber(*fault.number & mask));
}

QString booleanText(const ValueFault& fault)
{
    return QStringLiteral("which is neither true nor false and counts as %1")
        .arg(toBool(fault.text) ? QLatin1String("true") : QLatin1String("false"));
}

QString tokenText(const ValueFault& fault)
{
    const QString tokens = QString::fromUtf8(fault.type.tokens.data(), static_cast<int>(fault.type.tokens.size()));
    return QStringLiteral("which is none of %1").arg(tokens.trimmed().replace(QLatin1Char(' '), QLatin1String(", ")));
}

QString dataTypeText(const ValueFault& /*fault*/)
{
    return QStringLiteral("which is no base type, and no dictionary of the device or module declares it");
}

template<ValueFaultKind Kind, QString (*Text)(const ValueFault&)> void tell(const EsiFacts& facts, Report& report)
{
    for (const ValueFault& fault : facts.tree.valueFaults)
        if (fault.kind == Kind)
            report.addAbout(fault.owner, fault.where, beginningOf(fault) + QLatin1String(", ") + Text(fault));
    for (const OmittedValues& omitted : facts.tree.omittedValues)
        if (omitted.kind == Kind)
            report.omit(omitted.owner, omitted.count);
}

constexpr std::array rules{
    Rule{"value-number",
         Severity::Warning,
         "a value that should be a number is not one",
         "A text that the ESI schema or the readers take for a number does not convert: words, a sign where there is "
         R"(none, a comma. Decimal numbers and hexadecimal ones after "#x" or "0x" are right, and so is nothing.)",
         "The value becomes 0, without a message. A sync manager, size or index that is 0 instead is a different "
         "device.",
         R"(Write a decimal number, or a hexadecimal one after "#x".)",
         R"(<RxPdo Sm="two">)",
         {tell<ValueFaultKind::Number, numberText>, nullptr, nullptr}},
    Rule{"value-cut",
         Severity::Warning,
         "a number that is larger than its field",
         "A number has more bits than the field that it is read into: 16 for an index, an address or a size, 8 for a "
         "sub-index, 32 for all others. Or hexadecimal bytes end with half a byte.",
         "The upper bits are cut off, and where even 32 bits do not suffice the number becomes 0. What is left means "
         "another object or another place in memory.",
         "Correct the number.",
         "<InitCmd><Transition>PS</Transition><Index>#x1C120</Index>...",
         {tell<ValueFaultKind::Cut, cutText>, nullptr, nullptr}},
    Rule{"value-boolean",
         Severity::Warning,
         "an invalid Boolean value",
         R"(A text that has to be a truth value is none of "true", "false", "1" and "0", in any case.)",
         R"(A decimal number above 0 counts as true and everything else as false, also "yes", "#x1" or "true" )"
         "with a blank. Other tools may take it the other way round.",
         R"(Write "1" or "true", "0" or "false".)",
         R"(<RxPdo Mandatory="yes">)",
         {tell<ValueFaultKind::Boolean, booleanText>, nullptr, nullptr}},
    Rule{"value-token",
         Severity::Warning,
         "a keyword that is not in the list",
         "A text that has to be one word of a list, such as a transition, an access right or a category, is none of "
         "them. Upper and lower case do not count.",
         "The value counts as unknown: a startup command without a valid transition is never sent, and nobody "
         "knows whether an object without access right can be written.",
         "Take one of the words that the message lists.",
         "<InitCmd><Transition>PREOP</Transition>...",
         {tell<ValueFaultKind::Token, tokenText>, nullptr, nullptr}},
    Rule{
        "value-data-type",
        Severity::Warning,
        "a PDO entry of an unknown data type",
        "The DataType of a PDO entry is no base type of ETG.1020, such as BOOL, UINT, BIT3, STRING(8) or an ARRAY of "
        "these, and the dictionary of the device or module does not declare it. Names are exact. Where a dictionary is "
        "in a file of its own, nothing is said.",
        "Tools that link variables by type do not offer the entry, or take it for raw bits. Its length is not "
        "concerned.",
        "Take the name of the base type, or declare the type in the dictionary.",
        "<Entry>... <DataType>UINT16</DataType></Entry>",
        {tell<ValueFaultKind::DataType, dataTypeText>, nullptr, nullptr}},
};

} // namespace

RuleFamily valueRules()
{
    return rules;
}

} // namespace check
