// commandBench.cpp - `ktl convert` as a whole process against one that parses the same files and does nothing else.
#include "generatedEsi.h"
#include "ratioLimits.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// What a process took.
struct ProcessCost
{
    double seconds = 0; ///< of the processor, in the program and for it in the system
    double peakMegabytes = 0; ///< highest resident memory
};

/// Runs a program to its end.
/// @throws std::runtime_error if it does not end with 0
ProcessCost costOf(std::vector<std::string> command)
{
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const pid_t child = vfork(); // a copy of this program's own memory would count as the child's
    if (child == 0) {
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error(command.front() + " did not run to a good end");
    const auto secondsOf = [](const timeval& time) {
        constexpr double microseconds = 1e-6;
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * microseconds;
    };
    constexpr double kilobytes = 1000;
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / kilobytes};
}

/// Both programs on the same file, given so many times.
class CommandAndParse
{
public:
    CommandAndParse(const GeneratedEsi& esi, std::size_t count)
        : m_files(count, esi.path().toStdString())
    {}

    [[nodiscard]] ProcessCost parse() const { return costOf(withFiles({PARSE_ALONE_PROGRAM})); }

    [[nodiscard]] ProcessCost convert() const
    {
        const QTemporaryDir folder;
        return costOf(withFiles({KTL_PROGRAM, "convert", "-o", folder.filePath("out.ktl").toStdString()}));
    }

private:
    [[nodiscard]] std::vector<std::string> withFiles(std::vector<std::string> command) const
    {
        command.insert(command.end(), m_files.begin(), m_files.end());
        return command;
    }

    std::vector<std::string> m_files;
};

/// The two programs in turn, so that a machine that gets slower or faster in between does so for both.
void convertAgainstParse(benchmark::State& state)
{
    constexpr double timeLimit = 1.4;
    constexpr double memoryLimit = 1.15;
    constexpr std::size_t fileSize = 30 * megabyte;
    const GeneratedEsi esi = GeneratedEsi::ofSize(fileSize);
    const CommandAndParse programs(esi, 1);
    static_cast<void>(programs.parse()); // warm-up of the file cache
    static_cast<void>(programs.convert());
    std::vector<double> timeRatios;
    std::vector<double> memoryRatios;
    for ([[maybe_unused]] auto _ : state) {
        const ProcessCost parse = programs.parse();
        const ProcessCost convert = programs.convert();
        state.SetIterationTime(convert.seconds);
        timeRatios.push_back(convert.seconds / parse.seconds);
        memoryRatios.push_back(convert.peakMegabytes / parse.peakMegabytes);
        state.counters["peakMB"] = convert.peakMegabytes;
    }
    checkRatio(state, "peak memory of `ktl convert` of a 30 MB file against QDomDocument::setContent alone",
               memoryRatios, memoryLimit);
    checkRatio(state, "time of `ktl convert` of a 30 MB file against QDomDocument::setContent alone", timeRatios,
               timeLimit);
}
BENCHMARK(convertAgainstParse)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

/// 60 files in one call: no tree outlives its file, and nothing grows with the number of files read before.
void convertManyAgainstParse(benchmark::State& state)
{
    constexpr double timeLimit = 1.4;
    constexpr std::size_t fileSize = 60 * megabyte;
    constexpr std::size_t fileCount = 60;
    const GeneratedEsi esi = GeneratedEsi::ofSize(fileSize);
    const CommandAndParse programs(esi, fileCount);
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const ProcessCost parse = programs.parse();
        const ProcessCost convert = programs.convert();
        state.SetIterationTime(convert.seconds);
        state.counters["peakMB"] = convert.peakMegabytes;
        state.counters["parsePeakMB"] = parse.peakMegabytes;
        ratios.push_back(convert.seconds / parse.seconds);
    }
    checkRatio(state, "time of `ktl convert` of 60 files of 60 MB against parsing each in turn", ratios, timeLimit);
}
BENCHMARK(convertManyAgainstParse)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);

} // namespace
