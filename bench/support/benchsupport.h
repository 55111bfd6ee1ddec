#pragma once
// What the benchmarks share: a main() that runs Google Benchmark inside the application
// object the code under test needs, the calling thread's processor time (the figure a
// loaded machine inflates least), percentiles of a series and the resident memory.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

// Processor time used by the calling thread, in milliseconds.
inline double threadCpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// The value at rank p (0 = smallest, 0.5 = median, 1 = largest) by nearest rank; 0 for
// an empty series.
inline double percentile(std::vector<double> values, double p)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const size_t index = std::min(values.size() - 1, static_cast<size_t>(p * static_cast<double>(values.size() - 1) + 0.5));
    return values[index];
}

// The process's resident memory now, in KB (VmRSS).
inline long residentKb()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stol(line.substr(6));
    return 0;
}

// Runs the benchmarks named on the command line inside an application object of type App
// (QCoreApplication, QApplication or GlyphoraApplication).
template <typename App>
int runBenchmarks(int argc, char** argv)
{
    App app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
