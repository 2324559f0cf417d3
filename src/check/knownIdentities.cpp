#include "check/knownIdentities.h"

#include "check/rules/fileRules.h"
#include "model/valueTexts.h"

namespace check {

std::vector<Finding> KnownIdentities::add(const QString& file, const std::vector<UnitName>& units,
                                          std::size_t firstNumber)
{
    std::vector<Finding> findings;
    m_files.push_back(file);
    for (const UnitName& unit : units) {
        if (unit.owner.kind != OwnerKind::Device || unit.product == 0)
            continue;
        const Holder own{firstNumber + unit.owner.index, m_files.size() - 1};
        const auto [known, isNew] = m_holders.try_emplace({unit.vendor, unit.product, unit.revision}, own);
        if (isNew || known->second.file == own.file)
            continue;
        const QString text = QStringLiteral("its identity %1:%2:%3 is also that of device %4 in %5")
                                 .arg(hexNumber(unit.vendor), hexNumber(unit.product), hexNumber(unit.revision),
                                      QString::number(known->second.number), m_files[known->second.file]);
        findings.push_back({&ruleOf(FileRule::IdentityTwice), unit.owner, unit.where, unit.place, text});
    }
    return findings;
}

} // namespace check
