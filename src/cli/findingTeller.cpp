#include "cli/findingTeller.h"

#include <algorithm>
#include <utility>

namespace cli {

FindingTeller::FindingTeller(const CheckRequest& request, SelectedDevices selected, Console& console)
    : m_request(request)
    , m_selected(std::move(selected))
    , m_writer(check::makeFindingWriter(request.form, console.results, request.rules))
{
    m_writer->begin();
}

void FindingTeller::refuse(std::vector<std::string> problems)
{
    m_outcome.problems = std::move(problems);
    m_outcome.isWhole = false;
    m_selected.emplace();
}

void FindingTeller::tell(const QString& path, check::CheckedFile file)
{
    const std::vector<check::UnitName>& units = file.findings.units;
    const auto isDevice = [](const check::UnitName& unit) { return unit.owner.kind == check::OwnerKind::Device; };
    file.firstDevice = m_devices + 1;
    m_devices += static_cast<std::size_t>(std::count_if(units.begin(), units.end(), isDevice));
    addComparison(path, file);
    if (m_selected.has_value())
        keepSelected(file.findings);
    ++m_file;
    m_outcome.counts.add(file.findings);
    m_outcome.isWhole = m_outcome.isWhole
                        && std::none_of(file.findings.list.begin(), file.findings.list.end(),
                                        [](const check::Finding& finding) { return finding.rule->isFault; });
    m_writer->write(file);
}

ExitCode FindingTeller::end()
{
    m_writer->end(m_outcome);
    if (!m_outcome.isWhole)
        return ExitCode::Unusable;
    return m_outcome.counts.reach(m_request.failOn) ? ExitCode::DoneWithFindings : ExitCode::Done;
}

bool FindingTeller::isAsked(check::FileRule rule) const
{
    return std::find(m_request.rules.begin(), m_request.rules.end(), &check::ruleOf(rule)) != m_request.rules.end();
}

/// The devices of a file that is given again are not compared: all would be told.
void FindingTeller::addComparison(const QString& path, check::CheckedFile& file)
{
    std::vector<check::Finding>& list = file.findings.list;
    if (m_given.add(path) > 1) {
        if (isAsked(check::FileRule::Twice))
            list.insert(list.begin(),
                        check::fileFinding(check::FileRule::Twice, QStringLiteral("the file is given more than once")));
    } else if (file.kind == check::FileKind::Esi && isAsked(check::FileRule::IdentityTwice)) {
        const std::vector<check::Finding> found =
            m_identities.add(QString::fromStdString(file.shownName), file.findings.units, file.firstDevice);
        const auto middle = static_cast<std::ptrdiff_t>(list.size());
        list.insert(list.end(), found.begin(), found.end());
        std::inplace_merge(list.begin(), list.begin() + middle, list.end(), check::isBefore);
    }
}

/// What is about the file or about a module is told only where no device is asked for.
void FindingTeller::keepSelected(check::Findings& findings) const
{
    const auto isLeftOut = [&](const auto& found) {
        const bool isOfDevice = found.owner.kind == check::OwnerKind::Device;
        return !found.rule->isFault && !(isOfDevice && m_selected->count({m_file, found.owner.index}) != 0);
    };
    const auto leaveOut = [&](auto& list) {
        list.erase(std::remove_if(list.begin(), list.end(), isLeftOut), list.end());
    };
    leaveOut(findings.list);
    leaveOut(findings.omissions);
}

} // namespace cli
