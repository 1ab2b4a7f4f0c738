// Questions about processes on a machine with about 470 of them: ours beside a
// raw scan, libproc2 and pgrep.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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
#include "benchmarks/Interleaved.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/session/Workspace.h"

namespace {

constexpr int wantedProcesses = 470;
constexpr int rounds = 31;

int processCount()
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        count += std::isdigit(static_cast<unsigned char>(entry.path().filename().string()[0])) != 0;
    }
    return count;
}

void fillTable(std::vector<pid_t>& children, int wanted)
{
    for (int missing = wanted - processCount(); missing > 0; --missing) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            while (true) ::pause();
        }
        children.push_back(child);
    }
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

Bench::Contestant askRunning(const char* identifier)
{
    return {"isRunning", [identifier] { Bench::keep(Lorrel::Apps::isRunning(identifier)); }};
}

Bench::Contestant raw(const char* executable)
{
    return {"raw readlinkat scan", [executable] { Bench::keep(rawScan(executable)); }};
}

void askAmong(std::vector<pid_t>& children, int count)
{
    fillTable(children, count);
    Bench::curve("isRunning by processes", processCount(), {askRunning("org.example.missing"), raw("/missing")});
}

}  // namespace

int main()
{
    std::string folder = (std::filesystem::temp_directory_path() / "bench-apps-XXXXXX").string();
    if (!::mkdtemp(folder.data())) return 1;
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 0);  // else its lock file outlives this
    std::vector<pid_t> children;
    for (const int count : {120, 240, wantedProcesses}) askAmong(children, count);
    Platform::Workspace& workspace = Platform::Workspace::shared();
    const auto application =
        workspace.openApplication(Platform::Url::fromPath(makeApplication(folder)), {.arguments = {"300"}});
    if (!application) return 1;
    const std::string executable = application->executableUrl().path();

    Bench::compare("isRunning of none", {askRunning("org.example.missing"), raw("/missing")}, rounds);
    Bench::compare("isRunning of one seen before", {askRunning("org.example.bench"), raw(executable.c_str())}, rounds);
    Bench::compare("isRunning of one seen before in all", {askRunning("org.example.bench")}, rounds);
    Bench::compare("isProcessRunning of none",
                   {{"ours", [] { Bench::keep(Lorrel::Apps::isProcessRunning("no-such-process")); }},
                    {"libproc2", [] { Bench::keep(libprocScan("no-such-process")); }},
                    {"pgrep", [] { Bench::keep(pgrep("no-such-process")); }}},
                   rounds);

    askAmong(children, 2 * wantedProcesses);

    (void)application->terminate();
    for (const pid_t child : children) ::kill(child, SIGKILL);
    for (const pid_t child : children) ::waitpid(child, nullptr, 0);
    std::filesystem::remove_all(folder);
}
