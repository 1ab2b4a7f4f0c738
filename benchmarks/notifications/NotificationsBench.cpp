// Latency of a notification from process to process and the time that a burst
// takes, ours and the peers in turn; medians of the rounds.

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "Fennick/notifications/Notifications.h"
#include "benchmarks/Report.h"
#include "benchmarks/notifications/peers/Program.h"
#include "platform/runtime/RunLoop.h"

namespace {

constexpr int rounds = 7;
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
void reportSteadyStream()
{
    constexpr double seconds = 10;
    const std::string count = "100000";
    const Bench::Program collector({PEER_OURS, "collect", count});
    collector.readLine();
    Bench::Program({PEER_OURS, "burst", count, "10000"}).wait();
    const std::string answer = collector.readLine();
    if (answer == "out of order") {
        Bench::figure("10000 a second for 10 s out of order", 1, "");
    } else {
        Bench::figure("lateness after 10000 a second for 10 s", std::stod(answer) - seconds, "s");
    }
}

// No daemon answers on this bus; the caller does not wait to find out.
void timeSending()
{
    std::vector<double> microseconds;
    for (int count = 0; count < 101; ++count) {
        const auto start = std::chrono::steady_clock::now();
        Fennick::Notifications::send("title", "body");
        const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
        microseconds.push_back(spent.count());
        Platform::RunLoop::main().drain();
    }
    Bench::figure("sending a user notification", Bench::median(std::move(microseconds)), "us");
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
    for (const char* peer : {"sd-bus", "GDBus", "QtDBus"}) {
        Bench::ratio("one way from process to process", peer, Bench::median(latencies["ours"]),
                     Bench::median(latencies[peer]), "us");
        Bench::ratio("burst of 20000", peer, Bench::median(bursts["ours"]), Bench::median(bursts[peer]), "s");
    }
    reportSteadyStream();
    timeSending();
}
