#include "check/report.h"

#include <algorithm>

namespace check {

void Report::turnTo(const Rule& rule, const Owner& owner)
{
    m_rule = &rule;
    m_owner = owner;
    m_ofRule = 0;
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
    ++m_ofRule;
    if (m_ofRule > maxOfRule)
        ++m_findings.omitted;
    else
        m_findings.list.push_back(std::move(finding));
}

Findings Report::take()
{
    Findings taken = std::exchange(m_findings, {});
    std::stable_sort(taken.list.begin(), taken.list.end(),
                     [](const Finding& left, const Finding& right) { return left.where < right.where; });
    return taken;
}

} // namespace check
