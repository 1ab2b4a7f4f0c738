#include "benchmarks/notifications/peers/Peer.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>
#include <vector>

#include <unistd.h>

namespace Bench {

namespace {

using Clock = std::chrono::steady_clock;

double microsecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void say(const char* text)
{
    std::puts(text);
    std::fflush(stdout);
}

void ping(Peer& peer, std::size_t count)
{
    std::vector<double> times;
    Clock::time_point sent;
    const auto send = [&] {
        sent = Clock::now();
        peer.post("ping", "0");
    };
    peer.listen("pong", [&](const std::string&) {
        times.push_back(microsecondsSince(sent) / 2);
        if (times.size() == count) return peer.stop();
        send();
    });
    send();
    peer.run();
    std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(count / 2));
    std::printf("%.2f\n", times[count / 2]);
}

void collect(Peer& peer, int count)
{
    int received = 0;
    Clock::time_point first;
    peer.listen("burst", [&](const std::string& object) {
        if (received == 0) first = Clock::now();
        if (object != std::to_string(received)) say("out of order");
        if (++received == count) peer.stop();
    });
    say("ready");
    peer.run();
    std::printf("%.4f\n", microsecondsSince(first) / 1e6);
}

// As fast as possible, or so many a second.
void burst(Peer& peer, int count, int rate)
{
    const auto start = Clock::now();
    for (int number = 0; number < count; ++number) {
        if (rate > 0) std::this_thread::sleep_until(start + std::chrono::nanoseconds(1'000'000'000LL * number / rate));
        peer.post("burst", std::to_string(number));
    }
}

}  // namespace

int peerMain(int argc, char** argv, Peer& peer)
{
    const std::string_view mode = argc > 1 ? argv[1] : "";
    const int count = argc > 2 ? std::stoi(argv[2]) : 0;
    if (mode == "wait") {
        peer.listen("killme", [&](const std::string&) { peer.stop(); });
        say("ready");
        peer.run();
    } else if (mode == "echo") {
        peer.listen("ping", [&](const std::string& object) { peer.post("pong", object); });
        say("ready");
        peer.run();
    } else if (mode == "ping") {
        ping(peer, static_cast<std::size_t>(count));
    } else if (mode == "collect") {
        collect(peer, count);
    } else if (mode == "burst") {
        burst(peer, count, argc > 3 ? std::stoi(argv[3]) : 0);
    } else {
        return 2;
    }
    return 0;
}

}  // namespace Bench
