// identityRules.cpp - who a device is.
#include "check/ruleFamilies.h"
#include "check/report.h"
#include "check/unitFacts.h"

namespace check {

namespace {

void checkProduct(const UnitFacts& unit, Report& report)
{
    if (unit.isDevice() && unit.product == 0)
        report.add(unit.where, QStringLiteral("the product code is missing or 0"));
}

constexpr std::array rules{
    Rule{"product-code", Severity::Warning, "a device has no product code, or 0",
         "The Type element of a device has no ProductCode, or one that is read as 0.",
         "The controller finds a device on the bus by vendor, product and revision. No device has the product code 0, so "
         "it is refused when the bus starts.",
         "Give the product code that the EEPROM of the device holds.",
         "<Type RevisionNo=\"#x1\">MB-C100</Type>",
         {nullptr, nullptr, checkProduct}},
};

} // namespace

RuleFamily identityRules()
{
    return rules;
}

} // namespace check
