#include "check/checkedFile.h"

#include "check/rules/report.h"
#include "check/unitLabels.h"

#include <algorithm>
#include <utility>

namespace check {

namespace {} // namespace

const UnitName* unitOf(const CheckedFile& file, const Owner& owner)
{
    const std::vector<UnitName>& units = file.findings.units;
    const auto found = std::lower_bound(units.begin(), units.end(), owner,
                                        [](const UnitName& unit, const Owner& wanted) { return unit.owner < wanted; });
    return found != units.end() && found->owner == owner ? &*found : nullptr;
}

std::size_t numberOf(const CheckedFile& file, const Owner& owner)
{
    return owner.kind == OwnerKind::Device ? file.firstDevice + owner.index : owner.index + 1;
}

std::string_view beginningOfName(const UnitName& unit)
{
    constexpr std::size_t enough = 400; // bytes
    const std::string_view name = unit.name;
    const auto isRestOfCharacter = [&](std::size_t at) {
        return (static_cast<unsigned char>(name[at]) & 0xC0U) == 0x80U;
    };
    if (name.size() <= enough)
        return name;
    std::size_t end = enough;
    while (end > 0 && isRestOfCharacter(end))
        --end;
    return name.substr(0, end);
}

QString labelOf(const CheckedFile& file, const Owner& owner)
{
    if (owner.kind == OwnerKind::File)
        return {};
    const UnitName* const unit = unitOf(file, owner);
    const QString kind = owner.kind == OwnerKind::Device ? QStringLiteral("device") : QStringLiteral("module");
    QString label = QStringLiteral("%1 %2").arg(kind, QString::number(numberOf(file, owner)));
    if (unit == nullptr || (unit->name.empty() && file.kind == FileKind::Ktl))
        return label; // few devices of KTL files have a name
    return label + QLatin1Char(' ') + shown(unit->name);
}

QString labelledText(const CheckedFile& file, const Finding& finding)
{
    const QString label = labelOf(file, finding.owner);
    return label.isEmpty() ? finding.text : label + QStringLiteral(": ") + finding.text;
}

std::size_t omittedIn(const Findings& findings)
{
    std::size_t omitted = 0;
    for (const Omission& omission : findings.omissions)
        omitted += omission.count;
    return omitted;
}

QString omissionText(std::size_t omitted)
{
    const QString counted =
        omitted == 1 ? QStringLiteral("1 more finding is") : QStringLiteral("%1 more findings are").arg(omitted);
    return QStringLiteral("%1 left out: of one rule, the first %2 about a device, module or file are told")
        .arg(counted)
        .arg(Report::maxOfRule);
}

void FindingCounts::add(const Findings& findings)
{
    const auto count = [this](const Rule& rule, std::size_t number) {
        switch (rule.severity) {
        case Severity::Error:
            errors += number;
            break;
        case Severity::Warning:
            warnings += number;
            break;
        case Severity::Note:
            notes += number;
            break;
        }
    };
    ++files;
    for (const Finding& finding : findings.list)
        count(*finding.rule, 1);
    for (const Omission& omission : findings.omissions)
        count(*omission.rule, omission.count);
}

bool FindingCounts::reach(Severity threshold) const
{
    return errors > 0 || (warnings > 0 && reaches(Severity::Warning, threshold))
           || (notes > 0 && reaches(Severity::Note, threshold));
}

} // namespace check
