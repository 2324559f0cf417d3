// ktlReadBench.cpp - reading devices back from KTL files against copying the records of the same bytes.
#include "generatedEsi.h"
#include "ratioLimits.h"
#include "stopwatch.h"

#include "esi/esiFile.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/ktlReader.h"
#include "ktl/writing/ktlFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t readDevices = 1000;
constexpr std::size_t devicesPerFile = 50; // a read takes no more than 2000 items

/// Frees the loaded files, outside the clock.
void unload()
{
    g_xmlfiledevices = {};
}

/// KTL files of the generated devices, in a folder of their own.
class KtlFiles
{
public:
    KtlFiles()
    {
        const GeneratedEsi esi = GeneratedEsi::ofDevices(readDevices);
        QDomDocument document;
        EsiLoadResult result = loadEsiFile(esi.path(), document);
        if (result.status != EsiLoadStatus::Loaded)
            throw std::runtime_error("the generated file does not load");
        g_xmlfiledevices.push_back(std::move(result.file));
        for (std::size_t first = 0; first < readDevices; first += devicesPerFile)
            m_paths.push_back(write(first));
        unload();
    }

    [[nodiscard]] const std::vector<std::string>& paths() const { return m_paths; }

private:
    std::string write(std::size_t first)
    {
        const QString name = QStringLiteral("%1.ktl").arg(first);
        std::string path = QFile::encodeName(m_folder.filePath(name)).toStdString();
        const auto isInThisFile = [first](std::size_t /*file*/, std::size_t device) {
            return device >= first && device < first + devicesPerFile;
        };
        int errorCode = 0;
        const FileHandle file(std::fopen(path.c_str(), "wb"));
        if (file == nullptr || !writeDevices(file.get(), g_xmlfiledevices, isInThisFile, &errorCode))
            throw std::runtime_error("cannot write the file " + path);
        return path;
    }

    QTemporaryDir m_folder;
    std::vector<std::string> m_paths;
};

/// Opens each file and hands it over. @return  seconds of all of them
template<typename Read> double secondsOfReading(const std::vector<std::string>& paths, Read read)
{
    const Stopwatch stopwatch;
    for (const std::string& path : paths) {
        const FileHandle file(std::fopen(path.c_str(), "rb"));
        if (file == nullptr || !read(file.get()))
            throw std::runtime_error("cannot read the file " + path);
    }
    return stopwatch.seconds();
}

bool readBack(std::FILE* file)
{
    int errorCode = 0;
    return device_writektltodevices(file, QStringLiteral("bench.ktl"), &errorCode);
}

/// Reads a file item by item, each with two calls as its head and its rest.
bool readItemBytes(std::FILE* file)
{
    std::array<std::uint32_t, 2> typeAndSize{};
    std::vector<unsigned char> rest;
    while (std::fread(typeAndSize.data(), sizeof typeAndSize, 1, file) == 1) {
        rest.resize(typeAndSize[1] - sizeof typeAndSize);
        if (!rest.empty() && std::fread(rest.data(), rest.size(), 1, file) != 1)
            return false;
        benchmark::DoNotOptimize(rest.data());
    }
    return true;
}

/// Time to read the same bytes, and to copy the records that a reader makes of them.
double secondsOfPlainReading(const std::vector<std::string>& paths, const std::vector<struct_FilenameDevice>& records)
{
    const double reading = secondsOfReading(paths, readItemBytes);
    const Stopwatch stopwatch;
    std::vector<struct_FilenameDevice> copy = records;
    const double copying = stopwatch.seconds();
    benchmark::DoNotOptimize(copy.data());
    return reading + copying;
}

/// Both are done in turn, so that a machine that gets slower or faster in between does so for both.
void readKtlBack(benchmark::State& state)
{
    constexpr double limit = 3;
    const KtlFiles files;
    secondsOfReading(files.paths(), readBack);
    const std::vector<struct_FilenameDevice> records = std::exchange(g_xmlfiledevices, {});
    std::size_t devices = 0;
    for (const struct_FilenameDevice& file : records)
        devices += file.device.size();
    if (devices != readDevices)
        throw std::runtime_error("not all devices are read back");

    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const double plain = secondsOfPlainReading(files.paths(), records);
        const double read = secondsOfReading(files.paths(), readBack);
        unload();
        state.SetIterationTime(read);
        ratios.push_back(read / plain);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(readDevices));
    checkRatio(state, "time to read 1,000 devices back against reading the bytes and copying the records", ratios,
               limit);
}
BENCHMARK(readKtlBack)->Iterations(51)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
