#include "show/shownFile.h"

#include "show/startupOrigins.h"

#include <utility>

namespace show {

void ShownFile::setEsi(struct_FilenameDevice loaded, const ExportProblemSink& report)
{
    esi = std::make_unique<struct_FilenameDevice>(std::move(loaded));
    devices = exportedDevices(*esi, [this, report](const ExportProblem& problem) {
        isComplete = isComplete && problem.kind != ExportProblem::Kind::CutShort;
        report(problem);
    });
}

void ShownFile::setKtl(std::vector<unsigned char> contents)
{
    bytes = std::move(contents);
    walk = walkItems(bytes);
    isComplete = walk.end == KtlWalkEnd::Whole;
    const std::vector<KtlBlockPlace> places = blockPlacesOf(walk);
    devices = {places.size(), [this, places](std::size_t index) {
                   KtlDeviceBlock block = deviceBlockAt(walk, places[index]);
                   StartupSources sources = startupSourcesOf(block);
                   return ShownDevice{std::move(block), std::move(sources), true};
               }};
}

} // namespace show
