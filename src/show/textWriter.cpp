#include "show/textWriter.h"

#include "show/showWords.h"
#include "show/textColumns.h"
#include "show/textTable.h"
#include "text/fractionText.h"
#include "text/oneLine.h"

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>

namespace show {

namespace {

constexpr std::size_t step = 2; // blanks by which what belongs to a heading is indented, and after a label

std::string cellOf(const Value& value);

struct KeyLabel
{
    std::string_view key;
    const char* label;
};

/// Keys whose words are not those that people read.
constexpr std::array keyLabels{
    KeyLabel{"number", "no"},
    KeyLabel{"position", "no"},
    KeyLabel{"pdos", "PDOs"},
    KeyLabel{"rxPdos", "output PDOs"},
    KeyLabel{"txPdos", "input PDOs"},
    KeyLabel{"moduleRxPdos", "output PDOs of modules"},
    KeyLabel{"moduleTxPdos", "input PDOs of modules"},
};

/// Keys that are for programs: numbers for choices files, and the data of a command as text beside its value.
constexpr std::array<std::string_view, 4> hiddenKeys{"choicePdo", "choiceEntry", "choiceRow", "text"};

/// The words of a key: "syncManagers" are "sync managers".
std::string labelOf(std::string_view key)
{
    for (const KeyLabel& known : keyLabels)
        if (key == known.key)
            return known.label;
    std::string label;
    for (const char letter : key) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        label += isCapital ? std::string{' ', static_cast<char>(letter - 'A' + 'a')} : std::string(1, letter);
    }
    return label;
}

/// Whether one member is the name of what the number in another one means: `typeName` of `type`.
bool isNameOf(const Member& name, const Member& number)
{
    const std::string_view ending = "Name";
    const std::string_view start = number.key;
    return name.key.size() == start.size() + ending.size() && name.key.substr(0, start.size()) == start
           && name.key.substr(start.size()) == ending && std::holds_alternative<std::string>(name.value.content);
}

bool isHidden(std::string_view key)
{
    return std::find(hiddenKeys.begin(), hiddenKeys.end(), key) != hiddenKeys.end();
}

/// Calls `visit(key, value)` for each member that people read. Of a number and the name after it one is left: the
/// name, or the number where it has none.
template<typename Visitor> void forEachReadable(const Object& object, Visitor visit)
{
    for (std::size_t index = 0; index < object.size(); ++index) {
        const Member& member = object[index];
        if (isHidden(member.key))
            continue;
        const bool hasName = index + 1 < object.size() && isNameOf(object[index + 1], member);
        if (hasName)
            ++index;
        const bool isNamed = hasName && !std::get<std::string>(object[index].value.content).empty();
        visit(member.key, isNamed ? object[index].value : member.value);
    }
}

std::string plainText(bool isSet)
{
    return isSet ? "yes" : "no";
}

std::string plainText(const Number& number)
{
    switch (number.form) {
    case NumberForm::Decimal:
        break;
    case NumberForm::Hexadecimal:
        return hexText(number.value);
    case NumberForm::Both:
        return std::to_string(number.value) + " (" + hexText(number.value) + ')';
    case NumberForm::YesNo:
        return number.value == 0 || number.value == 1 ? plainText(number.value == 1) : hexText(number.value);
    }
    return std::to_string(number.value);
}

/// Elements separated by commas; one that holds a comma itself is put in quotes.
std::string plainText(const List& list)
{
    std::string all;
    for (std::size_t index = 0; index < list.count; ++index) {
        const std::string element = cellOf(list.at(index));
        const bool isQuoted = element.find(',') != std::string::npos;
        all += index == 0 ? "" : ", ";
        all += isQuoted ? '"' + element + '"' : element;
    }
    return all.empty() ? "-" : all;
}

std::string plainText(std::monostate /*nothing*/)
{
    return "-";
}

std::string plainText(float number)
{
    return fractionText(number);
}

std::string plainText(const std::string& utf8)
{
    return oneLine(utf8, DrawingHints::AreKept);
}

std::string plainText(const Object& /*object*/)
{
    return {};
}

/// A plain value, or a list of such, on one line; "-" for nothing.
std::string cellOf(const Value& value)
{
    return std::visit([](const auto& content) { return plainText(content); }, value.content);
}

bool isListOfObjects(const Value& value)
{
    const auto* const list = std::get_if<List>(&value.content);
    return list != nullptr && list->count > 0 && std::holds_alternative<Object>(list->at(0).content);
}

/// @return  false if there is a list of objects
bool addCells(const Object& object, TextRow& cells, TextRow* labels)
{
    bool areCells = true;
    forEachReadable(object, [&](std::string_view key, const Value& value) {
        if (const auto* const inner = std::get_if<Object>(&value.content)) {
            areCells = areCells && addCells(*inner, cells, labels);
            return;
        }
        areCells = areCells && !isListOfObjects(value);
        if (!areCells)
            return;
        cells.push_back(cellOf(value));
        if (labels != nullptr)
            labels->push_back(labelOf(key));
    });
    return areCells;
}

/// The plain members of an object and of the objects in it, in one row; nothing if it holds a list of objects.
/// @param labels  takes the label of each cell; may be null
std::optional<TextRow> rowOf(const Value& object, TextRow* labels)
{
    TextRow cells;
    const auto* const members = std::get_if<Object>(&object.content);
    if (members == nullptr || !addCells(*members, cells, labels))
        return std::nullopt;
    return cells;
}

/// A table for a list of rows.
/// @return  nothing if an element is no row, or the table does not fit
std::optional<TextTable> tableOf(const List& list, std::size_t lineWidth)
{
    TextRow labels;
    if (!rowOf(list.at(0), &labels))
        return std::nullopt;
    TextTable table(std::move(labels), LeftOut::EmptyOrNo);
    for (std::size_t index = 0; index < list.count; ++index) {
        const std::optional<TextRow> row = rowOf(list.at(index), nullptr);
        if (!row || !table.measure(*row))
            return std::nullopt;
    }
    return table.fit(lineWidth) ? std::optional(table) : std::nullopt;
}

/// What a member shows, a line each: of a list of several texts each one, else the one value.
TextRow partsOf(const Value& value)
{
    const auto* const list = std::get_if<List>(&value.content);
    if (list == nullptr || list->count < 2 || !std::holds_alternative<std::string>(list->at(0).content))
        return {cellOf(value)};
    TextRow parts;
    for (std::size_t index = 0; index < list->count; ++index)
        parts.push_back(cellOf(list->at(index)));
    return parts;
}

} // namespace

std::size_t TextWriter::room(std::size_t indentation) const
{
    constexpr std::size_t minRoom = 10; // lines of a terminal that is narrower than this are too long
    return m_lineWidth < indentation + minRoom ? minRoom : m_lineWidth - indentation;
}

void TextWriter::writeObject(const Object& object, std::size_t indentation)
{
    const std::string margin(indentation, ' ');
    std::size_t width = 0;
    forEachReadable(object, [&](std::string_view key, const Value& value) {
        if (!isListOfObjects(value))
            width = std::max(width, labelOf(key).size());
    });
    forEachReadable(object, [&](std::string_view key, const Value& value) {
        const std::string label = labelOf(key);
        if (isListOfObjects(value)) {
            writeList(label, std::get<List>(value.content), indentation);
        } else if (const auto* const inner = std::get_if<Object>(&value.content)) {
            m_out << margin << label << ":\n";
            writeObject(*inner, indentation + step);
        } else {
            writeParts(margin + label + std::string(width + step - label.size(), ' '), partsOf(value));
        }
    });
}

void TextWriter::writeParts(const std::string& head, const std::vector<std::string>& parts)
{
    std::string start = head;
    for (const std::string& part : parts)
        for (const std::string& line : brokenInto(part.empty() ? "-" : part, room(head.size()))) {
            m_out << start << line << '\n';
            start = std::string(head.size(), ' ');
        }
}

void TextWriter::writeList(const std::string& label, const List& list, std::size_t indentation)
{
    const std::string margin(indentation, ' ');
    if (const std::optional<TextTable> table = tableOf(list, room(indentation + step))) {
        m_out << margin << label << " (" << list.count << "):\n";
        table->writeLabels(m_out, indentation + step);
        for (std::size_t index = 0; index < list.count; ++index)
            if (const std::optional<TextRow> row = rowOf(list.at(index), nullptr))
                table->writeRow(m_out, *row, indentation + step);
        return;
    }
    for (std::size_t index = 0; index < list.count; ++index) {
        m_out << margin << label << ", " << index + 1 << " of " << list.count << ":\n";
        const Value element = list.at(index);
        if (const auto* const object = std::get_if<Object>(&element.content))
            writeObject(*object, indentation + step);
    }
}

} // namespace show
