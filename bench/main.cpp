// main.cpp - runs the benchmarks; fails if one of their limits is exceeded.
#include "ratioLimits.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    // The window that some of the benchmarks fill needs no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    try {
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        std::cerr << "kinetra_bench: error: " << error.what() << '\n';
        return 1;
    }
    benchmark::Shutdown();
    return limitsAreKept(std::cerr) ? 0 : 1;
}
