#include <chrono>
#include <concepts>
#include <csignal>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Lorrel/files/FileMonitor.h"
#include "benchmarks/Report.h"
#include "benchmarks/files/Benches.h"
#include "platform/runtime/RunLoop.h"

namespace Bench {

namespace {

constexpr std::string_view line = "one line of a log\n";

// A file and the time between an append to it and its arrival.
class Log {
public:
    explicit Log(std::string path) : path_(std::move(path))
    {
        std::ofstream(path_) << "start\n";
        writer_ = ::open(path_.c_str(), O_WRONLY | O_APPEND);
    }
    ~Log() { ::close(writer_); }
    const std::string& path() const { return path_; }
    void append() const { [[maybe_unused]] const auto written = ::write(writer_, line.data(), line.size()); }

private:
    std::string path_;
    int writer_ = -1;
};

using Time = std::chrono::steady_clock::time_point;

struct Receiver final : Lorrel::FileMonitorDelegate {
    void didAppend(const std::string&) override
    {
        called = std::chrono::steady_clock::now();
        Platform::RunLoop::main().stop();
    }
    Time called;
};

// The smallest follower there is: one watch, one epoll, one positioned read.
class RawFollower {
public:
    explicit RawFollower(const std::string& path)
        : file_(::open(path.c_str(), O_RDONLY)), notes_(::inotify_init1(IN_NONBLOCK)), epoll_(::epoll_create1(0))
    {
        ::inotify_add_watch(notes_, path.c_str(), IN_MODIFY);
        epoll_event event{EPOLLIN, {}};
        ::epoll_ctl(epoll_, EPOLL_CTL_ADD, notes_, &event);
        offset_ = ::lseek(file_, 0, SEEK_END);
    }
    ~RawFollower()
    {
        for (const int descriptor : {file_, notes_, epoll_}) ::close(descriptor);
    }
    void awaitLine()
    {
        epoll_event event{};
        ::epoll_wait(epoll_, &event, 1, -1);
        char buffer[4096];
        [[maybe_unused]] auto count = ::read(notes_, buffer, sizeof buffer);
        offset_ += ::pread(file_, buffer, sizeof buffer, offset_);
    }

private:
    int file_;
    int notes_;
    int epoll_;
    off_t offset_ = 0;
};

// tail -F on a pipe.
class Tail {
public:
    explicit Tail(const std::string& path)
    {
        int ends[2];
        [[maybe_unused]] const int made = ::pipe(ends);
        pid_ = ::fork();
        if (pid_ == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::execlp("tail", "tail", "-n", "1", "-F", path.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(ends[1]);
        output_ = ends[0];
        awaitLine();  // the one that was there
    }
    ~Tail()
    {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
        ::close(output_);
    }
    void awaitLine() const
    {
        char buffer[4096];
        [[maybe_unused]] auto count = ::read(output_, buffer, sizeof buffer);
    }

private:
    pid_t pid_ = -1;
    int output_ = -1;
};

// Appends on another thread while the follower sleeps, as another process would.
class Appender {
public:
    explicit Appender(const Log& log) : log_(log)
    {
        [[maybe_unused]] const int made = ::pipe(ends_);
        thread_ = std::thread([this] {
            char order;
            while (::read(ends_[0], &order, 1) == 1 && order == 'a') {
                std::this_thread::sleep_for(std::chrono::microseconds(200));  // the follower sleeps by then
                start_ = std::chrono::steady_clock::now();
                log_.append();
            }
        });
    }
    ~Appender()
    {
        [[maybe_unused]] const auto written = ::write(ends_[1], "q", 1);
        thread_.join();
        for (const int end : ends_) ::close(end);
    }
    void order() const { [[maybe_unused]] const auto written = ::write(ends_[1], "a", 1); }
    double microsecondsUntil(Time arrival) const
    {
        return std::chrono::duration<double, std::micro>(arrival - start_).count();
    }

private:
    const Log& log_;
    int ends_[2] = {-1, -1};
    Time start_;
    std::thread thread_;
};

// Until what is awaited says that it came, or else until the wait is over.
template <typename Await>
double latency(const Appender& appender, Await&& await)
{
    appender.order();
    if constexpr (std::same_as<decltype(await()), Time>) return appender.microsecondsUntil(await());
    await();
    return appender.microsecondsUntil(std::chrono::steady_clock::now());
}

}  // namespace

void compareMonitors(const std::string& root)
{
    const Log ourLog(root + "/ours.log");
    const Log rawLog(root + "/raw.log");
    const Log tailLog(root + "/tail.log");
    const auto monitor = Lorrel::FileMonitor::create(Platform::Url::fromPath(ourLog.path()));
    const auto receiver = std::make_shared<Receiver>();
    monitor->setDelegate(receiver);
    RawFollower raw(rawLog.path());
    const Tail tail(tailLog.path());
    const Appender ourAppender(ourLog);
    const Appender rawAppender(rawLog);
    const Appender tailAppender(tailLog);
    std::vector<double> ours;
    std::vector<double> raws;
    std::vector<double> tails;
    for (int i = 0; i < 500; ++i) {
        // Without an end in time, as a program waits and as the peers do: a timer has its price.
        ours.push_back(latency(ourAppender, [&] {
            Platform::RunLoop::main().run();
            return receiver->called;
        }));
        raws.push_back(latency(rawAppender, [&] { raw.awaitLine(); }));
        tails.push_back(latency(tailAppender, [&] { tail.awaitLine(); }));
    }
    ratio("append to callback", "raw inotify with epoll", median(ours), median(raws), "us");
    ratio("append to callback", "tail -F", median(ours), median(tails), "us");
}

}  // namespace Bench
