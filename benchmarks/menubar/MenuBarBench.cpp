// Status items and hot keys beside the toolkit's tray class and a bare X loop.
// Runs on the session bus and the display of its environment (see "run").
#include <chrono>
#include <cmath>
#include <fstream>
#include <functional>
#include <sstream>

#include <malloc.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include "benchmarks/Report.h"
#include "platform/input/HotKeyService.h"
#include "platform/menubar/StatusBar.h"
#include "platform/runtime/Clock.h"
#include "platform/runtime/Shared.h"
#include "platform/ui/Image.h"
#include "tests/support/TrayHost.h"

extern char** environ;

namespace {

using namespace Platform;
using Seconds = std::chrono::duration<double>;

double now()
{
    return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double processorSeconds()
{
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Every reading is later than any pause between publications.
class HastyClock final : public Clock {
public:
    double wallSeconds() const override { return 0; }
    std::chrono::nanoseconds monotonic() const override { return time_ += std::chrono::seconds(1); }

private:
    mutable std::chrono::nanoseconds time_{0};
};

// A graph of 60 readings, as a system monitor shows it.
void drawGraph(GraphicsContext& context, int phase)
{
    BezierPath path;
    path.move({0, 11});
    for (int x = 1; x <= 60; ++x) path.line({x * 22.0 / 60, 11 + 10 * std::sin((x + phase) / 5.0)});
    context.setStrokeColor(Color::labelColor());
    context.stroke(path);
}

void measurePublishing(Tests::TrayHost& host)
{
    const Shared<Clock>::Override hasty(std::make_shared<HastyClock>());
    const auto item = StatusBar::system().statusItem(StatusItem::squareLength);
    int phase = 0;
    item->button()->setImage(
        std::make_shared<Image>(Size{22, 22}, [&](GraphicsContext& context) { drawGraph(context, phase); }));
    host.waitForItem();
    host.pixmap();
    const auto update = [&](int count) {
        for (int step = 0; step < count; ++step) {
            ++phase;
            item->button()->setNeedsDisplay(true);
            RunLoop::current().drain();
        }
    };
    update(200);
    const auto heap = mallinfo2().uordblks;
    const double before = processorSeconds();
    constexpr int count = 5'000;
    update(count);
    const double each = (processorSeconds() - before) / count;
    Bench::figure("redraw and publish a 22 x 22 graph", each * 1e6, "us");
    Bench::figure("heap growth of 5000 updates",
                  static_cast<double>(static_cast<long>(mallinfo2().uordblks) - static_cast<long>(heap)), "bytes");
}

// A press that the server makes up.
class Presser {
public:
    void key(bool isDown)
    {
        xcb_test_fake_input(connection_, isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, 38, 0, XCB_NONE, 0, 0, 0);
        xcb_flush(connection_);
    }

private:
    xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
};

std::vector<double> pressesOf(const std::function<void()>& await, int count)
{
    Presser presser;
    std::vector<double> times;
    for (int step = 0; step < count; ++step) {
        const double start = now();
        presser.key(true);
        await();
        times.push_back(now() - start);
        presser.key(false);
        await();
    }
    return times;
}

std::vector<double> ourPresses(int count)
{
    int events = 0;
    auto& service = HotKeyService::shared();
    service.installEventHandler([&](const HotKeyEvent*) {
        ++events;
        return HotKeyStatuses::noError;
    });
    const auto registration = service.registerKey(0, 0, {1, 1});
    RunLoop::current().drain();
    const auto times = pressesOf(
        [&] {
            const int wanted = events + 1;
            RunLoop::current().runUntil([&] { return events >= wanted; }, std::chrono::seconds(2));
        },
        count);
    if (registration.handle) service.unregisterKey(*registration.handle);
    return times;
}

std::vector<double> barePresses(int count)
{
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_grab_key(connection, false, root, XCB_MOD_MASK_ANY, 38, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_flush(connection);
    const auto times = pressesOf(
        [&] {
            for (bool isKey = false; !isKey;) {
                pollfd waiting{xcb_get_file_descriptor(connection), POLLIN, 0};
                xcb_generic_event_t* event = xcb_poll_for_event(connection);
                if (!event) {
                    ::poll(&waiting, 1, 2000);
                    continue;
                }
                isKey = (event->response_type & 0x7F) <= XCB_KEY_RELEASE;
                std::free(event);
            }
        },
        count);
    xcb_disconnect(connection);
    return times;
}

void measurePresses()
{
    std::vector<double> ours, bare;
    for (int round = 0; round < 7; ++round) {
        const auto our = ourPresses(200), their = barePresses(200);
        ours.push_back(Bench::median(our));
        bare.push_back(Bench::median(their));
    }
    Bench::ratio("press until the handler runs", "bare xcb loop", Bench::median(ours) * 1e6, Bench::median(bare) * 1e6,
                 "us");
}

long fieldOf(const std::string& path, const std::string& name)
{
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name)) return std::atol(line.c_str() + name.size());
    }
    return -1;
}

struct Cost {
    double start = 0;
    double kilobytes = 0;
    double wakeUps = 0;
};

Cost costOf(const char* program, Tests::TrayHost& host)
{
    const int before = host.registrations;
    char* arguments[] = {const_cast<char*>(program), nullptr};
    pid_t pid = 0;
    Cost cost;
    const double start = now();
    if (::posix_spawn(&pid, program, nullptr, nullptr, arguments, environ) != 0) return cost;
    Tests::eventually([&] { return host.registrations > before; });
    cost.start = now() - start;
    host.pixmap();
    RunLoop::current().runUntil([] { return false; }, std::chrono::milliseconds(700));
    const std::string folder = "/proc/" + std::to_string(pid);
    cost.kilobytes = static_cast<double>(fieldOf(folder + "/smaps_rollup", "Private_Dirty:"));
    const long switches = fieldOf(folder + "/status", "voluntary_ctxt_switches:");
    RunLoop::current().runUntil([] { return false; }, std::chrono::seconds(3));
    cost.wakeUps = static_cast<double>(fieldOf(folder + "/status", "voluntary_ctxt_switches:") - switches);
    ::kill(pid, SIGKILL);
    ::waitpid(pid, nullptr, 0);
    return cost;
}

void measurePrograms(Tests::TrayHost& host)
{
    std::vector<double> start[2], memory[2], wakeUps[2];
    for (int round = 0; round < 7; ++round) {
        for (int which = 0; which < 2; ++which) {
            const Cost cost = costOf(which == 0 ? OUR_ITEM : QT_ITEM, host);
            start[which].push_back(cost.start * 1e3);
            memory[which].push_back(cost.kilobytes);
            wakeUps[which].push_back(cost.wakeUps);
        }
    }
    const auto compare = [](const char* what, const std::vector<double>* both, const char* unit) {
        Bench::ratio(what, "the toolkit's tray class", Bench::median(both[0]), Bench::median(both[1]), unit);
    };
    compare("start until the item is registered", start, "ms");
    compare("private dirty memory", memory, "kB");
    Bench::figure("wake-ups in 3 s of idleness", Bench::median(wakeUps[0]), "");
}

}  // namespace

int main()
{
    Tests::TrayHost host;
    measurePublishing(host);
    measurePresses();
    measurePrograms(host);
}
