// loadBench.cpp - loading ESI files: against the parser alone, the limits alone against the parser, and large files
// against small ones.
#include "generatedEsi.h"
#include "ratioLimits.h"
#include "stopwatch.h"

#include "esi/esiFile.h"
#include "esi/xml/boundedXmlReader.h"
#include "model/XMLParsing.h"

#include <QDomDocument>
#include <QFile>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <stdexcept>
#include <vector>

namespace {

constexpr std::size_t smallFile = 3 * megabyte;
constexpr std::size_t mediumFile = 30 * megabyte;
constexpr std::size_t largeFile = 100 * megabyte;

/// Gives the memory of the last run back to the system, so that each run starts as a program does that loads its first
/// file, and none profits from the run before.
void giveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

/// Time to parse an open file into a document: opening the file and freeing the document do not count.
template<typename Parse> double secondsOfParse(const GeneratedEsi& esi, Parse parse)
{
    QFile file(esi.path());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw std::runtime_error("cannot open the generated file: " + file.errorString().toStdString());
    double seconds = 0;
    {
        QDomDocument document;
        const Stopwatch stopwatch;
        const bool isParsed = parse(file, document);
        seconds = stopwatch.seconds();
        if (!isParsed)
            throw std::runtime_error("the generated file is not well-formed");
    }
    giveMemoryBack();
    return seconds;
}

/// Time of `QDomDocument::setContent` alone.
double secondsOfPlainParse(const GeneratedEsi& esi)
{
    return secondsOfParse(esi, [](QFile& file, QDomDocument& document) { return document.setContent(&file, true); });
}

/// Time of the parse as the reader makes it, with its own decoding and all limits.
double secondsOfBoundedParse(const GeneratedEsi& esi)
{
    return secondsOfParse(esi, [](QFile& file, QDomDocument& document) {
        XmlFormatError error;
        return parseXml(file, document, error);
    });
}

/// Time from the file to its record; freeing document and record does not count.
double secondsOfLoad(const GeneratedEsi& esi)
{
    const Stopwatch stopwatch;
    QDomDocument document;
    const EsiLoadResult result = loadEsiFile(esi.path(), document);
    const double seconds = stopwatch.seconds();
    if (result.status != EsiLoadStatus::Loaded || result.file.device.size() != esi.devices())
        throw std::runtime_error("the generated file does not load with all its devices");
    return seconds;
}

void reportRate(benchmark::State& state, const GeneratedEsi& esi)
{
    state.counters["devices"] = static_cast<double>(esi.devices());
    state.counters["MB/s"] = benchmark::Counter(esi.megabytes(), benchmark::Counter::kIsIterationInvariantRate);
}

void parseSmallFile(benchmark::State& state)
{
    const GeneratedEsi esi = GeneratedEsi::ofSize(smallFile);
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(secondsOfPlainParse(esi));
    reportRate(state, esi);
}
BENCHMARK(parseSmallFile)->UseManualTime()->Unit(benchmark::kMillisecond);

void loadSmallFile(benchmark::State& state)
{
    const GeneratedEsi esi = GeneratedEsi::ofSize(smallFile);
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(secondsOfLoad(esi));
    reportRate(state, esi);
}
BENCHMARK(loadSmallFile)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Both times are taken in turn, so that a machine that gets slower or faster in between does so for both.
void loadAgainstParse(benchmark::State& state)
{
    constexpr double limit = 1.25;
    const GeneratedEsi esi = GeneratedEsi::ofSize(mediumFile);
    secondsOfPlainParse(esi); // warm-up of the file cache and of the program's own pages
    secondsOfLoad(esi);
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const double parse = secondsOfPlainParse(esi);
        const double load = secondsOfLoad(esi);
        state.SetIterationTime(load);
        ratios.push_back(load / parse);
    }
    reportRate(state, esi);
    checkRatio(state, "time to load a 30 MB file against QDomDocument::setContent alone", ratios, limit);
}
BENCHMARK(loadAgainstParse)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

/// What decoding and limits add to the parse.
void limitsAgainstParse(benchmark::State& state)
{
    constexpr double limit = 1.05;
    const GeneratedEsi esi = GeneratedEsi::ofSize(mediumFile);
    secondsOfPlainParse(esi);
    secondsOfBoundedParse(esi);
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const double plain = secondsOfPlainParse(esi);
        const double bounded = secondsOfBoundedParse(esi);
        state.SetIterationTime(bounded);
        ratios.push_back(bounded / plain);
    }
    reportRate(state, esi);
    checkRatio(state, "time to parse a 30 MB file within the limits against QDomDocument::setContent", ratios, limit);
}
BENCHMARK(limitsAgainstParse)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The small file is loaded often enough to take about as long as the large one: one short run would catch a
/// disturbance whole or not at all.
void loadLargeAgainstSmall(benchmark::State& state)
{
    constexpr double limit = 1.15;
    constexpr int smallLoads = 15;
    const GeneratedEsi small = GeneratedEsi::ofSize(smallFile);
    const GeneratedEsi large = GeneratedEsi::ofSize(largeFile);
    secondsOfLoad(large);
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        std::vector<double> smallSeconds;
        smallSeconds.reserve(smallLoads);
        for (int load = 0; load < smallLoads; ++load)
            smallSeconds.push_back(secondsOfLoad(small));
        const double largeSeconds = secondsOfLoad(large);
        state.SetIterationTime(largeSeconds);
        ratios.push_back(largeSeconds / large.megabytes() / (medianOf(smallSeconds) / small.megabytes()));
    }
    reportRate(state, large);
    checkRatio(state, "time per MB of a 100 MB file against a 3 MB file", ratios, limit);
}
BENCHMARK(loadLargeAgainstSmall)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
