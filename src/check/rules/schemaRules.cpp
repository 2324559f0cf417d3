// schemaRules.cpp - where a file departs from the ESI schema. Each kind of departure is told once for a file.
#include "check/esiFacts.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "text/shownText.h"

namespace check {

namespace {

QString nameOf(std::string_view name)
{
    return shownText(QString::fromUtf8(name.data(), static_cast<int>(name.size())));
}

/// What is wrong, for a fault of each kind: %1 the name, %2 the element that it is in, %3 the other element.
QString textOf(const SchemaFault& fault)
{
    static const std::array<const char*, static_cast<std::size_t>(SchemaFaultKind::Count)> texts{
        "element %1 is not known in %2",
        "element %1 may be in %2 only once",
        "element %1 is not allowed in %2 together with %3",
        "element %1 is after %3 in %2, the schema has it before",
        "attribute %1 is not known on %2",
    };
    const QString form = QString::fromLatin1(texts[static_cast<std::size_t>(fault.kind)]);
    const QString text = !form.contains(QLatin1String("%3"))
                             ? form.arg(nameOf(fault.name), nameOf(fault.parent))
                             : form.arg(nameOf(fault.name), nameOf(fault.parent), nameOf(fault.other));
    return fault.count > 1 ? text + QStringLiteral("; it occurs %1 times").arg(fault.count) : text;
}

template<SchemaFaultKind... Kinds> void tell(const EsiFacts& facts, Report& report)
{
    for (const SchemaFault& fault : facts.tree.schemaFaults)
        if (((fault.kind == Kinds) || ...))
            report.add(fault.where, textOf(fault));
}

void tellElements(const EsiFacts& facts, Report& report)
{
    tell<SchemaFaultKind::UnknownElement, SchemaFaultKind::RepeatedElement, SchemaFaultKind::ExcludedElement>(facts,
                                                                                                              report);
    report.omit({}, facts.tree.omittedSchemaFaults);
}

constexpr std::array rules{
    Rule{
        "schema-element",
        Severity::Note,
        "an element that the ESI schema does not allow in its place",
        "The schema of ETG.2000 (version 1.17) has no such element in its parent, or allows it once, or not beside "
        "another. The first place of each such element is told, and how often there are more.",
        "A tool that holds the file against the schema reports or refuses it. Others pass the element over, so what it "
        "was to say may be missing; often the name is misspelt, or it belongs into another element.",
        "Correct the name or the place. What only the maker's own tools read belongs into VendorSpecific.",
        R"(<Sm StartAddress="#x1000">MBoxOut</Sm>)"
        "\n<SyncManager>Outputs</SyncManager>",
        {tellElements, nullptr, nullptr}},
    Rule{"schema-attribute",
         Severity::Note,
         "an attribute that the ESI schema does not know",
         "The schema of ETG.2000 (version 1.17) has no such attribute on this element. The first place of each such "
         "attribute is told, and how often there are more.",
         "Tools pass the attribute over, so the device behaves as if it were not there. Upper and lower case count.",
         "Correct the name, or leave the attribute out.",
         R"(<RxPdo sm="2"> instead of <RxPdo Sm="2">)",
         {tell<SchemaFaultKind::UnknownAttribute>, nullptr, nullptr}},
    Rule{
        "schema-order",
        Severity::Note,
        "elements in another order than that of the ESI schema",
        "The schema of ETG.2000 (version 1.17) has the element before the one that it follows here. The first place of "
        "each such element is told, and how often there are more.",
        "Most tools read elements in any order. One that holds the file against the schema reports or refuses it.",
        "Put the elements in the order of the schema.",
        "<Entry>\n  <BitLen>8</BitLen>\n  <Index>#x6000</Index>\n</Entry>",
        {tell<SchemaFaultKind::Order>, nullptr, nullptr}},
};

} // namespace

RuleFamily schemaRules()
{
    return rules;
}

} // namespace check
