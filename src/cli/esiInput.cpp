#include "cli/esiInput.h"

#include "cli/inputReader.h"
#include "cli/progress.h"
#include "cli/streamName.h"

#include <utility>

namespace cli {

bool loadEsiFiles(const QStringList& paths, Dictionaries dictionaries, Console& console)
{
    if (standardInputsIn(paths) > 1) {
        console.messages.error({}, QStringLiteral("standard input can be read once only"));
        return false;
    }
    InputReader reader(paths, AcceptedInputs::Esi, dictionaries, console.cores);
    bool areLoaded = true;
    int number = 0;
    for (const QString& path : paths) {
        const Progress progress(QStringLiteral("reading %1").arg(shownName(path)), ++number, paths.size());
        ReadInput input = reader.take();
        console.messages.report(input.messages);
        areLoaded = areLoaded && input.esi.has_value();
        if (input.esi.has_value())
            console.inputs.add(std::move(*input.esi));
    }
    return areLoaded;
}

} // namespace cli
