#include "cli/show/showText.h"

#include "cli/show/showWords.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace {

using Row = std::vector<std::string>;

constexpr std::size_t step = 2; // blanks by which what belongs to a heading is indented, and between columns

std::string cellOf(const ShowValue& value);

/// The words of a key: "syncManagers" are "sync managers".
std::string labelOf(const std::string& key)
{
    std::string label;
    for (const char character : key) {
        const QChar letter = QLatin1Char(character);
        if (letter.isUpper())
            label += ' ';
        label += letter.toLower().toLatin1();
    }
    return label;
}

std::string plainText(const ShowNumber& number)
{
    switch (number.form) {
    case NumberForm::Decimal:
        break;
    case NumberForm::Hexadecimal:
        return hexText(number.value);
    case NumberForm::Both:
        return std::to_string(number.value) + " (" + hexText(number.value) + ')';
    }
    return std::to_string(number.value);
}

std::string plainText(const ShowList& list)
{
    std::string all;
    for (std::size_t index = 0; index < list.count; ++index)
        all += (index == 0 ? "" : ", ") + cellOf(list.at(index));
    return all.empty() ? "-" : all;
}

std::string plainText(std::monostate /*nothing*/)
{
    return "-";
}

std::string plainText(bool isSet)
{
    return isSet ? "yes" : "no";
}

std::string plainText(float number)
{
    return fractionText(number);
}

std::string plainText(const std::string& utf8)
{
    return oneLine(utf8);
}

std::string plainText(const ShowObject& /*object*/)
{
    return {};
}

/// A plain value, or a list of such, on one line; "-" for nothing.
std::string cellOf(const ShowValue& value)
{
    return std::visit([](const auto& content) { return plainText(content); }, value.content);
}

/// @return  false at a list of objects
bool addCells(const ShowObject& object, Row& cells, Row* labels)
{
    for (const ShowMember& member : object) {
        if (const auto* const inner = std::get_if<ShowObject>(&member.value.content)) {
            if (!addCells(*inner, cells, labels))
                return false;
            continue;
        }
        const auto* const list = std::get_if<ShowList>(&member.value.content);
        if (list != nullptr && list->count > 0 && std::holds_alternative<ShowObject>(list->at(0).content))
            return false;
        cells.push_back(cellOf(member.value));
        if (labels != nullptr)
            labels->push_back(labelOf(member.key));
    }
    return true;
}

/// The plain members of an object and of the objects in it, in one row; nothing if it holds a list of objects.
/// @param labels  takes the label of each cell; may be null
std::optional<Row> rowOf(const ShowValue& object, Row* labels)
{
    Row cells;
    const auto* const members = std::get_if<ShowObject>(&object.content);
    if (members == nullptr || !addCells(*members, cells, labels))
        return std::nullopt;
    return cells;
}

/// Characters that a text takes on a terminal, about: combining ones are rare here, Chinese ones take two.
std::size_t widthOf(const std::string& utf8)
{
    constexpr ushort firstWide = 0x1100;
    std::size_t width = 0;
    for (const QChar& character : QString::fromStdString(utf8))
        width += character.unicode() >= firstWide ? 2 : 1;
    return width;
}

std::string padded(const std::string& cell, std::size_t width)
{
    const std::size_t taken = widthOf(cell);
    return taken < width ? cell + std::string(width - taken, ' ') : cell;
}

/// Width of each column of a list of rows, headers included, 0 for one in which nothing stands.
/// @return  nothing if an element is no row
std::optional<std::vector<std::size_t>> columnWidths(const ShowList& list, Row& labels)
{
    if (!rowOf(list.at(0), &labels))
        return std::nullopt;
    std::vector<std::size_t> widths(labels.size(), 0);
    for (std::size_t index = 0; index < list.count; ++index) {
        const std::optional<Row> row = rowOf(list.at(index), nullptr);
        if (!row || row->size() != labels.size())
            return std::nullopt;
        for (std::size_t column = 0; column < row->size(); ++column)
            if ((*row)[column] != "-")
                widths[column] = std::max(widths[column], widthOf((*row)[column]));
    }
    for (std::size_t column = 0; column < labels.size(); ++column)
        if (widths[column] > 0)
            widths[column] = std::max(widths[column], widthOf(labels[column]));
    return widths;
}

void writeRow(std::ostream& out, const Row& row, const std::vector<std::size_t>& widths, std::size_t indentation)
{
    std::string line(indentation, ' ');
    for (std::size_t column = 0; column < row.size(); ++column)
        if (widths[column] > 0)
            line += padded(row[column], widths[column] + step);
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

void writeList(std::ostream& out, const std::string& label, const ShowList& list, std::size_t indentation)
{
    const std::string margin(indentation, ' ');
    Row labels;
    if (const auto widths = columnWidths(list, labels)) {
        out << margin << label << " (" << list.count << "):\n";
        writeRow(out, labels, *widths, indentation + step);
        for (std::size_t index = 0; index < list.count; ++index)
            if (const std::optional<Row> row = rowOf(list.at(index), nullptr))
                writeRow(out, *row, *widths, indentation + step);
        return;
    }
    for (std::size_t index = 0; index < list.count; ++index) {
        out << margin << label << ", " << index + 1 << " of " << list.count << ":\n";
        const ShowValue element = list.at(index);
        if (const auto* const object = std::get_if<ShowObject>(&element.content))
            writeText(out, *object, indentation + step);
    }
}

bool isListOfObjects(const ShowValue& value)
{
    const auto* const list = std::get_if<ShowList>(&value.content);
    return list != nullptr && list->count > 0 && std::holds_alternative<ShowObject>(list->at(0).content);
}

} // namespace

void writeText(std::ostream& out, const ShowObject& object, std::size_t indentation)
{
    const std::string margin(indentation, ' ');
    std::size_t width = 0;
    for (const ShowMember& member : object)
        if (!isListOfObjects(member.value))
            width = std::max(width, labelOf(member.key).size());
    for (const ShowMember& member : object) {
        const std::string label = labelOf(member.key);
        if (isListOfObjects(member.value)) {
            writeList(out, label, std::get<ShowList>(member.value.content), indentation);
        } else if (const auto* const inner = std::get_if<ShowObject>(&member.value.content)) {
            out << margin << label << ":\n";
            writeText(out, *inner, indentation + step);
        } else {
            const std::string cell = cellOf(member.value);
            out << margin << padded(label, width + step) << (cell.empty() ? "-" : cell) << '\n';
        }
    }
}
