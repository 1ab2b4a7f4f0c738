// What the computer's facts cost: cached, all of them cold, and beside the tools
// that print the same facts; and lookups in the device catalogues.
#include <memory>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Lorrel/system/MacSystem.h"
#include "Lorrel/system/MobileDevices.h"
#include "Lorrel/system/internal/MobileDeviceTable.h"
#include "Lorrel/system/internal/SystemFacts.h"
#include "benchmarks/Interleaved.h"
#include "platform/runtime/Shared.h"

namespace {

using Lorrel::MacSystem;

void readEverything()
{
    const Platform::Shared<Lorrel::SystemFacts>::Override cold;
    Bench::keep(MacSystem::model());
    Bench::keep(MacSystem::cpuBrand());
    Bench::keep(MacSystem::hostName());
    Bench::keep(MacSystem::architecture());
    Bench::keep(MacSystem::serialNumber());
    Bench::keep(MacSystem::marketingName());
    Bench::keep(MacSystem::threadCount());
    Bench::keep(MacSystem::physicalCoreCount());
    Bench::keep(MacSystem::logicalCoreCount());
    Bench::keep(MacSystem::osDescription());
    Bench::keep(MacSystem::osProductVersion());
    Bench::keep(MacSystem::physicalMemoryText());
    Bench::keep(MacSystem::thermalState());
    Bench::keep(MacSystem::uptimeText());
    Bench::keep(MacSystem::bootUptimeText());
}

void runTool(const char* name)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    char* const arguments[] = {const_cast<char*>(name), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, name, &actions, nullptr, arguments, environ) == 0) waitpid(child, nullptr, 0);
    posix_spawn_file_actions_destroy(&actions);
}

}  // namespace

int main()
{
    Bench::compare("all details from cold", {{"ours", readEverything}, {"lscpu and uname", [] {
                                                                            runTool("lscpu");
                                                                            runTool("uname");
                                                                        }}});
    Bench::compare("cached value", {{"ours", [] { Bench::keep(MacSystem::model()); }}});
    const auto rows = Lorrel::tabletRows();
    std::size_t next = 0;
    Bench::compare("device lookup", {{"ours", [&] {
                                          Bench::keep(Lorrel::MobileDevices::device(rows[next].identifier));
                                          next = (next + 1) % rows.size();
                                      }}});
}
