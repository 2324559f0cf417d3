// fileRules.cpp - what is wrong with a file as a whole, or with the files of a call together.
#include "check/rules/fileRules.h"

#include "check/rules/ruleFamilies.h"

#include <array>
#include <cstddef>

namespace check {

namespace {

constexpr std::array rules{
    Rule{"file-unreadable",
         Severity::Error,
         "a file cannot be read",
         "The system cannot open or read the file, its name is empty or that of a folder, it is larger than a KTL file "
         "can be, or there is not enough memory for it.",
         "Nothing in the file is checked.",
         "Look at the name and the permissions of the file; the finding has the reason in the words of the system.",
         "ktl check gone.xml",
         {},
         true},
    Rule{"file-not-well-formed",
         Severity::Error,
         "a file is not well-formed XML, or exceeds a limit",
         "The file breaks a rule of XML at the place that the finding names, or it exceeds one of the limits that keep "
         "small files from filling the memory.",
         "Neither the workbench nor another configuration tool can load it, so none of its devices can be used.",
         "Correct the element at that place; often an end tag is missing, or there is an unescaped &.",
         "<Name>Drive & Motor</Name>",
         {},
         true},
    Rule{
        "file-no-vendor",
        Severity::Error,
        "a file is XML, but no ESI file: it has no Vendor",
        "The file is well-formed XML without an element named Vendor.",
        "A device is known by its vendor first. The workbench refuses a file without one, since it is probably another "
        "kind of XML file.",
        "Check an ESI file, or add the Vendor element with the id that the EtherCAT Technology Group has assigned.",
        "<EtherCATInfo><Descriptions>...</Descriptions></EtherCATInfo>",
        {},
        true},
    Rule{
        "file-kind",
        Severity::Error,
        "a file is neither an ESI nor a KTL file",
        "The first bytes of the file are neither those of XML nor an item of the KTL format; or it is a KTL file where "
        "choices are to be made, which is possible in ESI files only.",
        "Nothing in the file is checked.",
        "Name the file that was meant. Where a pattern of the shell takes other files along, ignore this rule.",
        "ktl check *",
        {},
        true},
    Rule{"file-twice",
         Severity::Note,
         "a file is given more than once",
         "An argument names a file that an earlier one has named already, perhaps by another path or a link.",
         "Its devices count twice, and a conversion of the same arguments would write them twice.",
         "Give the file once, unless the machine has the devices twice.",
         "ktl check drive.xml ./drive.xml",
         {}},
    Rule{"identity-twice-in-call",
         Severity::Note,
         "a device has the identity of one in an earlier file",
         "A device of an ESI file has the same vendor, product code and revision as a device of an ESI file that was "
         "given before it.",
         "A configuration tool that has both files may take either description for a device that it finds on the bus, "
         "and the one that it takes may be the outdated one.",
         "Keep one of the files, or give the revision that has changed a number of its own.",
         "ktl check drive-2024.xml drive-2026.xml",
         {}},
};

} // namespace

RuleFamily fileRules()
{
    return rules;
}

const Rule& ruleOf(FileRule rule)
{
    return rules.at(static_cast<std::size_t>(rule));
}

Finding fileFinding(FileRule rule, const QString& text, xml::Place place)
{
    return {&ruleOf(rule), {}, 0, place, text};
}

} // namespace check
