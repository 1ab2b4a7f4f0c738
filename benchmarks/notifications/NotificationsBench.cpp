// Latency of a notification from process to process and the time that a burst
// takes, ours and the peers in turn; medians of the rounds.

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "benchmarks/notifications/peers/Program.h"

namespace {

constexpr int rounds = 5;
const std::string pings = "2000";
const std::string burst = "20000";

const std::vector<std::pair<std::string, std::string>> peers{
    {"ours", PEER_OURS}, {"sd-bus", PEER_SDBUS}, {"GDBus", PEER_GDBUS}, {"QtDBus", PEER_QTDBUS}};

double latency(const std::string& program)
{
    const Bench::Program echo({program, "echo"});
    echo.readLine();
    return std::stod(Bench::Program({program, "ping", pings}).readLine());
}

double burstTime(const std::string& program)
{
    const Bench::Program collector({program, "collect", burst});
    collector.readLine();
    Bench::Program({program, "burst", burst}).wait();
    return std::stod(collector.readLine());
}

// Ours alone: whether a long stream at a fixed rate arrives whole and in order, and how late its end.
void printSteadyStream()
{
    constexpr double seconds = 10;
    const std::string count = "100000";
    const Bench::Program collector({PEER_OURS, "collect", count});
    collector.readLine();
    Bench::Program({PEER_OURS, "burst", count, "10000"}).wait();
    const std::string answer = collector.readLine();
    const bool isWhole = answer != "out of order";
    std::printf("10000 a second for 10 s: %s", isWhole ? "all arrived in order" : answer.c_str());
    if (isWhole) std::printf(", the last %.3f s after its time", std::stod(answer) - seconds);
    std::printf("\n");
}

}  // namespace

int main(int, char** argv)
{
    Bench::onPrivateBus(argv);
    std::map<std::string, std::vector<double>> latencies;
    std::map<std::string, std::vector<double>> bursts;
    for (int round = 0; round < rounds; ++round) {
        for (const auto& [name, program] : peers) {
            latencies[name].push_back(latency(program));
            bursts[name].push_back(burstTime(program));
        }
    }
    const double rawLatency = Bench::median(latencies["sd-bus"]);
    const double rawBurst = Bench::median(bursts["sd-bus"]);
    std::printf("%-8s %14s %8s %18s %8s\n", "", "one way, us", "ratio", "burst of 20000, s", "ratio");
    for (const auto& [name, program] : peers) {
        const double time = Bench::median(latencies[name]);
        const double burstSeconds = Bench::median(bursts[name]);
        std::printf("%-8s %14.1f %8.2f %18.3f %8.2f\n", name.c_str(), time, time / rawLatency, burstSeconds,
                    burstSeconds / rawBurst);
    }
    printSteadyStream();
}
