// What the computer's facts cost: cached, all of them cold, and beside the tools
// that print the same facts; and lookups in the device catalogues.
#include <memory>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Lorrel/system/MacSystem.h"
#include "Lorrel/system/MobileDevices.h"
#include "Lorrel/system/internal/MobileDeviceTable.h"
#include "Lorrel/system/internal/SystemFacts.h"
#include "platform/runtime/Shared.h"

namespace {

using Lorrel::MacSystem;

void readEverything()
{
    const Platform::Shared<Lorrel::SystemFacts>::Override cold;
    benchmark::DoNotOptimize(MacSystem::model());
    benchmark::DoNotOptimize(MacSystem::cpuBrand());
    benchmark::DoNotOptimize(MacSystem::hostName());
    benchmark::DoNotOptimize(MacSystem::architecture());
    benchmark::DoNotOptimize(MacSystem::serialNumber());
    benchmark::DoNotOptimize(MacSystem::marketingName());
    benchmark::DoNotOptimize(MacSystem::threadCount());
    benchmark::DoNotOptimize(MacSystem::physicalCoreCount());
    benchmark::DoNotOptimize(MacSystem::logicalCoreCount());
    benchmark::DoNotOptimize(MacSystem::osDescription());
    benchmark::DoNotOptimize(MacSystem::osProductVersion());
    benchmark::DoNotOptimize(MacSystem::physicalMemoryText());
    benchmark::DoNotOptimize(MacSystem::thermalState());
    benchmark::DoNotOptimize(MacSystem::uptimeText());
    benchmark::DoNotOptimize(MacSystem::bootUptimeText());
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

void snapshotOurs(benchmark::State& state)
{
    for (auto _ : state) readEverything();
}

void snapshotTools(benchmark::State& state)
{
    for (auto _ : state) {
        runTool("lscpu");
        runTool("uname");
    }
}

void cachedModel(benchmark::State& state)
{
    MacSystem::model();
    for (auto _ : state) benchmark::DoNotOptimize(MacSystem::model());
}

void deviceLookup(benchmark::State& state)
{
    const auto rows = Lorrel::tabletRows();
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Lorrel::MobileDevices::device(rows[next].identifier));
        next = (next + 1) % rows.size();
    }
}

BENCHMARK(snapshotOurs)->Name("snapshot/ours")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(snapshotTools)->Name("snapshot/lscpu and uname")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(cachedModel)->Name("cached value/ours");
BENCHMARK(deviceLookup)->Name("tablet lookup/ours");

}  // namespace

BENCHMARK_MAIN();
