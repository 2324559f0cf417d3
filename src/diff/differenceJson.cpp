// differenceJson.cpp - differences as JSON; docs/diff.md has the keys.
#include "diff/differenceWriter.h"
#include "diff/words.h"
#include "json/jsonWriter.h"

#include <charconv>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace diff {

namespace {

constexpr json::Layout layout{2, true};

class JsonWriter : public DifferenceWriter
{
public:
    JsonWriter(std::ostream& out, WrittenFile before, WrittenFile after)
        : m_out(out)
        , m_json(out, layout)
        , m_before(std::move(before))
        , m_after(std::move(after))
    {}

    void begin() override
    {
        m_json.openObject();
        writeFile("before", m_before);
        writeFile("after", m_after);
        m_json.openList("devices");
    }

    void write(const ComparedDevices& compared) override
    {
        if (compared.differences.empty() && compared.problem.isEmpty())
            return;
        m_json.openObject();
        writeDevice("before", compared.before, m_before);
        writeDevice("after", compared.after, m_after);
        if (!compared.problem.isEmpty())
            writeText("problem", compared.problem.toStdString());
        m_json.openList("differences");
        for (const Difference& difference : compared.differences)
            writeDifference(difference);
        m_json.closeList();
        m_json.closeObject();
    }

    void end(const DifferenceCounts& counts) override
    {
        m_json.closeList();
        m_json.openObject("summary", json::Spread::OneLine);
        writeNumber("breaking", static_cast<std::int64_t>(counts.breaking));
        writeNumber("behaviour", static_cast<std::int64_t>(counts.behaviour));
        writeNumber("text", static_cast<std::int64_t>(counts.text));
        m_json.closeObject();
        m_json.closeObject();
        m_out << '\n';
    }

private:
    void writeText(std::string_view key, std::string_view value)
    {
        m_json.key(key);
        m_json.text(value);
    }

    void writeNumber(std::string_view key, std::int64_t number)
    {
        m_json.key(key);
        m_json.number(number);
    }

    void writeFile(std::string_view key, const WrittenFile& file)
    {
        m_json.openObject(key, json::Spread::OneLine);
        writeText("file", file.name);
        m_json.key("kind");
        if (file.isThere)
            m_json.text(std::string_view(file.source->isKtl() ? "ktl" : "esi"));
        else
            m_json.null();
        m_json.closeObject();
    }

    /// "line" or "offset".
    void writePlace(const WrittenFile& file, facts::Where where)
    {
        const FilePlace place = file.source->placeOf(where);
        writeNumber(place.isLine ? "line" : "offset", place.number);
    }

    void writeDevice(std::string_view key, const facts::UnitFacts* device, const WrittenFile& file)
    {
        m_json.key(key);
        if (device == nullptr) {
            m_json.null();
            return;
        }
        m_json.openObject(json::Spread::OneLine);
        writeText("identity", identityWords(*device));
        writeText("type", device->type);
        writeText("name", device->name);
        writePlace(file, device->where);
        m_json.closeObject();
    }

    /// A number that is too large for JSON's readers is a text.
    void writeValue(std::string_view key, const Value& value)
    {
        m_json.key(key);
        std::int64_t number = 0;
        const char* const end = value.text.data() + value.text.size();
        if (!value.isThere())
            m_json.null();
        else if (value.kind == ValueKind::Number && std::from_chars(value.text.data(), end, number).ec == std::errc())
            m_json.number(number);
        else
            m_json.text(value.text);
    }

    void writeSide(std::string_view key, const std::optional<facts::Where>& where, const WrittenFile& file)
    {
        m_json.key(key);
        if (!where.has_value()) {
            m_json.null();
            return;
        }
        m_json.openObject(json::Spread::OneLine);
        writePlace(file, *where);
        m_json.closeObject();
    }

    void writeDifference(const Difference& difference)
    {
        m_json.openObject();
        writeText("weight", nameOf(difference.weight));
        writeText("change", nameOf(difference.change));
        writeText("area", nameOf(difference.spot.area));
        writeText("part", difference.spot.part);
        if (!difference.key.empty())
            writeText("value", difference.key);
        writeValue("before", difference.before);
        writeValue("after", difference.after);
        writeSide("placeBefore", difference.spot.before, m_before);
        writeSide("placeAfter", difference.spot.after, m_after);
        m_json.closeObject();
    }

    std::ostream& m_out;
    json::Writer m_json;
    const WrittenFile m_before;
    const WrittenFile m_after;
};

} // namespace

std::unique_ptr<DifferenceWriter> makeJsonWriter(std::ostream& out, const WrittenFile& before, const WrittenFile& after)
{
    return std::make_unique<JsonWriter>(out, before, after);
}

} // namespace diff
