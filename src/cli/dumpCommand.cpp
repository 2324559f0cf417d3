#include "cli/dumpCommand.h"

#include "cli/ktlInput.h"
#include "ktl/ktlExport.h"

#include <array>
#include <cstdio>
#include <ostream>

const SubCommandText dumpText{
    QLatin1String("dump"),
    QLatin1String("shows the text dump of a KTL file"),
    QLatin1String("FILE.ktl"),
    QLatin1String("A KTL file; - for standard input."),
    QLatin1String("Writes to standard output the text dump of a KTL file: its items in hexadecimal words, as they\n"
                  "stand in the file that an export writes beside it."),
    QLatin1String("  ktl dump machine.ktl\n"
                  "  ktl dump - < machine.ktl | less\n"),
};

namespace {

/// Copies a stream from its start.
void copyAll(std::FILE* from, std::ostream& to)
{
    std::rewind(from);
    std::array<char, 65536> block{};
    for (std::size_t size = std::fread(block.data(), 1, block.size(), from); size > 0;
         size = std::fread(block.data(), 1, block.size(), from))
        to.write(block.data(), static_cast<std::streamsize>(size));
}

} // namespace

ExitCode runDump(const QStringList& arguments, Console& console)
{
    CommandLine line(dumpText, {});
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (line.operands().size() != 1)
        return line.refuse(QStringLiteral("one KTL file is to be given"), console);
    const QString path = line.operands().constFirst();
    const FileHandle ktl = openSeekable(path, console.messages);
    if (ktl == nullptr)
        return console.messages.exitCode();
    const FileHandle text(std::tmpfile());
    if (text == nullptr) {
        console.messages.error(path, QStringLiteral("there is no room for the dump"));
        return console.messages.exitCode();
    }
    int errorCode = 0;
    const bool isWhole = KTL_write_log_devices(text.get(), ktl.get(), &errorCode);
    copyAll(text.get(), console.results);
    if (!isWhole)
        console.messages.error(path, QStringLiteral("an item head cannot be right; the dump ends there"));
    return console.messages.exitCode();
}
