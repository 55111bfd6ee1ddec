// Start-up benchmark driver: launches programs on the X display, and for each run
// records the time until its first top-level window is mapped, the time until the
// process goes idle (its CPU time stops growing) and its peak resident memory.
// Usage: startupbench --rounds N --quiet-ms MS --tier NAME=FONTCONFIG_FILE... -- LABEL=COMMAND...
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fstream>
#include <map>
#include <signal.h>
#include <sstream>
#include <string>
#include <sys/select.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Run {
    double mappedMs = -1;
    double idleMs = -1;
    long peakRssKb = 0;
};

double msSince(Clock::time_point t0) { return std::chrono::duration<double, std::milli>(Clock::now() - t0).count(); }

// CPU time of every thread of the process, in nanoseconds.
unsigned long long cpuNanoseconds(pid_t pid)
{
    unsigned long long total = 0;
    const std::string tasks = "/proc/" + std::to_string(pid) + "/task";
    DIR* dir = opendir(tasks.c_str());
    if (!dir)
        return 0;
    while (dirent* entry = readdir(dir)) {
        if (entry->d_name[0] == '.')
            continue;
        std::ifstream stat(tasks + "/" + entry->d_name + "/schedstat");
        unsigned long long runtime = 0;
        if (stat >> runtime)
            total += runtime;
    }
    closedir(dir);
    return total;
}

long peakRss(pid_t pid)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmHWM:", 0) == 0)
            return std::strtol(line.c_str() + 6, nullptr, 10);
    return 0;
}

long windowPid(Display* display, Window window)
{
    static Atom pidAtom = XInternAtom(display, "_NET_WM_PID", False);
    Atom type;
    int format;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    long pid = -1;
    if (XGetWindowProperty(display, window, pidAtom, 0, 1, False, XA_CARDINAL, &type, &format, &count, &after, &data) == Success
        && data && count == 1)
        pid = static_cast<long>(*reinterpret_cast<unsigned long*>(data));
    if (data)
        XFree(data);
    return pid;
}

Run measure(Display* display, const std::string& command, const std::vector<std::string>& env, int quietMs)
{
    XSync(display, True); // drop events of earlier runs
    const Clock::time_point t0 = Clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        for (const auto& assignment : env)
            putenv(const_cast<char*>(assignment.c_str()));
        execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    Run run;
    const int fd = ConnectionNumber(display);
    unsigned long long lastCpu = 0;
    double lastChange = 0;
    while (true) {
        while (XPending(display)) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == MapNotify && run.mappedMs < 0 && !event.xmap.override_redirect
                && windowPid(display, event.xmap.window) == pid)
                run.mappedMs = msSince(t0);
        }
        const unsigned long long cpu = cpuNanoseconds(pid);
        const double now = msSince(t0);
        if (cpu != lastCpu) {
            lastCpu = cpu;
            lastChange = now;
        }
        if (run.mappedMs >= 0 && now - lastChange > quietMs) {
            run.idleMs = std::max(lastChange, run.mappedMs);
            break;
        }
        if (now > 60000)
            break;
        fd_set fds;
        FD_ZERO(&fds);
        FD_SET(fd, &fds);
        timeval timeout{0, 2000};
        select(fd + 1, &fds, nullptr, nullptr, &timeout);
    }
    run.peakRssKb = peakRss(pid);
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    return run;
}

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

} // namespace

int main(int argc, char** argv)
{
    int rounds = 5, quietMs = 400;
    std::vector<std::pair<std::string, std::string>> tiers, programs;
    bool programsPart = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--") { programsPart = true; continue; }
        if (arg == "--rounds" && i + 1 < argc) { rounds = std::atoi(argv[++i]); continue; }
        if (arg == "--quiet-ms" && i + 1 < argc) { quietMs = std::atoi(argv[++i]); continue; }
        if (arg == "--tier" && i + 1 < argc) { const std::string t = argv[++i];
            tiers.emplace_back(t.substr(0, t.find('=')), t.substr(t.find('=') + 1)); continue; }
        if (programsPart) {
            programs.emplace_back(arg.substr(0, arg.find('=')), arg.substr(arg.find('=') + 1));
        }
    }
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "no X display\n");
        return 1;
    }
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);

    std::printf("| tier | program | mapped (ms) | idle (ms) | peak RSS (MB) |\n|---|---|---:|---:|---:|\n");
    std::map<std::string, std::map<std::string, std::vector<Run>>> results;
    for (const auto& [tier, config] : tiers) {
        const std::vector<std::string> env = {"FONTCONFIG_FILE=" + config};
        for (const auto& [label, command] : programs) // warm the caches once
            measure(display, command, env, quietMs);
        for (int round = 0; round < rounds; ++round)
            for (const auto& [label, command] : programs)
                results[tier][label].push_back(measure(display, command, env, quietMs));
        for (const auto& [label, command] : programs) {
            std::vector<double> mapped, idle, rss;
            for (const Run& r : results[tier][label]) {
                mapped.push_back(r.mappedMs);
                idle.push_back(r.idleMs);
                rss.push_back(r.peakRssKb / 1024.0);
            }
            std::printf("| %s | %s | %.0f | %.0f | %.1f |\n", tier.c_str(), label.c_str(), median(mapped), median(idle), median(rss));
        }
        std::fflush(stdout);
    }
    // Ratios of the first program to each of the others, per tier, from the medians.
    std::printf("\n| tier | ratio | idle | mapped | peak RSS difference (MB) |\n|---|---|---:|---:|---:|\n");
    for (const auto& [tier, config] : tiers) {
        auto med = [&](const std::string& label, auto field) {
            std::vector<double> v;
            for (const Run& r : results[tier][label])
                v.push_back(field(r));
            return median(v);
        };
        const std::string& first = programs.front().first;
        for (size_t p = 1; p < programs.size(); ++p) {
            const std::string& other = programs[p].first;
            auto idle = [](const Run& r) { return r.idleMs; };
            auto mapped = [](const Run& r) { return r.mappedMs; };
            auto rss = [](const Run& r) { return r.peakRssKb / 1024.0; };
            std::printf("| %s | %s / %s | %.2f | %.2f | %+.1f |\n", tier.c_str(), first.c_str(), other.c_str(),
                        med(first, idle) / med(other, idle), med(first, mapped) / med(other, mapped),
                        med(first, rss) - med(other, rss));
        }
    }
    XCloseDisplay(display);
    return 0;
}
