#include "check/checkedFile.h"

#include "text/shownText.h"

#include <algorithm>
#include <utility>

namespace check {

namespace {

std::pair<OwnerKind, std::size_t> orderOf(const Owner& owner)
{
    return {owner.kind, owner.index};
}

} // namespace

const UnitName* unitOf(const CheckedFile& file, const Owner& owner)
{
    const std::vector<UnitName>& units = file.findings.units;
    const auto found =
        std::lower_bound(units.begin(), units.end(), owner, [](const UnitName& unit, const Owner& wanted) {
            return orderOf(unit.owner) < orderOf(wanted);
        });
    return found != units.end() && orderOf(found->owner) == orderOf(owner) ? &*found : nullptr;
}

std::size_t numberOf(const CheckedFile& file, const Owner& owner)
{
    return owner.kind == OwnerKind::Device ? file.firstDevice + owner.index : owner.index + 1;
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
    return label + QLatin1Char(' ') + shownText(QString::fromStdString(unit->name));
}

QString labelledText(const CheckedFile& file, const Finding& finding)
{
    const QString label = labelOf(file, finding.owner);
    return label.isEmpty() ? finding.text : label + QStringLiteral(": ") + finding.text;
}

void FindingCounts::add(const Findings& findings)
{
    ++files;
    for (const Finding& finding : findings.list) {
        errors += finding.rule->severity == Severity::Error ? 1 : 0;
        warnings += finding.rule->severity == Severity::Warning ? 1 : 0;
        notes += finding.rule->severity == Severity::Note ? 1 : 0;
    }
}

bool FindingCounts::reach(Severity threshold) const
{
    return errors > 0 || (warnings > 0 && reaches(Severity::Warning, threshold))
           || (notes > 0 && reaches(Severity::Note, threshold));
}

} // namespace check
