// findingLines.cpp - findings as lines, as compilers write them.
#include "check/findingWriter.h"
#include "check/unitLabels.h"
#include "text/oneLine.h"

#include <ostream>

namespace check {

namespace {

/// A count with its noun: "1 error", "2 errors".
/// Where a finding is, with the colon after it: "1204:9:", "0x1f4:"; empty where that is the file.
QString placeOf(const CheckedFile& file, const Finding& finding)
{
    if (hasOffsets(file.kind))
        return QStringLiteral("0x%1:").arg(finding.where, 0, 16);
    if (finding.place.line == 0)
        return {};
    return finding.place.column == 0 ? QStringLiteral("%1:").arg(finding.place.line)
                                     : QStringLiteral("%1:%2:").arg(finding.place.line).arg(finding.place.column);
}

class LineWriter : public FindingWriter
{
public:
    LineWriter(std::ostream& out, bool hasSummary)
        : m_out(out)
        , m_hasSummary(hasSummary)
    {}

    void write(const CheckedFile& file) override
    {
        for (const Finding& finding : file.findings.list)
            writeLine(file, placeOf(file, finding), finding.rule->severity,
                      labelledText(file, finding)
                          + QStringLiteral(" [%1]").arg(
                              QLatin1String(finding.rule->code.data(), static_cast<int>(finding.rule->code.size()))));
        if (const std::size_t omitted = omittedIn(file.findings); omitted > 0)
            writeLine(file, {}, Severity::Note, omissionText(omitted));
        if (m_hasSummary)
            m_out << std::flush; // somebody waits
    }

    void end(const CheckOutcome& outcome) override
    {
        const FindingCounts& counts = outcome.counts;
        if (m_hasSummary && outcome.problems.empty())
            m_out << counted(static_cast<std::int64_t>(counts.errors), "error").toStdString() << ", "
                  << counted(static_cast<std::int64_t>(counts.warnings), "warning").toStdString() << ", "
                  << counted(static_cast<std::int64_t>(counts.notes), "note").toStdString() << " in "
                  << counted(static_cast<std::int64_t>(counts.files), "file").toStdString() << '\n';
    }

private:
    void writeLine(const CheckedFile& file, const QString& place, Severity severity, const QString& text)
    {
        m_out << file.shownName << ':' << place.toStdString() << ' ' << nameOf(severity) << ": "
              << oneLine(text, DrawingHints::BecomeBlanks).trimmed().toStdString() << '\n';
    }

    std::ostream& m_out;
    bool m_hasSummary;
};

} // namespace

std::unique_ptr<FindingWriter> makeLineWriter(std::ostream& out, bool hasSummary)
{
    return std::make_unique<LineWriter>(out, hasSummary);
}

std::unique_ptr<FindingWriter> makeFindingWriter(FindingForm form, std::ostream& out,
                                                 const std::vector<const Rule*>& rules)
{
    switch (form) {
    case FindingForm::Json:
        return makeJsonWriter(out);
    case FindingForm::Sarif:
        return makeSarifWriter(out, rules);
    case FindingForm::Lines:
    case FindingForm::LinesAndSummary:
        break;
    }
    return makeLineWriter(out, form == FindingForm::LinesAndSummary);
}

} // namespace check
