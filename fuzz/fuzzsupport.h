// What every fuzz target shares: inputs written to a real file (the program reads files,
// not memory), a clock that turns an input slower than its limit into a finding, and the
// longest input time printed when the run ends.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <algorithm>
#include <ctime>
#include <functional>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace FuzzSupport {

// Stops the run (a finding, with the input saved by libFuzzer) when a promise breaks.
inline void check(bool promise, const char* what)
{
    if (!promise) {
        std::fprintf(stderr, "Broken promise: %s\n", what);
        std::abort();
    }
}

// A folder of this process under /dev/shm (memory), else the temporary folder.
inline QString scratchFolder()
{
    static const QString folder = [] {
        const QString base = QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath();
        const QString path = base + QStringLiteral("/glyphora-fuzz-%1").arg(::getpid());
        QDir().mkpath(path);
        return path;
    }();
    return folder;
}

// Writes the bytes to a file of the scratch folder and returns its path.
inline QString writeInput(const QString& name, const char* data, qsizetype size)
{
    const QString path = scratchFolder() + QLatin1Char('/') + name;
    QFile file(path);
    check(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "the scratch file opens");
    check(file.write(data, size) == size, "the scratch file is written");
    return path;
}

// The per-input time limit in milliseconds: GLYPHORA_FUZZ_INPUT_MS, else the target's
// own. libFuzzer's -timeout counts whole seconds only, so the targets time themselves.
inline double inputLimitMs(double targetDefault)
{
    const char* text = std::getenv("GLYPHORA_FUZZ_INPUT_MS");
    return text ? std::atof(text) : targetDefault;
}

// The processor time this thread has used, in milliseconds: unlike the wall clock it
// does not count the time other processes of a busy machine take.
inline double threadCpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1000.0 + double(now.tv_nsec) / 1e6;
}

// The longest processor time one input took, printed when the run ends.
inline double& longestInputMs()
{
    static double value = 0;
    static const bool reported = [] {
        std::atexit([] { std::fprintf(stderr, "Longest input: %.2f ms of processor time\n", longestInputMs()); });
        return true;
    }();
    (void)reported;
    return value;
}

// Runs one input's work and times it in processor time. An input over the limit is run
// once more, so that a stall of the machine (page reclaim, a busy neighbour) is not
// taken for a finding; over the limit twice, it is one.
inline void runTimed(double limitMs, const std::function<void()>& work)
{
    double ms = 0;
    for (int attempt = 0; attempt < 2; ++attempt) {
        const double start = threadCpuMs();
        work();
        ms = threadCpuMs() - start;
        if (ms <= limitMs)
            break;
    }
    longestInputMs() = std::max(longestInputMs(), ms);
    if (ms > limitMs) {
        std::fprintf(stderr, "Input took %.1f ms of processor time twice, over the limit of %.0f ms\n", ms, limitMs);
        std::abort();
    }
}

} // namespace FuzzSupport
