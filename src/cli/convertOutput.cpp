#include "cli/convertOutput.h"

#include "cli/progress.h"
#include "cli/streamName.h"
#include "ktl/writing/ktlFile.h"

#include <QFileInfo>

#include <array>
#include <cerrno>
#include <ostream>

namespace cli {

namespace {

/// Whether two paths name the same file that exists.
bool isSameFile(const QString& first, const QString& second)
{
    const QString canonical = QFileInfo(first).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(second).canonicalFilePath();
}

void reportFailure(const SaveFailure& failure, Messages& messages)
{
    if (failure.kind == SaveFailure::Kind::NotWritten)
        messages.outputError(failure.file, failure.reason);
    else
        messages.error(failure.file, failure.reason);
}

/// Copies a stream from its start to the results.
/// @return  whether all of it could be read
bool copyTo(std::ostream& results, std::FILE* from)
{
    std::array<char, 65536> block;
    std::rewind(from);
    for (std::size_t size = std::fread(block.data(), 1, block.size(), from); size > 0;
         size = std::fread(block.data(), 1, block.size(), from))
        results.write(block.data(), static_cast<std::streamsize>(size));
    return std::ferror(from) == 0;
}

} // namespace

bool mayWrite(const SaveRequest& request, const QStringList& inputs, Messages& messages)
{
    for (const SaveTarget& target : targetsOf(request))
        for (const QString& input : inputs)
            if (isSameFile(input, target.path)) {
                messages.error(input, QStringLiteral("the output would replace this file"));
                return false;
            }
    const std::optional<SaveFailure> failure = obstacleTo(request);
    if (failure.has_value())
        reportFailure(*failure, messages);
    return !failure.has_value();
}

bool saveRun(const SaveRequest& request, const WriteRun& writeRun, Messages& messages)
{
    const Progress progress(QStringLiteral("writing %1").arg(shownName(request.path)), 1, 1);
    Patience patience;
    patience.notify = [&] {
        messages.note(request.path, QStringLiteral("waiting for another run that writes into the same folder"));
    };
    const std::optional<SaveFailure> failure = saveAtomically(request, writeRun, patience);
    if (failure.has_value())
        reportFailure(*failure, messages);
    return !failure.has_value();
}

void writeToStandardOutput(const WriteRun& writeRun, Console& console)
{
    const Progress progress(QStringLiteral("writing standard output"), 1, 1);
    const FileHandle whole(std::tmpfile());
    int errorCode = 0;
    if (whole == nullptr || !writeRun(whole.get(), &errorCode) || std::fflush(whole.get()) != 0
        || !copyTo(console.results, whole.get()))
        console.messages.outputError({},
                                     QStringLiteral("standard output cannot be written: ") + qt_error_string(errno));
}

} // namespace cli
