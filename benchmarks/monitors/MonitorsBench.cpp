// MonitorsBench SECONDS NAME PROCESS NAME PROCESS...: what the first of several running monitors costs beside the
// others: processor time as the kernel counted it meanwhile, told for an hour, and the memory that it keeps.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>
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

// "Pss:", where a page that several processes map counts for each with its
// share, or "Private_Dirty:", what nobody else has and no file can give back.
double megabytes(pid_t process, std::string_view kind)
{
    std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with(kind)) return std::strtod(line.c_str() + kind.size(), nullptr) / 1024;
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
        double secondsAnHour, proportional, dirty;
    };
    std::vector<Cost> costs;
    for (const auto& monitor : monitors) {
        const double spent = processorSeconds(monitor.process) - monitor.seconds;
        costs.push_back(
            {spent / period * 3600, megabytes(monitor.process, "Pss:"), megabytes(monitor.process, "Private_Dirty:")});
    }
    const struct {
        const char* what;
        double Cost::*part;
        const char* unit;
    } rows[] = {{"processor time", &Cost::secondsAnHour, "s/h"},
                {"proportional memory", &Cost::proportional, "MB"},
                {"private dirty memory", &Cost::dirty, "MB"}};
    for (const auto& [what, part, unit] : rows) {
        for (std::size_t at = 1; at < monitors.size(); ++at) {
            Bench::ratio(what, monitors[at].name, costs[0].*part, costs[at].*part, unit);
        }
    }
}
