#include "cli/dumpCommand.h"

#include "cli/inputFile.h"
#include "cli/ktlEnd.h"
#include "cli/ktlInput.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/itemLimit.h"
#include "system/cStreams.h"

#include <cstdio>
#include <new>
#include <optional>
#include <vector>

namespace cli {

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

/// Reports what the dump does not show: the rest of a file that is broken, and what follows its last item.
void reportWhatIsMissing(const QString& path, const std::vector<unsigned char>& bytes, Messages& messages)
{
    const KtlWalk walk = walkItems(bytes);
    if (const QString problem = problemAtEnd(walk); !problem.isEmpty())
        messages.error(path, problem);
    if (walk.items.size() > maxReadItems)
        messages.warning(path, WarningCode::ItemCount,
                         QStringLiteral("the file has %1 items, of which a dump shows the first %2")
                             .arg(walk.items.size())
                             .arg(maxReadItems));
}

/// The bytes of a KTL file; reports why there are none.
std::optional<std::vector<unsigned char>> bytesToDump(const QString& path, Messages& messages)
{
    QFile file;
    if (!openInput(file, path, messages))
        return std::nullopt;
    const std::optional<InputKind> kind = kindOfInput(file, path, messages);
    if (kind == InputKind::Ktl)
        return readKtl(file, path, messages);
    if (kind.has_value())
        messages.error(path, kind == InputKind::Esi ? QStringLiteral("this is an ESI file, not a KTL file")
                                                    : QStringLiteral("this is no KTL file"));
    return std::nullopt;
}

void dump(const QString& path, Console& console)
{
    std::optional<std::vector<unsigned char>> bytes = bytesToDump(path, console.messages);
    if (!bytes.has_value())
        return;
    {
        const FileHandle text = os::writerTo(console.results);
        int errorCode = 0;
        static_cast<void>(KTL_write_log_devices(text.get(), os::readerOf(*bytes).get(), &errorCode));
    }
    reportWhatIsMissing(path, *bytes, console.messages);
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
    try {
        dump(path, console);
    } catch (const std::bad_alloc&) {
        reportNoMemory(path, console.messages);
    }
    return console.messages.exitCode();
}

} // namespace cli
