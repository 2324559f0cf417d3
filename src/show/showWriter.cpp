#include "show/showWriter.h"

#include "show/showDevice.h"
#include "show/showItems.h"
#include "show/showJson.h"
#include "show/showModel.h"
#include "show/showModules.h"
#include "show/showStartup.h"
#include "show/showWords.h"
#include "show/summary.h"
#include "show/textColumns.h"
#include "show/textWriter.h"
#include "text/oneLine.h"

#include <ostream>
#include <utility>

namespace show {

namespace {

// ---- JSON ----

/// Where all devices are shown, their places are their numbers.
Object jsonDevice(const ShownFile& file, std::size_t index)
{
    Object members;
    if (file.isPart)
        members.push_back({"device", decimal(static_cast<std::int64_t>(index) + 1)});
    members = with(std::move(members), deviceMembers(file.devices[index]));
    if (file.esi != nullptr)
        members.push_back({"model", {modelMembers(file.esi->device[index], Detail::Everything)}});
    return members;
}

Object jsonFile(const ShownFile& file)
{
    const auto deviceAt = [&file](std::size_t place) -> Value { return {jsonDevice(file, file.shown[place])}; };
    Object members{{"file", text(file.name)},
                   {"kind", text(file.esi != nullptr ? "ESI" : "KTL")},
                   {"devices", {List{file.shown.size(), deviceAt}}}};
    if (file.esi != nullptr)
        members.push_back({"vendorId", hexadecimal(file.esi->Vendor_Id)});
    if (file.isPart)
        return members;
    if (file.esi != nullptr)
        members.push_back({"moduleGroups", moduleGroups(*file.esi, Detail::Everything)});
    else
        members.push_back({"items", listOf(file.walk.items, itemMembers)});
    return members;
}

// ---- Text ----

/// A device of an ESI file for people: the model, and the startup commands as the controller gets them.
Object readableDevice(const ShownFile& file, std::size_t index)
{
    if (file.esi == nullptr)
        return deviceMembers(file.devices[index]);
    Object members = modelMembers(file.esi->device[index], Detail::ForPeople);
    members.push_back({"startup", startupGroups(file.devices[index])});
    return members;
}

void writeHead(std::ostream& out, const ShownFile& file)
{
    out << oneLine(file.name, DrawingHints::AreKept) << ": " << (file.esi != nullptr ? "ESI" : "KTL") << " file, "
        << counted(file.devices.size(), "device") << '\n';
}

/// @param lineWidth  columns of a line, `anyWidth` where lines may be as long as they are
void writeItems(std::ostream& out, const ShownFile& file, std::size_t lineWidth)
{
    if (file.esi != nullptr || file.isPart)
        return;
    out << '\n';
    for (const KtlFileItem& item : file.walk.items)
        writeItemText(out, item, lineWidth);
}

/// @param lineWidth  as above
void writeEverything(std::ostream& out, const ShownFile& file, std::size_t lineWidth)
{
    constexpr std::size_t indentation = 2;
    TextWriter text(out, lineWidth);
    writeItems(out, file, lineWidth);
    for (const std::size_t index : file.shown) {
        out << "\nDevice " << index + 1 << " of " << file.devices.size() << '\n';
        text.writeObject(readableDevice(file, index), indentation);
    }
    if (file.esi != nullptr && !file.isPart) {
        out << "\nFile\n";
        text.writeObject({{"vendorId", hexadecimal(file.esi->Vendor_Id)},
                          {"moduleGroups", moduleGroups(*file.esi, Detail::ForPeople)}},
                         indentation);
    }
}

void writeText(std::ostream& out, const ShownFile& file, const Form& form)
{
    const std::size_t lineWidth = form.terminalWidth.value_or(anyWidth);
    writeHead(out, file);
    switch (form.text) {
    case TextContent::Summary:
        writeSummary(out, file, form.terminalWidth.value_or(usualWidth));
        break;
    case TextContent::Full:
        writeEverything(out, file, lineWidth);
        break;
    case TextContent::Items:
        writeItems(out, file, lineWidth);
        break;
    }
}

} // namespace

Writer::Writer(std::ostream& out, const Form& form)
    : m_out(out)
    , m_form(form)
{
    if (m_form.table != nullptr)
        m_csv.emplace(out, m_form.csv);
}

void Writer::begin()
{
    if (m_form.isJson)
        m_out << "{\"files\": [";
    else if (m_csv)
        m_form.table->writeHeader(*m_csv);
}

void Writer::show(const ShownFile& file)
{
    if (m_form.isJson) {
        m_out << (m_isFirst ? "\n" : ",\n");
        m_isFirst = false;
        writeJson(m_out, jsonFile(file), [&file](bool isWhole) {
            return Member{"complete", flag(isWhole && file.isComplete)}; // errors of devices are known by now
        });
    } else if (m_csv) {
        m_form.table->writeRows(*m_csv, file);
    } else {
        m_out << (m_isFirst ? "" : "\n");
        writeText(m_out, file, m_form);
    }
    m_isFirst = false;
}

void Writer::breakOff()
{
    if (!m_form.isJson && m_form.table == nullptr)
        m_out << '\n';
}

void Writer::end()
{
    if (m_form.isJson)
        m_out << "\n]}\n";
}

} // namespace show
