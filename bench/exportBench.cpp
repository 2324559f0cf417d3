// exportBench.cpp - exporting devices against writing the same bytes as they are.
#include "generatedEsi.h"
#include "ratioLimits.h"
#include "stopwatch.h"

#include "esi/esiFile.h"
#include "ktl/ktlExport.h"
#include "ktl/writing/ktlFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t exportedDevices = 1000;

/// The devices of a generated file, loaded for the time of a benchmark.
class LoadedDevices
{
public:
    explicit LoadedDevices(std::size_t count)
    {
        const GeneratedEsi esi = GeneratedEsi::ofDevices(count);
        QDomDocument document;
        EsiLoadResult result = loadEsiFile(esi.path(), document);
        if (result.status != EsiLoadStatus::Loaded || result.file.device.size() != count)
            throw std::runtime_error("the generated file does not load with all its devices");
        g_xmlfiledevices.push_back(std::move(result.file));
    }
    ~LoadedDevices() { g_xmlfiledevices = {}; }
    LoadedDevices(const LoadedDevices&) = delete;
    LoadedDevices& operator=(const LoadedDevices&) = delete;
    LoadedDevices(LoadedDevices&&) = delete;
    LoadedDevices& operator=(LoadedDevices&&) = delete;
};

/// Time to write a file that does not exist before: from the first byte until it is closed.
template<typename Write> double secondsOfWriting(const std::string& path, Write write)
{
    static_cast<void>(std::remove(path.c_str()));
    FileHandle file(std::fopen(path.c_str(), "wb"));
    if (file == nullptr)
        throw std::runtime_error("cannot make the file " + path);
    const Stopwatch stopwatch;
    const bool isWritten = write(file.get());
    const bool isClosed = std::fclose(file.release()) == 0;
    const double seconds = stopwatch.seconds();
    if (!isWritten || !isClosed)
        throw std::runtime_error("cannot write the file " + path);
    return seconds;
}

bool exportAll(std::FILE* out)
{
    int errorCode = 0;
    return writeDevices(
        out, g_xmlfiledevices, [](std::size_t /*file*/, std::size_t /*device*/) { return true; }, &errorCode);
}

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Lengths of the items in the bytes of a KTL file, each of which has its own in the second word.
std::vector<std::size_t> itemSizes(const std::string& bytes)
{
    std::vector<std::size_t> sizes;
    for (std::size_t position = 0; position < bytes.size(); position += sizes.back()) {
        std::array<std::uint32_t, 2> typeAndSize{};
        if (bytes.size() - position < sizeof typeAndSize)
            throw std::runtime_error("the exported file ends in the head of an item");
        std::memcpy(typeAndSize.data(), bytes.data() + position, sizeof typeAndSize);
        if (typeAndSize[1] < sizeof typeAndSize || typeAndSize[1] > bytes.size() - position)
            throw std::runtime_error("the exported file holds an item of a size that cannot be");
        sizes.push_back(typeAndSize[1]);
    }
    return sizes;
}

/// Writes the items with one call each.
bool writeItems(std::FILE* out, const std::string& bytes, const std::vector<std::size_t>& sizes)
{
    const char* item = bytes.data();
    for (const std::size_t size : sizes) {
        if (std::fwrite(item, size, 1, out) != 1)
            return false;
        item += size;
    }
    return true;
}

/// Both files are written in turn, so that a machine that gets slower or faster in between does so for both.
void exportAgainstPlainWriting(benchmark::State& state)
{
    constexpr double limit = 2.5;
    const LoadedDevices loaded(exportedDevices);
    const QTemporaryDir folder;
    const std::string exportPath = QFile::encodeName(folder.filePath(QStringLiteral("export.ktl"))).toStdString();
    const std::string plainPath = QFile::encodeName(folder.filePath(QStringLiteral("plain.ktl"))).toStdString();

    secondsOfWriting(exportPath, exportAll);
    const std::string bytes = contentOf(exportPath);
    const std::vector<std::size_t> sizes = itemSizes(bytes);
    const auto writePlain = [&](std::FILE* out) { return writeItems(out, bytes, sizes); };
    secondsOfWriting(plainPath, writePlain);
    if (contentOf(plainPath) != bytes)
        throw std::runtime_error("the items written one by one are not the exported file");

    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const double plain = secondsOfWriting(plainPath, writePlain);
        const double exported = secondsOfWriting(exportPath, exportAll);
        state.SetIterationTime(exported);
        ratios.push_back(exported / plain);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(exportedDevices));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
    state.counters["items"] = static_cast<double>(sizes.size());
    checkRatio(state, "time to export 1,000 devices against one fwrite per item", ratios, limit);
}
BENCHMARK(exportAgainstPlainWriting)->Iterations(201)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
