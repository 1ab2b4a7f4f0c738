// The launcher beside processes that only wait on the session bus: start,
// memory while waiting, wake-ups, and the time from "killme" to its end.
// Argument: how many seconds of silence to watch (60).

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "benchmarks/Report.h"
#include "benchmarks/notifications/peers/Program.h"
#include "platform/session/DistributedNotificationCenter.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int rounds = 31;
constexpr const char* contents = "/Contents/MacOS";
constexpr const char* launcherInApp = "/Contents/Library/LoginItems/PelloraLauncher.app";

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// The assembled application, with a program that only tells when it began.
class Stage {
public:
    Stage()
    {
        char name[] = "/tmp/pellora-bench-XXXXXX";
        folder_ = ::mkdtemp(name);
        const std::string app = folder_ + "/Pellora.app";
        fs::create_directories(app + contents);
        fs::create_directories(fs::path(app + launcherInApp).parent_path());
        fs::copy(std::string(PELLORA_APP) + launcherInApp, app + launcherInApp, fs::copy_options::recursive);
        fs::copy(std::string(PELLORA_APP) + "/Contents/Info.plist", app + "/Contents/Info.plist");
        fs::copy_file(OPENED_APPLICATION, app + contents + "/Pellora");
        const std::string pipe = app + contents + "/pipe";
        ::mkfifo(pipe.c_str(), 0600);
        pipe_ = ::open(pipe.c_str(), O_RDWR | O_CLOEXEC);
        launcher_ = app + launcherInApp + contents + "/PelloraLauncher";
        // Pages of a file just written would count as dirty memory.
        const int program = ::open(launcher_.c_str(), O_RDONLY | O_CLOEXEC);
        ::fsync(program);
        ::close(program);
    }
    ~Stage()
    {
        ::close(pipe_);
        fs::remove_all(folder_);
    }

    const std::string& launcher() const { return launcher_; }
    // When the application began to run. Returns after its end, so that the next launcher does not find it running.
    Clock::time_point waitUntilOpened() const
    {
        pid_t application = 0;
        pollfd opening{pipe_, POLLIN, 0};
        if (::poll(&opening, 1, 10'000) <= 0) {
            std::fputs("launcher_bench: the launcher opened nothing; does a Pellora of this user run?\n", stderr);
            std::exit(1);
        }
        if (::read(pipe_, &application, sizeof application) != sizeof application) std::abort();
        const auto opened = Clock::now();
        pollfd end{static_cast<int>(::syscall(SYS_pidfd_open, application, 0)), POLLIN, 0};
        if (end.fd < 0) return opened;  // it has ended
        ::poll(&end, 1, 10'000);
        ::close(end.fd);
        return opened;
    }

private:
    std::string folder_;
    std::string launcher_;
    int pipe_;
};

// A line "KEY: NUMBER ..." of a file of /proc.
long numberIn(pid_t process, const char* file, const std::string& key)
{
    std::ifstream stream("/proc/" + std::to_string(process) + "/" + file);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(key + ":")) return std::stol(line.substr(key.size() + 1));
    }
    return -1;
}

void post(const char* name, const std::string& object)
{
    Platform::DistributedNotificationCenter::shared().post(Platform::NotificationName(name), object);
}

void compareStarts(const Stage& stage)
{
    std::vector<double> bare, ours;
    for (int round = 0; round < rounds; ++round) {
        auto start = Clock::now();
        const Bench::Program peer({PEER_SDBUS, "wait"});
        peer.readLine();
        bare.push_back(millisecondsSince(start));

        start = Clock::now();
        const Bench::Program launcher({stage.launcher()});
        ours.push_back(std::chrono::duration<double, std::milli>(stage.waitUntilOpened() - start).count());
    }
    Bench::ratio("start until the application runs", "bare sd-bus until ready", Bench::median(ours),
                 Bench::median(bare), "ms");
    Bench::ratio("fastest start", "bare sd-bus until ready", std::ranges::min(ours), std::ranges::min(bare), "ms");
}

double proportionalMemory(const Bench::Program& program)
{
    return static_cast<double>(numberIn(program.pid(), "smaps_rollup", "Pss"));
}

// All wait at the same time, so that shared pages count alike.
void compareMemory(const Stage& stage)
{
    const Bench::Program launcher({stage.launcher()});
    stage.waitUntilOpened();
    const Bench::Program bare({PEER_BARE, "wait"});
    const Bench::Program sdbus({PEER_SDBUS, "wait"});
    const Bench::Program gdbus({PEER_GDBUS, "wait"});
    const Bench::Program qtdbus({PEER_QTDBUS, "wait"});
    for (const auto* peer : {&bare, &sdbus, &gdbus, &qtdbus}) peer->readLine();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));

    const auto compare = [&](const char* peer, const Bench::Program& program) {
        Bench::ratio("proportional memory while waiting", peer, proportionalMemory(launcher),
                     proportionalMemory(program), "kB");
    };
    compare("bare C++ with sd-bus and libplist", bare);
    compare("sd-bus", sdbus);
    compare("GDBus", gdbus);
    compare("QtDBus", qtdbus);
    Bench::figure("dirty memory while waiting",
                  static_cast<double>(numberIn(launcher.pid(), "smaps_rollup", "Private_Dirty")), "kB");
    Bench::figure("threads while waiting", static_cast<double>(numberIn(launcher.pid(), "status", "Threads")), "");
}

void countWakeUps(const Stage& stage, int seconds)
{
    const Bench::Program launcher({stage.launcher()});
    stage.waitUntilOpened();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const auto switches = [&] { return numberIn(launcher.pid(), "status", "voluntary_ctxt_switches"); };
    const long before = switches();
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const long afterSilence = switches();
    for (int number = 0; number < 1000; ++number) post(number % 2 ? "killme" : "other", "com.example.other");
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    Bench::figure("wake-ups in " + std::to_string(seconds) + " s of silence",
                  static_cast<double>(afterSilence - before), "");
    Bench::figure("wake-ups by 1000 foreign notifications", static_cast<double>(switches() - afterSilence), "");
}

void timeTheEnd(const Stage& stage)
{
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        Bench::Program launcher({stage.launcher()});
        stage.waitUntilOpened();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        pollfd end{static_cast<int>(::syscall(SYS_pidfd_open, launcher.pid(), 0)), POLLIN, 0};
        const auto start = Clock::now();
        post("killme", "com.orvane.pellora");
        ::poll(&end, 1, 10'000);
        times.push_back(millisecondsSince(start));
        ::close(end.fd);
        launcher.wait();
    }
    Bench::figure("killme posted until the process is gone", Bench::median(times), "ms");
}

}  // namespace

int main(int argc, char** argv)
{
    Bench::onPrivateBus(argv);
    const Stage stage;
    compareStarts(stage);
    compareMemory(stage);
    timeTheEnd(stage);
    countWakeUps(stage, argc > 1 ? std::atoi(argv[1]) : 60);
}
