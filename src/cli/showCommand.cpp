#include "cli/showCommand.h"

#include "cli/inputFile.h"
#include "cli/progress.h"
#include "cli/show/showItems.h"
#include "cli/show/showJson.h"
#include "cli/show/showModel.h"
#include "cli/show/showSource.h"
#include "cli/show/showTables.h"
#include "cli/show/showText.h"
#include "cli/show/showWords.h"
#include "cli/show/textColumns.h"
#include "cli/terminalWidth.h"
#include "model/XMLParsing.h"

#include <new>
#include <optional>
#include <ostream>

#include <unistd.h>

const SubCommandText showText{
    QLatin1String("show"),
    QLatin1String("shows what ESI and KTL files hold"),
    QLatin1String("FILE..."),
    QLatin1String("ESI and KTL files; - for standard input."),
    QLatin1String("Shows what ESI and KTL files hold: of a KTL file every item, field by field, of an ESI file every\n"
                  "device as it is after loading, and of both the devices as the controller gets them. What a file is\n"
                  "shows in its first bytes; its name does not count. There is no limit on the number of items."),
    QLatin1String("  ktl show machine.ktl | less\n"
                  "  ktl show drive.xml --json > drive.json\n"
                  "  ktl show coupler.xml machine.ktl --csv startup > startup.csv\n"),
};

namespace {

const QString jsonSwitch = QStringLiteral("json");
const QString csvOption = QStringLiteral("csv");
const QString spreadsheetSwitch = QStringLiteral("spreadsheet");

QList<QCommandLineOption> showOptions()
{
    return {
        {jsonSwitch, QStringLiteral("Everything, as JSON.")},
        {csvOption, QStringLiteral("One table as comma-separated values: dictionary, pdo or startup."),
         QStringLiteral("TABLE")},
        {spreadsheetSwitch, QStringLiteral("The table is for a spreadsheet program: with a byte order mark, and an "
                                           "apostrophe before texts that read as a formula.")},
    };
}

/// What is wrong with the arguments, empty if nothing is.
QString problemOf(const CommandLine& line)
{
    if (line.operands().isEmpty())
        return QStringLiteral("no file is given");
    if (line.operands().count(QStringLiteral("-")) > 1)
        return QStringLiteral("standard input can be read once only");
    if (line.values(csvOption).size() > 1)
        return QStringLiteral("--csv can be given once only");
    if (line.isSet(jsonSwitch) && line.isSet(csvOption))
        return QStringLiteral("--json and --csv cannot be given together");
    if (line.isSet(csvOption) && showTableNamed(line.value(csvOption)) == nullptr)
        return QStringLiteral("\"%1\" is no table; there are dictionary, pdo and startup").arg(line.value(csvOption));
    if (line.isSet(spreadsheetSwitch) && !line.isSet(csvOption))
        return QStringLiteral("--spreadsheet goes with --csv only");
    return {};
}

struct_FilenameDevice& loadedEsi()
{
    return g_xmlfiledevices.back();
}

// ---- JSON ----

ShowObject jsonDevice(const ShownFile& file, std::size_t index)
{
    ShowObject members = deviceMembers(file.devices[index]);
    if (file.isEsi)
        members.push_back({"model", {modelMembers(loadedEsi().device[index], ShowDetail::Everything)}});
    return members;
}

ShowObject jsonFile(const ShownFile& file)
{
    const auto deviceAt = [&file](std::size_t index) -> ShowValue { return {jsonDevice(file, index)}; };
    ShowObject members{{"file", text(shownFileName(file))},
                       {"kind", text(file.isEsi ? "ESI" : "KTL")},
                       {"devices", {ShowList{file.devices.size(), deviceAt}}}};
    if (file.isEsi) {
        members.push_back({"vendorId", hexadecimal(loadedEsi().Vendor_Id)});
        members.push_back({"moduleGroups", moduleGroups(loadedEsi(), ShowDetail::Everything)});
    } else {
        members.push_back({"items", listOf(file.walk.items, itemMembers)});
    }
    return members;
}

// ---- Text ----

/// A device of an ESI file for people: the model, and the startup commands as the controller gets them.
ShowObject readableDevice(const ShownFile& file, std::size_t index)
{
    if (!file.isEsi)
        return deviceMembers(file.devices[index]);
    ShowObject members = modelMembers(loadedEsi().device[index], ShowDetail::ForPeople);
    members.push_back({"startup", startupGroups(file.devices[index])});
    return members;
}

/// @param lineWidth  columns of a line, `anyWidth` where lines may be as long as they are
void writeReadable(std::ostream& out, const ShownFile& file, std::size_t lineWidth)
{
    constexpr std::size_t indentation = 2;
    TextWriter text(out, lineWidth);
    out << oneLine(shownFileName(file)) << ": " << (file.isEsi ? "ESI" : "KTL") << " file, " << file.devices.size()
        << (file.devices.size() == 1 ? " device\n" : " devices\n");
    if (!file.isEsi)
        out << '\n';
    for (const KtlFileItem& item : file.walk.items)
        writeItemText(out, item, lineWidth);
    for (std::size_t index = 0; index < file.devices.size(); ++index) {
        out << "\nDevice " << index + 1 << " of " << file.devices.size() << '\n';
        text.writeObject(readableDevice(file, index), indentation);
    }
    if (file.isEsi) {
        out << "\nFile\n";
        text.writeObject({{"vendorId", hexadecimal(loadedEsi().Vendor_Id)},
                          {"moduleGroups", moduleGroups(loadedEsi(), ShowDetail::ForPeople)}},
                         indentation);
    }
}

/// Writes files in one of the forms, one after another.
class Shower
{
public:
    Shower(const CommandLine& line, std::ostream& out)
        : m_out(out)
        , m_isJson(line.isSet(jsonSwitch))
        , m_table(showTableNamed(line.value(csvOption)))
    {
        if (m_table != nullptr)
            m_csv.emplace(out, line.isSet(spreadsheetSwitch) ? CsvForm::Spreadsheet : CsvForm::Plain);
    }

    void begin()
    {
        if (m_isJson)
            m_out << "{\"files\": [";
        else if (m_csv)
            m_table->writeHeader(*m_csv);
    }

    void show(const ShownFile& file)
    {
        if (m_isJson) {
            m_out << (m_isFirst ? "\n" : ",\n");
            m_isFirst = false;
            writeJson(m_out, jsonFile(file), [&file](bool isWhole) {
                return ShowMember{"complete", flag(isWhole && file.isComplete)}; // errors of devices are known by now
            });
        } else if (m_csv) {
            m_table->writeRows(*m_csv, file);
        } else {
            m_out << (m_isFirst ? "" : "\n");
            writeReadable(m_out, file, m_lineWidth);
        }
        m_isFirst = false;
    }

    /// Ends what was begun of a file, in the middle of it.
    void breakOff()
    {
        if (!m_isJson && m_table == nullptr)
            m_out << '\n';
    }

    void end()
    {
        if (m_isJson)
            m_out << "\n]}\n";
    }

private:
    std::ostream& m_out;
    bool m_isJson;
    const ShowTable* m_table; ///< null unless a table is asked for
    std::optional<CsvWriter> m_csv; ///< with the table only
    std::size_t m_lineWidth = widthOfOutputTerminal().value_or(anyWidth);
    bool m_isFirst = true;
};

/// Shows one file. If memory does not suffice for it, that is told, and what has been shown of it stays.
void showFile(const QString& path, Shower& shower, Messages& messages)
{
    try {
        if (const auto file = openShownFile(path, messages))
            shower.show(*file);
    } catch (const std::bad_alloc&) {
        g_xmlfiledevices.clear(); // so that there is memory for the message
        shower.breakOff();
        tellNoMemory(path, messages);
    }
}

} // namespace

ExitCode runShow(const QStringList& arguments, Console& console)
{
    CommandLine line(showText, showOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOf(line); !problem.isEmpty())
        return line.refuse(problem, console);
    const QStringList paths = line.operands();
    Shower shower(line, console.results);
    shower.begin();
    int number = 0;
    for (const QString& path : paths) {
        // At a terminal the results themselves tell that something goes on, and the line would stand between them.
        std::optional<Progress> progress;
        ++number;
        if (isatty(STDOUT_FILENO) == 0)
            progress.emplace(QStringLiteral("showing %1").arg(shownName(path)), number, paths.size());
        showFile(path, shower, console.messages);
    }
    shower.end();
    return console.messages.exitCode();
}
