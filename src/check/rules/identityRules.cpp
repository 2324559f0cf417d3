// identityRules.cpp - who a device is.
#include "check/esiFacts.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>

namespace check {

namespace {

void checkVendor(const EsiFacts& facts, Report& report)
{
    if (facts.subject.file.Vendor_Id == 0)
        report.add(facts.vendor.placeKey(), QStringLiteral("the vendor id is missing or 0"));
}

/// Whether a device has something to exchange. A part without an EtherCAT controller has not, and no identity either.
bool isOnTheBus(const UnitFacts& unit)
{
    return unit.isDevice() && (!unit.syncManagers.empty() || !unit.pdos.empty() || unit.hasCoe);
}

void checkProduct(const UnitFacts& unit, Report& report)
{
    if (isOnTheBus(unit) && unit.product == 0)
        report.add(unit.where, QStringLiteral("the product code is missing or 0"));
}

void checkRevision(const UnitFacts& unit, Report& report)
{
    if (unit.isDevice() && unit.revision == 0)
        report.add(unit.where, QStringLiteral("the revision number is missing or 0"));
}

/// Tells the devices that have the identity of one before them.
void checkTwice(const EsiFacts& facts, Report& report)
{
    std::map<std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>, std::size_t> firstOnes;
    for (const UnitFacts& unit : facts.units) {
        if (!unit.isDevice() || unit.product == 0) // which is told anyway
            continue;
        const auto [first, isNew] = firstOnes.try_emplace({unit.vendor, unit.product, unit.revision}, unit.owner.index);
        if (!isNew)
            report.addAbout(unit.owner, unit.where,
                            QStringLiteral("device %1 of the file has the identity %2:%3:%4 too")
                                .arg(QString::number(first->second + 1), hexNumber(unit.vendor),
                                     hexNumber(unit.product), hexNumber(unit.revision)));
    }
}

void checkName(const UnitFacts& unit, Report& report)
{
    if (unit.name.empty() && !unit.isFromKtl)
        report.add(unit.where, QStringLiteral("the name is missing"));
}

bool isControl(char character)
{
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char deleteCharacter = 0x7F;
    const auto byte = static_cast<unsigned char>(character);
    return byte < firstPrintable || byte == deleteCharacter;
}

void checkNameCharacters(const UnitFacts& unit, Report& report)
{
    if (std::any_of(unit.name.begin(), unit.name.end(), isControl))
        report.add(unit.where, QStringLiteral("the name %1 holds control characters").arg(shown(unit.name)));
}

constexpr std::array rules{
    Rule{
        "vendor-id",
        Severity::Error,
        "the vendor id is missing or 0",
        "No child of the first Vendor element gives an id, or it is read as 0.",
        "The controller finds a device on the bus by vendor, product and revision. No maker has the vendor id 0, so no "
        "device of the file is found.",
        "Give the id that the maker got from the EtherCAT Technology Group.",
        "<Vendor><Name>Example</Name></Vendor>",
        {checkVendor, nullptr, nullptr}},
    Rule{
        "product-code",
        Severity::Warning,
        "the product code of a device is missing or 0",
        "The Type element of a device has no ProductCode, or one that is read as 0, and the device has sync managers, "
        "PDOs "
        "or CoE.",
        "The controller finds a device on the bus by vendor, product and revision. A device with the product code 0 is "
        "taken for another one, or for none.",
        "Give the product code that the EEPROM of the device holds.",
        R"(<Type RevisionNo="#x1">MB-C100</Type>)",
        {nullptr, nullptr, checkProduct}},
    Rule{"revision-number",
         Severity::Note,
         "the revision number of a device is missing or 0",
         "The Type element of a device has no RevisionNo, or one that is read as 0.",
         "Where the controller compares revisions, a device of a later revision is refused.",
         "Give the revision that the EEPROM of the device holds; 0 is right for a device that was never revised.",
         R"(<Type ProductCode="#x1001">MB-C100</Type>)",
         {nullptr, nullptr, checkRevision}},
    Rule{"identity-twice",
         Severity::Warning,
         "two devices of a file have the same identity",
         "A device has the vendor id, product code and revision number of one before it in the file. Devices without a "
         "product code are passed over.",
         "Which of the two descriptions is used for a device on the bus is left to chance.",
         "Give the devices different revisions, or take one of them out.",
         R"(<Type ProductCode="#x1001" RevisionNo="#x1">A</Type> ... <Type ProductCode="#x1001" )"
         R"(RevisionNo="#x1">B</Type>)",
         {checkTwice, nullptr, nullptr}},
    Rule{"name-missing",
         Severity::Warning,
         "a device or module has no name",
         "A device or module has no Name element, or its last one is empty.",
         "It shows as an empty line in lists, and nobody can choose it by its name.",
         "Give a name.",
         R"(<Device><Type ProductCode="#x1001">MB-C100</Type></Device>)",
         {nullptr, nullptr, checkName}},
    Rule{"name-control-characters",
         Severity::Warning,
         "a name holds control characters",
         "The name of a device or module holds control characters (0x00 to 0x1f, 0x7f), such as a line feed or a tab.",
         "Lists and messages show the name broken, and a search for it fails.",
         "Write the name on one line without tabs.",
         "<Name>Digital&#10;input</Name>",
         {nullptr, nullptr, checkNameCharacters}},
};

} // namespace

RuleFamily identityRules()
{
    return rules;
}

} // namespace check
