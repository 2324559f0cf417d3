// foundWriter.cpp - docs/find.md has the columns and keys.
#include "cli/foundWriter.h"

#include "cli/messages.h"
#include "cli/streamName.h"
#include "model/valueTexts.h"
#include "show/csvWriter.h"
#include "text/oneLine.h"
#include "json/jsonWriter.h"

#include <QFile>

#include <ostream>

namespace cli {

namespace {

std::string kindOf(const find::Found& found)
{
    return found.kind == find::FoundKind::Device ? "device" : "module";
}

QString placeOf(const find::Found& found, bool isKtl)
{
    return isKtl ? QStringLiteral("0x%1").arg(found.place, 0, 16) : QString::number(found.place);
}

/// The name of a file, every byte of it.
std::string nameOf(const QString& path)
{
    return QFile::encodeName(shownName(path)).toStdString();
}

class LineWriter final : public FoundWriter
{
public:
    LineWriter(std::ostream& out, char end)
        : m_out(out)
        , m_end(end)
    {}

    void write(const QString& path, bool isKtl, const std::vector<find::Found>& found) override
    {
        // Between zero bytes a name can be what it is; on lines a line feed in it would make two of one.
        const std::string file = m_end == '\0' ? nameOf(path) : messageText(shownName(path));
        for (const find::Found& each : found) {
            m_out << identityOf(each).toStdString() << '\t' << column(each.type) << '\t' << column(each.name) << '\t'
                  << file << ':' << placeOf(each, isKtl).toStdString() << m_end;
        }
    }

private:
    static std::string column(const std::string& text)
    {
        return oneLine(QString::fromStdString(text), DrawingHints::BecomeBlanks).trimmed().toStdString();
    }

    std::ostream& m_out;
    char m_end;
};

class FileWriter final : public FoundWriter
{
public:
    FileWriter(std::ostream& out, char end, bool isTerminal)
        : m_out(out)
        , m_end(end)
        , m_isTerminal(isTerminal)
    {}

    void write(const QString& path, bool /*isKtl*/, const std::vector<find::Found>& /*found*/) override
    {
        m_out << (m_isTerminal ? messageText(shownName(path)) : nameOf(path)) << m_end;
    }

private:
    std::ostream& m_out;
    char m_end;
    bool m_isTerminal;
};

class JsonWriter final : public FoundWriter
{
public:
    explicit JsonWriter(std::ostream& out)
        : m_out(out)
        , m_json(out, layout)
    {}

    void begin() override
    {
        m_json.openObject();
        m_json.openList("found");
    }

    void write(const QString& path, bool isKtl, const std::vector<find::Found>& found) override
    {
        for (const find::Found& each : found) {
            m_json.openObject(json::Spread::OneLine);
            text("kind", kindOf(each));
            text("identity", identityOf(each).toStdString());
            number("vendor", each.vendor);
            number(each.kind == find::FoundKind::Device ? "product" : "ident", each.number);
            if (each.kind == find::FoundKind::Device)
                number("revision", each.revision);
            text("type", each.type);
            text("name", each.name);
            text("file", nameOf(path));
            number(isKtl ? "offset" : "line", static_cast<std::int64_t>(each.place));
            m_json.closeObject();
        }
    }

    void end() override
    {
        m_json.closeList();
        m_json.closeObject();
        m_out << '\n';
    }

private:
    static constexpr json::Layout layout{2, true};

    void text(std::string_view key, const std::string& value)
    {
        m_json.key(key);
        m_json.text(std::string_view(value));
    }
    void number(std::string_view key, std::int64_t value)
    {
        m_json.key(key);
        m_json.number(value);
    }

    std::ostream& m_out;
    json::Writer m_json;
};

class CsvFoundWriter final : public FoundWriter
{
public:
    explicit CsvFoundWriter(std::ostream& out)
        : m_csv(out, show::CsvForm::Plain)
    {}

    void begin() override
    {
        m_csv.writeRow({"kind", "vendor", "product", "revision", "type", "name", "file", "line", "offset"});
    }

    void write(const QString& path, bool isKtl, const std::vector<find::Found>& found) override
    {
        for (const find::Found& each : found) {
            const std::string place = placeOf(each, isKtl).toStdString();
            const bool isDevice = each.kind == find::FoundKind::Device;
            m_csv.writeRow({kindOf(each), numberText(each.vendor), numberText(each.number),
                            isDevice ? numberText(each.revision) : std::string(), each.type, each.name, nameOf(path),
                            isKtl ? std::string() : place, isKtl ? place : std::string()});
        }
    }

private:
    show::CsvWriter m_csv;
};

} // namespace

QString identityOf(const find::Found& found)
{
    return found.kind == find::FoundKind::Module
               ? hexNumber(found.number)
               : QStringLiteral("%1:%2:%3")
                     .arg(hexNumber(found.vendor), hexNumber(found.number), hexNumber(found.revision));
}

std::unique_ptr<FoundWriter> makeFoundWriter(FoundForm form, char end, bool isTerminal, std::ostream& out)
{
    switch (form) {
    case FoundForm::Json:
        return std::make_unique<JsonWriter>(out);
    case FoundForm::Csv:
        return std::make_unique<CsvFoundWriter>(out);
    case FoundForm::Files:
        return std::make_unique<FileWriter>(out, end, isTerminal);
    case FoundForm::Lines:
        break;
    }
    return std::make_unique<LineWriter>(out, end);
}

} // namespace cli
