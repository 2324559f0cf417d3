// imageJson.cpp - process images as JSON; docs/image.md has the keys.
#include "image/imageWords.h"
#include "image/imageWriters.h"
#include "show/showWords.h"
#include "json/jsonWriter.h"

#include <ostream>

namespace image {

namespace {

constexpr json::Layout layout{2, true};

class ImageJsonWriter final : public Writer
{
public:
    explicit ImageJsonWriter(std::ostream& out)
        : m_out(out)
        , m_json(out, layout)
    {}

    void begin() override
    {
        m_json.openObject();
        m_json.openList("files");
    }

    void beginFile(const File& file) override
    {
        m_json.openObject();
        text("file", file.name);
        text("kind", file.isKtl ? "ktl" : "esi");
        m_json.openList("devices");
    }

    void endFile() override
    {
        m_json.closeList();
        m_json.closeObject();
    }

    void write(const Device& device) override
    {
        m_json.openObject();
        number("number", static_cast<std::int64_t>(device.number));
        text("identity", show::identityText(device.vendor, device.product, device.revision));
        number("vendor", device.vendor);
        number("product", device.product);
        number("revision", device.revision);
        text("type", device.type);
        text("name", device.name);
        flag("isComplete", device.isComplete);
        m_json.openList("notes");
        for (const std::string& note : device.notes)
            m_json.text(std::string_view(note));
        m_json.closeList();
        m_json.openList("syncManagers");
        for (const Area& area : device.areas)
            write(area);
        m_json.closeList();
        m_json.closeObject();
    }

    void end() override
    {
        m_json.closeList();
        m_json.closeObject();
        m_out << '\n';
    }

private:
    void write(const Area& area)
    {
        m_json.openObject();
        number("number", area.number);
        text("direction", show::dataDirection(area.isInput));
        number("usedBits", area.bits);
        number("usedBytes", area.bytes);
        numberOrNull("length", area.length, area.length >= 0);
        numberOrNull("maxLength", area.maxLength, area.maxLength > 0);
        flag("exceedsMaxLength", area.isTooLong());
        m_json.openList("pdos");
        for (const Pdo& pdo : area.pdos)
            write(pdo);
        m_json.closeList();
        writePadding(area);
        m_json.closeObject();
    }

    void writePadding(const Area& area)
    {
        m_json.key("padding");
        if (!area.padding.has_value()) {
            m_json.null();
            return;
        }
        m_json.openObject(json::Spread::OneLine);
        writePlace(area.padding->bit, area.padding->bits);
        m_json.closeObject();
    }

    void write(const Pdo& pdo)
    {
        m_json.openObject();
        number("index", pdo.index);
        text("name", pdo.name);
        numberOrNull("slot", std::int64_t{pdo.place} + 1, pdo.place >= 0);
        writePlace(pdo.bit, pdo.bits);
        m_json.openList("entries");
        for (const Row& row : pdo.rows)
            write(row);
        m_json.closeList();
        m_json.closeObject();
    }

    void write(const Row& row)
    {
        m_json.openObject(json::Spread::OneLine);
        text("kind", kindName(row.kind));
        writePlace(row.bit, row.bits);
        number("index", row.index);
        number("subIndex", row.subIndex);
        text("name", row.name);
        text("type", row.type);
        number("link", row.link);
        text("linkName", show::linkWords(row.link));
        m_json.closeObject();
    }

    void writePlace(std::int64_t bit, std::int64_t bits)
    {
        number("byte", facts::byteOf(bit));
        number("bit", facts::bitInByte(bit));
        number("bitLength", bits);
    }

    void text(std::string_view key, std::string_view value)
    {
        m_json.key(key);
        m_json.text(value);
    }

    void flag(std::string_view key, bool value)
    {
        m_json.key(key);
        m_json.flag(value);
    }

    void number(std::string_view key, std::int64_t value) { numberOrNull(key, value, true); }

    void numberOrNull(std::string_view key, std::int64_t value, bool isKnown)
    {
        m_json.key(key);
        if (isKnown)
            m_json.number(value);
        else
            m_json.null();
    }

    std::ostream& m_out;
    json::Writer m_json;
};

} // namespace

std::unique_ptr<Writer> makeJsonWriter(std::ostream& out)
{
    return std::make_unique<ImageJsonWriter>(out);
}

} // namespace image
