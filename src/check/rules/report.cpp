#include "check/rules/report.h"

#include <algorithm>

namespace check {

void Report::turnTo(const Rule& rule, const Owner& owner)
{
    m_rule = &rule;
    m_owner = owner;
    m_ofRule.clear();
}

void Report::add(Where where, const QString& text)
{
    add({m_rule, m_owner, where, {}, text});
}

void Report::add(const xml::Place& place, const QString& text)
{
    add({m_rule, m_owner, 0, place, text});
}

void Report::addAbout(const Owner& owner, Where where, const QString& text)
{
    add({m_rule, owner, where, {}, text});
}

void Report::add(Finding finding)
{
    if (++m_ofRule[finding.owner] > maxOfRule || m_findings.list.size() >= maxOfFile)
        omit(finding.owner, 1);
    else
        m_findings.list.push_back(std::move(finding));
}

void Report::omit(const Owner& owner, std::size_t count)
{
    std::vector<Omission>& omissions = m_findings.omissions;
    if (count == 0)
        return;
    if (!omissions.empty() && omissions.back().rule == m_rule && omissions.back().owner == owner)
        omissions.back().count += count;
    else
        omissions.push_back({m_rule, owner, count});
}

Findings Report::take()
{
    Findings taken = std::exchange(m_findings, {});
    std::stable_sort(taken.list.begin(), taken.list.end(),
                     [](const Finding& left, const Finding& right) { return left.where < right.where; });
    return taken;
}

} // namespace check
