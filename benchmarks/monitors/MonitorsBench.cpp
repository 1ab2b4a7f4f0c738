// MonitorsBench SECONDS NAME PROCESS NAME PROCESS...: what the first of several running monitors costs beside the
// others: processor time as the kernel counted it meanwhile, told for an hour, and the memory that it keeps.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "benchmarks/Report.h"

namespace {

struct Monitor {
    std::string name;
    pid_t process = 0;
    double seconds = 0;  // of processor time until the first look
};

// All threads of the process together, those that have ended too; not a number when it is gone.
double processorSeconds(pid_t process)
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) return NAN;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// A page that several processes map counts for each with its share.
double proportionalMegabytes(pid_t process)
{
    std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with("Pss:")) return std::strtod(line.c_str() + 4, nullptr) / 1024;
    }
    return NAN;
}

std::vector<Monitor> monitorsFrom(char** word)
{
    std::vector<Monitor> monitors;
    for (; word[0] && word[1]; word += 2) monitors.push_back({word[0], static_cast<pid_t>(std::atoi(word[1]))});
    return monitors;
}

}  // namespace

int main(int argc, char** argv)
{
    const double period = argc > 3 ? std::strtod(argv[1], nullptr) : 0;
    if (period <= 0) return 2;
    auto monitors = monitorsFrom(argv + 2);
    for (auto& monitor : monitors) monitor.seconds = processorSeconds(monitor.process);
    usleep(static_cast<useconds_t>(period * 1e6));

    struct Cost {
        double secondsAnHour, megabytes;
    };
    std::vector<Cost> costs;
    for (const auto& monitor : monitors) {
        const double spent = processorSeconds(monitor.process) - monitor.seconds;
        costs.push_back({spent / period * 3600, proportionalMegabytes(monitor.process)});
    }
    for (std::size_t at = 1; at < monitors.size(); ++at) {
        Bench::ratio("processor time", monitors[at].name, costs[0].secondsAnHour, costs[at].secondsAnHour, "s/h");
    }
    for (std::size_t at = 1; at < monitors.size(); ++at) {
        Bench::ratio("proportional memory", monitors[at].name, costs[0].megabytes, costs[at].megabytes, "MB");
    }
}
