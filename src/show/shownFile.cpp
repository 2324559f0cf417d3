#include "show/shownFile.h"

#include "show/startupOrigins.h"

#include <numeric>
#include <utility>

namespace show {

namespace {

std::vector<std::size_t> firstNumbers(std::size_t count)
{
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

} // namespace

void ShownFile::setEsi(struct_FilenameDevice loaded, const ExportProblemSink& report)
{
    esi = std::make_unique<struct_FilenameDevice>(std::move(loaded));
    devices = exportedDevices(*esi, [this, report](const ExportProblem& problem) {
        isComplete = isComplete && problem.kind != ExportProblem::Kind::CutShort;
        report(problem);
    });
    shown = firstNumbers(devices.size());
}

void ShownFile::setKtl(std::vector<unsigned char> contents)
{
    bytes = std::move(contents);
    walk = walkItems(bytes);
    isComplete = walk.end == KtlWalkEnd::Whole;
    places = blockPlacesOf(walk);
    devices = {places.size(), [this](std::size_t index) {
                   KtlDeviceBlock block = deviceBlockAt(walk, places[index]);
                   StartupSources sources = startupSourcesOf(block);
                   return ShownDevice{std::move(block), std::move(sources), true};
               }};
    shown = firstNumbers(devices.size());
}

void ShownFile::limitTo(std::vector<std::size_t> indexes)
{
    shown = std::move(indexes);
    isPart = true;
}

} // namespace show
