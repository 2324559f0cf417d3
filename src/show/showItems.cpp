#include "show/showItems.h"

#include "show/showWords.h"
#include "show/textColumns.h"
#include "text/oneLine.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace show {

namespace {

constexpr std::size_t wordSize = sizeof(std::uint32_t);

/// An item that is being shown. It refers to the item.
struct ShownItem
{
    explicit ShownItem(const KtlFileItem& shown)
        : item(shown)
        , layout(layoutOf(shown.type))
        , parts(partsOf(layout, shown.bytes))
    {}

    [[nodiscard]] std::size_t recordOffset(std::size_t record) const
    {
        return parts.headEnd + record * layout.record.size();
    }

    /// Number of 32-bit words between records and fill.
    [[nodiscard]] std::size_t words() const
    {
        return layout.tail == KtlTail::Text ? 0 : (parts.tailEnd - parts.recordsEnd) / wordSize;
    }

    [[nodiscard]] std::uint32_t word(std::size_t index) const
    {
        return item.bytes.at<std::uint32_t>(parts.recordsEnd + index * wordSize);
    }

    /// Empty for an item without text.
    [[nodiscard]] std::string text() const
    {
        std::string all;
        for (std::size_t offset = parts.recordsEnd; layout.tail == KtlTail::Text && offset < parts.tailEnd; ++offset)
            all.push_back(item.bytes.at<char>(offset));
        return all;
    }

    const KtlFileItem& item;
    const KtlItemLayout& layout;
    KtlItemParts parts;
};

Value fieldValue(const ItemBytes& bytes, std::size_t record, const KtlField& field)
{
    if (field.count == 1)
        return bothForms(numberIn(bytes, record, field));
    std::vector<Value> values;
    for (std::size_t index = 0; index < field.count; ++index)
        values.push_back(decimal(numberIn(bytes, record, field, index)));
    return listOf(std::move(values));
}

/// The fields of a head or record that are there.
/// @param end  offset after them in the item
Object fieldMembers(const ItemBytes& bytes, const KtlFields& fields, std::size_t record, std::size_t end)
{
    Object members;
    for (const KtlField& field : fields)
        if (record + field.end() <= end)
            members.push_back({field.name, fieldValue(bytes, record, field)});
    return members;
}

Value recordList(const ShownItem& shown)
{
    return {List{shown.parts.records, [shown](std::size_t index) -> Value {
                     const std::size_t record = shown.recordOffset(index);
                     return {fieldMembers(shown.item.bytes, shown.layout.record, record, shown.parts.recordsEnd)};
                 }}};
}

Value wordList(const ShownItem& shown)
{
    return {List{shown.words(), [shown](std::size_t index) { return hexadecimal(shown.word(index)); }}};
}

/// Lines of an item for people, one below the other.
class ItemLines
{
public:
    ItemLines(std::ostream& out, const ShownItem& shown, std::size_t lineWidth)
        : m_out(out)
        , m_shown(shown)
        , m_lineWidth(lineWidth)
    {
        for (const KtlFields& fields : {shown.layout.head, shown.layout.record})
            for (const KtlField& field : fields)
                m_nameWidth = std::max(m_nameWidth, std::string(field.name).size());
    }

    void writeFields(const KtlFields& fields, std::size_t record, std::size_t end)
    {
        for (const KtlField& field : fields)
            if (record + field.end() <= end)
                line(record + field.offset, field.name, fieldText(record, field));
    }

    void writeText(const std::string& text)
    {
        std::size_t begin = 0;
        while (begin < text.size()) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            line(m_shown.parts.recordsEnd + begin, "text",
                 oneLine(text.substr(begin, end - begin), DrawingHints::AreKept));
            begin = end + 1;
        }
    }

    void writeWords(const char* name)
    {
        for (std::size_t index = 0; index < m_shown.words(); ++index) {
            const std::uint32_t word = m_shown.word(index);
            line(m_shown.parts.recordsEnd + index * wordSize, name, std::to_string(word) + " (" + hexText(word) + ')');
        }
    }

    void writeBytes(const char* name, std::size_t begin, std::size_t end)
    {
        constexpr std::size_t bytesPerLine = 16;
        for (; begin < end; begin += std::min(bytesPerLine, end - begin))
            line(begin, name, bytesText(m_shown.item.bytes, begin, std::min(end, begin + bytesPerLine)));
    }

private:
    [[nodiscard]] std::string fieldText(std::size_t record, const KtlField& field) const
    {
        std::string text;
        for (std::size_t index = 0; index < field.count; ++index) {
            const std::int64_t number = numberIn(m_shown.item.bytes, record, field, index);
            text += (index == 0 ? "" : " ") + std::to_string(number);
            if (field.count == 1)
                text += " (" + hexText(number) + ')';
        }
        const std::string words =
            field.count == 1 ? wordsOf(field.meaning, numberIn(m_shown.item.bytes, record, field)) : std::string();
        return words.empty() ? text : text + "  " + words;
    }

    void line(std::size_t offset, const std::string& name, const std::string& text)
    {
        constexpr int offsetDigits = 4;
        constexpr std::size_t minRoom = 10;
        std::ostringstream head;
        head << "  0x" << std::hex << std::setfill('0') << std::setw(offsetDigits) << offset << std::setfill(' ')
             << "  " << std::left << std::setw(static_cast<int>(m_nameWidth)) << name << "  ";
        std::string start = head.str();
        const std::size_t room = std::max(m_lineWidth, start.size() + minRoom) - start.size();
        for (const std::string& part : brokenInto(text, room)) {
            m_out << start << part << '\n';
            start.assign(start.size(), ' ');
        }
    }

    std::ostream& m_out;
    const ShownItem& m_shown;
    std::size_t m_lineWidth;
    std::size_t m_nameWidth = std::string("value").size();
};

} // namespace

Object itemMembers(const KtlFileItem& item)
{
    const ShownItem shown(item);
    const KtlItemParts& parts = shown.parts;
    const bool hasWords = shown.layout.tail == KtlTail::Words;
    return {{"offset", decimal(static_cast<std::int64_t>(item.offset))},
            {"type", decimal(item.type)},
            {"name", text(shown.layout.name)},
            {"size", decimal(item.announcedSize)},
            {"present", decimal(static_cast<std::int64_t>(item.bytes.size()))},
            {"fields", {fieldMembers(item.bytes, shown.layout.head, 0, parts.headEnd)}},
            {"records", recordList(shown)},
            {"values", hasWords ? Value{List{}} : wordList(shown)},
            {"words", hasWords ? wordList(shown) : Value{List{}}},
            {"text", text(shown.text())},
            {"fill", text(bytesText(item.bytes, parts.tailEnd, parts.fillEnd))},
            {"rest", text(bytesText(item.bytes, parts.fillEnd, item.bytes.size()))}};
}

void writeItemText(std::ostream& out, const KtlFileItem& item, std::size_t lineWidth)
{
    constexpr int offsetDigits = 8;
    const ShownItem shown(item);
    const bool isKnown = isKnownItem(item.type);
    out << "@0x" << std::hex << std::setfill('0') << std::setw(offsetDigits) << item.offset << std::dec
        << std::setfill(' ') << ' ' << item.type << ' ' << (isKnown ? shown.layout.name : "unknown") << ", "
        << item.announcedSize << " bytes";
    if (item.bytes.size() < item.announcedSize)
        out << ", of which " << item.bytes.size() << " are there";
    out << '\n';
    ItemLines lines(out, shown, lineWidth);
    lines.writeFields(shown.layout.head, 0, shown.parts.headEnd);
    for (std::size_t record = 0; record < shown.parts.records; ++record) {
        out << "  record " << record + 1 << " of " << shown.parts.records << '\n';
        lines.writeFields(shown.layout.record, shown.recordOffset(record), shown.parts.recordsEnd);
    }
    lines.writeText(shown.text());
    lines.writeWords(shown.layout.tail == KtlTail::Words ? "word" : "value");
    lines.writeBytes("fill", shown.parts.tailEnd, shown.parts.fillEnd);
    lines.writeBytes("rest", shown.parts.fillEnd, item.bytes.size());
}

} // namespace show
