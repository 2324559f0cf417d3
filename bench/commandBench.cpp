// commandBench.cpp - `ktl` as a whole process against one that parses the same files and does nothing else.
#include "generatedEsi.h"
#include "ratioLimits.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// What a process took.
struct ProcessCost
{
    double seconds = 0; ///< of the processor, in the program and for it in the system
    double clockSeconds = 0; ///< from its start to its end
    double peakMegabytes = 0; ///< highest resident memory
};

/// Runs a program to its end. What it writes to standard output is lost.
/// @throws std::runtime_error if it does not end with 0
ProcessCost costOf(std::vector<std::string> command)
{
    static const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = vfork(); // a copy of this program's own memory would count as the child's
    if (child == 0) {
        dup2(nowhere, STDOUT_FILENO);
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
    const std::chrono::duration<double> onTheClock = std::chrono::steady_clock::now() - start;
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), onTheClock.count(),
            static_cast<double>(usage.ru_maxrss) / kilobytes};
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

    [[nodiscard]] ProcessCost show() const { return costOf(withFiles({KTL_PROGRAM, "show", "--json"})); }

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
    constexpr double timeLimit = 0.25;
    constexpr double memoryLimit = 0.35;
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

/// With the dictionaries, which are most of the file and nearly all that is shown.
void showAgainstParse(benchmark::State& state)
{
    constexpr double limit = 0.8;
    constexpr std::size_t fileSize = 30 * megabyte;
    const GeneratedEsi esi = GeneratedEsi::ofSize(fileSize);
    const CommandAndParse programs(esi, 1);
    static_cast<void>(programs.parse());
    static_cast<void>(programs.show());
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const ProcessCost parse = programs.parse();
        const ProcessCost show = programs.show();
        state.SetIterationTime(show.seconds);
        ratios.push_back(show.seconds / parse.seconds);
        state.counters["peakMB"] = show.peakMegabytes;
    }
    checkRatio(state, "time of `ktl show --json` of a 30 MB file against QDomDocument::setContent alone", ratios,
               limit);
}
BENCHMARK(showAgainstParse)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

/// 60 files in one call, on all cores: times on the clock. No tree outlives its file, and nothing grows with the number
/// of files read before.
void convertManyAgainstParse(benchmark::State& state)
{
    constexpr double timeLimit = 0.16; // on two cores
    constexpr std::size_t fileSize = 60 * megabyte;
    constexpr std::size_t fileCount = 60;
    const GeneratedEsi esi = GeneratedEsi::ofSize(fileSize);
    const CommandAndParse programs(esi, fileCount);
    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const ProcessCost parse = programs.parse();
        const ProcessCost convert = programs.convert();
        state.SetIterationTime(convert.clockSeconds);
        state.counters["peakMB"] = convert.peakMegabytes;
        state.counters["parsePeakMB"] = parse.peakMegabytes;
        ratios.push_back(convert.clockSeconds / parse.clockSeconds);
    }
    checkRatio(state, "time of `ktl convert` of 60 files of 60 MB against parsing each in turn", ratios, timeLimit);
}
BENCHMARK(convertManyAgainstParse)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);

} // namespace
