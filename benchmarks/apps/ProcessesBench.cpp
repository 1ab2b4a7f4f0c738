// Questions about processes on a machine with about 470 of them: ours beside a
// raw scan, libproc2 and pgrep. Prints the fastest tenth of each, which a busy
// machine disturbs least, and ratios.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <libproc2/pids.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Lorrel/apps/queries/Apps.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/session/Workspace.h"

namespace {

constexpr int wantedProcesses = 470;
constexpr int rounds = 101;

int processCount()
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        count += std::isdigit(static_cast<unsigned char>(entry.path().filename().string()[0])) != 0;
    }
    return count;
}

std::vector<pid_t> fillTable()
{
    std::vector<pid_t> children;
    for (int missing = wantedProcesses - processCount(); missing > 0; --missing) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            while (true) ::pause();
        }
        children.push_back(child);
    }
    return children;
}

// The least that a question by path can cost: names and links, nothing else.
bool rawScan(const char* wanted)
{
    static const Platform::FileDescriptor folder(::open("/proc", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    alignas(8) char records[32768];
    char path[64];
    char link[4096];
    ::lseek(folder.get(), 0, SEEK_SET);
    while (true) {
        const long filled = ::syscall(SYS_getdents64, folder.get(), records, sizeof records);
        if (filled <= 0) return false;
        for (long at = 0; at < filled; at += *reinterpret_cast<const unsigned short*>(records + at + 16)) {
            const char* name = records + at + 19;
            if (*name < '0' || *name > '9') continue;
            std::snprintf(path, sizeof path, "%s/exe", name);
            const ssize_t length = ::readlinkat(folder.get(), path, link, sizeof link);
            if (length > 0 && std::string_view(link, static_cast<std::size_t>(length)) == wanted) return true;
        }
    }
}

bool libprocScan(const std::string& wanted)
{
    static pids_info* table = [] {
        pids_info* made = nullptr;
        pids_item items[] = {PIDS_ID_PID, PIDS_CMD};
        procps_pids_new(&made, items, 2);
        return made;
    }();
    const pids_fetch* fetched = procps_pids_reap(table, PIDS_FETCH_TASKS_ONLY);
    for (int i = 0; i < fetched->counts->total; ++i) {
        if (wanted == fetched->stacks[i]->head[1].result.str) return true;
    }
    return false;
}

bool pgrep(const char* name)
{
    const char* arguments[] = {"pgrep", "-x", name, nullptr};
    pid_t child = -1;
    if (::posix_spawnp(&child, "pgrep", nullptr, nullptr, const_cast<char**>(arguments), environ) != 0) return false;
    int status = 1;
    ::waitpid(child, &status, 0);
    return status == 0;
}

struct Contestant {
    const char* name;
    std::function<bool()> ask;
    std::vector<double> microseconds = {};

    void once()
    {
        const auto start = std::chrono::steady_clock::now();
        volatile bool answer = ask();
        (void)answer;
        const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
        microseconds.push_back(time.count());
    }
    double fastestTenth()
    {
        std::sort(microseconds.begin(), microseconds.end());
        return microseconds[microseconds.size() / 10];
    }
};

// In turns, so that the machine's moods meet all alike. The first is ours.
void compare(const char* question, std::vector<Contestant> contestants)
{
    for (int i = 0; i < rounds; ++i) {
        for (auto& contestant : contestants) contestant.once();
    }
    std::printf("%s\n", question);
    const double ours = contestants.front().fastestTenth();
    for (auto& contestant : contestants) {
        std::printf("  %-34s %10.1f us   ours takes %.3f of this\n", contestant.name, contestant.fastestTenth(),
                    ours / contestant.fastestTenth());
    }
}

std::string makeApplication(const std::string& folder)
{
    const std::string contents = folder + "/Bench.app/Contents";
    std::filesystem::create_directories(contents + "/MacOS");
    std::filesystem::copy_file("/bin/sleep", contents + "/MacOS/bench");
    std::ofstream(contents + "/Info.plist")
        << "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>bench</string>"
           "<key>CFBundleIdentifier</key><string>org.example.bench</string></dict></plist>";
    return folder + "/Bench.app";
}

}  // namespace

int main()
{
    std::string folder = (std::filesystem::temp_directory_path() / "bench-apps-XXXXXX").string();
    if (!::mkdtemp(folder.data())) return 1;
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 0);  // else its lock file outlives this
    const auto children = fillTable();
    Platform::Workspace& workspace = Platform::Workspace::shared();
    const auto application =
        workspace.openApplication(Platform::Url::fromPath(makeApplication(folder)), {.arguments = {"300"}});
    if (!application) return 1;
    std::printf("%d processes\n", processCount());

    compare("Is an application running? (it is not)",
            {{"Apps::isRunning", [] { return Lorrel::Apps::isRunning("org.example.missing"); }},
             {"raw readlinkat scan", [] { return rawScan("/missing"); }}});
    compare("The same of one seen running before",
            {{"Apps::isRunning", [] { return Lorrel::Apps::isRunning("org.example.bench"); }},
             {"raw readlinkat scan", [&] { return rawScan(application->executableUrl().path().c_str()); }}});
    compare("Is a process of this name running? (it is not)",
            {{"Apps::isProcessRunning", [] { return Lorrel::Apps::isProcessRunning("no-such-process"); }},
             {"libproc2", [] { return libprocScan("no-such-process"); }},
             {"pgrep", [] { return pgrep("no-such-process"); }}});

    (void)application->terminate();
    for (const pid_t child : children) ::kill(child, SIGKILL);
    for (const pid_t child : children) ::waitpid(child, nullptr, 0);
    std::filesystem::remove_all(folder);
}
