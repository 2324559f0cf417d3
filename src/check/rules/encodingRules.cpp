// encodingRules.cpp - whether the bytes of a file are what it declares.
#include "check/esiFacts.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"

namespace check {

namespace {

template<bool IsLossy> void checkEncoding(const EsiFacts& facts, Report& report)
{
    const std::optional<EncodingFault>& fault = facts.subject.encodingFault;
    if (fault.has_value() && fault->isLossy == IsLossy)
        report.add(fault->place, fault->text);
}

constexpr std::array rules{
    Rule{"file-encoding",
         Severity::Warning,
         "the contents contradict the declared encoding",
         "The declaration names an encoding with one byte for each character, but all characters outside ASCII are in "
         "UTF-8; or the first bytes, such as a byte order mark, are those of another encoding than the declared one.",
         "Each program believes something else, the declaration or the bytes. Names with umlauts, degree signs or "
         "Chinese characters become a jumble in one of them, and what is compared by name no longer matches.",
         R"(Declare the encoding that the editor saves in: <?xml version="1.0" encoding="UTF-8"?>.)",
         R"(<?xml version="1.0" encoding="ISO-8859-1"?>)"
         "\n<EtherCATInfo>... <Name>K\u00fchler</Name>, saved as UTF-8",
         {checkEncoding<false>, nullptr, nullptr}},
    Rule{"file-encoding-lossy",
         Severity::Error,
         "bytes that are no characters in the encoding of the file",
         "The file is read as UTF-8, because it declares that or nothing, and a byte of it does not belong to a valid "
         "UTF-8 character. The first such place is told.",
         "The character is lost: readers put a replacement for it or refuse the file as a whole, as XML demands.",
         "Save the file as UTF-8, or declare the encoding that it is in, often windows-1252.",
         R"(<?xml version="1.0" encoding="UTF-8"?>)"
         "\n<EtherCATInfo>... <Name>K\u00fchler</Name>, saved as windows-1252",
         {checkEncoding<true>, nullptr, nullptr}},
};

} // namespace

RuleFamily encodingRules()
{
    return rules;
}

} // namespace check
