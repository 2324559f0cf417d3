// findingSarif.cpp - findings as SARIF 2.1.0, the form in which code hosts take them.
#include "check/findingWriter.h"
#include "model/version.h"
#include "json/jsonWriter.h"

#include <ostream>
#include <string>
#include <unordered_map>

namespace check {

namespace {

constexpr json::Layout layout{2, true};

/// A rule's help in Markdown.
std::string markdownOf(const Rule& rule)
{
    const std::string fence = "```";
    return std::string(rule.what) + "\n\n**Why it matters:** " + std::string(rule.why) + "\n\n**What to do:** "
           + std::string(rule.remedy) + "\n\n**Example:**\n\n" + fence + '\n' + std::string(rule.example) + '\n' + fence
           + '\n';
}

/// The same without marks.
std::string helpOf(const Rule& rule)
{
    return std::string(rule.what) + "\n\nWhy it matters: " + std::string(rule.why)
           + "\n\nWhat to do: " + std::string(rule.remedy) + "\n\nExample:\n\n" + std::string(rule.example) + '\n';
}

class SarifWriter : public FindingWriter
{
public:
    SarifWriter(std::ostream& out, const std::vector<const Rule*>& rules)
        : m_out(out)
        , m_json(out, layout)
        , m_rules(rules)
    {
        for (std::size_t index = 0; index < rules.size(); ++index)
            m_indexes.emplace(rules[index], index);
    }

    void begin() override
    {
        m_json.openObject();
        text("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
        text("version", "2.1.0");
        m_json.openList("runs");
        m_json.openObject();
        writeTool();
        text("columnKind", "unicodeCodePoints");
        m_json.openList("results");
    }

    void write(const CheckedFile& file) override
    {
        for (const Finding& finding : file.findings.list)
            writeResult(file, finding);
        if (const std::size_t omitted = omittedIn(file.findings); omitted > 0)
            m_omissions.push_back(file.name + ": " + omissionText(omitted).toStdString());
    }

    void end(const CheckOutcome& outcome) override
    {
        m_json.closeList();
        m_json.openList("invocations");
        m_json.openObject();
        m_json.key("executionSuccessful");
        m_json.flag(outcome.isWhole);
        m_json.openList("toolExecutionNotifications");
        for (const std::string& problem : outcome.problems)
            writeNotification("error", problem);
        for (const std::string& omission : m_omissions)
            writeNotification("note", omission);
        m_json.closeList();
        m_json.closeObject();
        m_json.closeList();
        m_json.closeObject();
        m_json.closeList();
        m_json.closeObject();
        m_out << '\n';
    }

private:
    void writeNotification(std::string_view level, std::string_view what)
    {
        m_json.openObject(json::Spread::OneLine);
        text("level", level);
        message("message", what);
        m_json.closeObject();
    }

    void writeTool()
    {
        m_json.openObject("tool");
        m_json.openObject("driver");
        text("name", "ktl");
        text("version", std::string_view(versionText).substr(1)); // without the letter before the number
        m_json.openList("rules");
        for (const Rule* const rule : m_rules)
            writeRule(*rule);
        m_json.closeList();
        m_json.closeObject();
        m_json.closeObject();
    }

    void writeRule(const Rule& rule)
    {
        m_json.openObject();
        text("id", rule.code);
        message("shortDescription", rule.summary);
        message("fullDescription", std::string(rule.what) + ' ' + std::string(rule.why));
        m_json.openObject("help");
        text("text", helpOf(rule));
        text("markdown", markdownOf(rule));
        m_json.closeObject();
        m_json.openObject("defaultConfiguration", json::Spread::OneLine);
        text("level", nameOf(rule.severity));
        m_json.closeObject();
        m_json.closeObject();
    }

    void writeResult(const CheckedFile& file, const Finding& finding)
    {
        m_json.openObject();
        text("ruleId", finding.rule->code);
        if (const auto index = m_indexes.find(finding.rule); index != m_indexes.end())
            number("ruleIndex", static_cast<std::int64_t>(index->second));
        text("level", nameOf(finding.rule->severity));
        message("message", labelledText(file, finding).toStdString());
        m_json.openList("locations");
        m_json.openObject();
        m_json.openObject("physicalLocation");
        m_json.openObject("artifactLocation", json::Spread::OneLine);
        if (file.uri.empty())
            message("description", file.name);
        else
            text("uri", file.uri);
        m_json.closeObject();
        writeRegion(file, finding);
        m_json.closeObject();
        m_json.closeObject();
        m_json.closeList();
        m_json.closeObject();
    }

    /// Nothing for a finding that is about the file.
    void writeRegion(const CheckedFile& file, const Finding& finding)
    {
        if (!hasOffsets(file.kind) && finding.place.line == 0)
            return;
        m_json.openObject("region", json::Spread::OneLine);
        if (hasOffsets(file.kind))
            number("byteOffset", finding.where);
        else
            number("startLine", finding.place.line);
        if (finding.place.column > 0)
            number("startColumn", finding.place.column);
        m_json.closeObject();
    }

    void text(std::string_view key, std::string_view value)
    {
        m_json.key(key);
        m_json.text(value);
    }

    void message(std::string_view key, std::string_view value)
    {
        m_json.openObject(key, json::Spread::OneLine);
        text("text", value);
        m_json.closeObject();
    }

    void number(std::string_view key, std::int64_t value)
    {
        m_json.key(key);
        m_json.number(value);
    }

    std::ostream& m_out;
    json::Writer m_json;
    std::vector<const Rule*> m_rules;
    std::unordered_map<const Rule*, std::size_t> m_indexes;
    std::vector<std::string> m_omissions;
};

} // namespace

std::unique_ptr<FindingWriter> makeSarifWriter(std::ostream& out, const std::vector<const Rule*>& rules)
{
    return std::make_unique<SarifWriter>(out, rules);
}

} // namespace check
