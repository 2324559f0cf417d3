#include "cli/dumpCommand.h"

#include "cli/ktlInput.h"
#include "ktl/itemLimit.h"
#include "ktl/ktlExport.h"

#include <cstdio>
#include <ostream>
#include <vector>

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

/// Tells of what the dump does not show: the rest of a file that is broken, and what stands behind its last item.
void tellWhatIsMissing(const QString& path, std::FILE* ktl, Messages& messages)
{
    std::rewind(ktl);
    const std::vector<unsigned char> bytes = bytesOf(ktl);
    const KtlWalk walk = walkItems(bytes);
    if (const QString problem = problemAtEnd(walk); !problem.isEmpty())
        messages.error(path, problem);
    if (walk.items.size() > maxReadItems)
        messages.warning(path, WarningCode::ItemCount,
                         QStringLiteral("the file has %1 items, of which a dump shows the first %2")
                             .arg(walk.items.size())
                             .arg(maxReadItems));
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
    int errorCode = 0;
    console.results.flush(); // the dump is written by the C library, into the same output
    static_cast<void>(KTL_write_log_devices(stdout, ktl.get(), &errorCode));
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        console.messages.outputError({}, QStringLiteral("standard output cannot be written"));
        return console.messages.exitCode();
    }
    tellWhatIsMissing(path, ktl.get(), console.messages);
    return console.messages.exitCode();
}
