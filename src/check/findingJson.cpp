// findingJson.cpp - findings as JSON; docs/check.md has the keys.
#include "check/findingWriter.h"
#include "model/valueTexts.h"
#include "json/jsonWriter.h"

#include <ostream>

namespace check {

namespace {

constexpr json::Layout layout{2, true};

std::string_view nameOf(FileKind kind)
{
    return kind == FileKind::Esi ? "esi" : "ktl";
}

class JsonWriter : public FindingWriter
{
public:
    explicit JsonWriter(std::ostream& out)
        : m_out(out)
        , m_json(out, layout)
    {}

    void begin() override
    {
        m_json.openObject();
        m_json.openList("files");
    }

    void write(const CheckedFile& file) override
    {
        m_json.openObject();
        m_json.key("file");
        m_json.text(file.name);
        m_json.key("kind");
        if (file.kind == FileKind::Unknown)
            m_json.null();
        else
            m_json.text(nameOf(file.kind));
        m_json.openList("findings");
        for (const Finding& finding : file.findings.list)
            write(file, finding);
        m_json.closeList();
        number("omitted", omittedIn(file.findings));
        m_json.closeObject();
    }

    void end(const CheckOutcome& outcome) override
    {
        const FindingCounts& counts = outcome.counts;
        m_json.closeList();
        m_json.openList("problems");
        for (const std::string& problem : outcome.problems)
            m_json.text(problem);
        m_json.closeList();
        m_json.openObject("summary", json::Spread::OneLine);
        number("files", counts.files);
        number("errors", counts.errors);
        number("warnings", counts.warnings);
        number("notes", counts.notes);
        m_json.closeObject();
        m_json.closeObject();
        m_out << '\n';
    }

private:
    void write(const CheckedFile& file, const Finding& finding)
    {
        m_json.openObject(json::Spread::OneLine);
        m_json.key("rule");
        m_json.text(finding.rule->code);
        m_json.key("severity");
        m_json.text(check::nameOf(finding.rule->severity));
        numberOrNull("line", finding.place.line, finding.place.line > 0);
        numberOrNull("column", finding.place.column, finding.place.column > 0);
        numberOrNull("offset", finding.where, hasOffsets(file.kind));
        writeDevice(file, finding.owner);
        writeModule(file, finding.owner);
        m_json.key("text");
        m_json.text(finding.text);
        m_json.closeObject();
    }

    void writeDevice(const CheckedFile& file, const Owner& owner)
    {
        writeUnit("device", OwnerKind::Device, file, owner, [this](const UnitName& unit) {
            for (const auto& [key, value] : {std::pair{"vendor", unit.vendor}, std::pair{"product", unit.product},
                                             std::pair{"revision", unit.revision}}) {
                m_json.key(key);
                m_json.text(hexNumber(value));
            }
        });
    }

    void writeModule(const CheckedFile& file, const Owner& owner)
    {
        writeUnit("module", OwnerKind::Module, file, owner, [](const UnitName& /*unit*/) {});
    }

    /// The device or module that a finding is about, or null if it is not about one of that kind.
    /// @param writeMore  writes what comes after number and name
    template<typename More>
    void writeUnit(std::string_view key, OwnerKind kind, const CheckedFile& file, const Owner& owner, More writeMore)
    {
        m_json.key(key);
        const UnitName* const unit = owner.kind == kind ? unitOf(file, owner) : nullptr;
        if (unit == nullptr)
            return m_json.null();
        m_json.openObject(json::Spread::OneLine);
        number("number", numberOf(file, owner));
        m_json.key("name");
        m_json.text(beginningOfName(*unit));
        writeMore(*unit);
        m_json.closeObject();
    }

    void number(std::string_view key, std::size_t value)
    {
        m_json.key(key);
        m_json.number(static_cast<std::int64_t>(value));
    }

    void numberOrNull(std::string_view key, std::int64_t value, bool isThere)
    {
        m_json.key(key);
        if (isThere)
            m_json.number(value);
        else
            m_json.null();
    }

    std::ostream& m_out;
    json::Writer m_json;
};

} // namespace

std::unique_ptr<FindingWriter> makeJsonWriter(std::ostream& out)
{
    return std::make_unique<JsonWriter>(out);
}

} // namespace check
