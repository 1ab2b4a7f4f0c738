#include <cstdint>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "benchmarks/files/Benches.h"
#include "benchmarks/files/Measured.h"
#include "platform/bundle/UserDefaults.h"

namespace Bench {

namespace {

volatile std::int64_t result;

void replaceFile(const std::string& folder, const std::string& content, bool syncsFolder)
{
    const std::string temporary = folder + "/plain.new";
    const int file = ::open(temporary.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    [[maybe_unused]] const auto written = ::write(file, content.data(), content.size());
    ::fsync(file);
    ::close(file);
    std::rename(temporary.c_str(), (folder + "/plain").c_str());
    if (!syncsFolder) return;
    const int open = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    ::fsync(open);
    ::close(open);
}

}  // namespace

void compareDefaults(const std::string& root)
{
    const auto defaults = Platform::UserDefaults::suite("org.example.bench");
    for (int i = 0; i < 50; ++i) defaults->set("key" + std::to_string(i), "value " + std::to_string(i));
    int turn = 0;
    const std::string content(2500, 'x');
    compare(
        "save of one setting among 50", [&] { defaults->set("turn", ++turn); },
        {{"write, fsync, rename, fsync", [&] { replaceFile(root, content, true); }},
         {"write, fsync, rename", [&] { replaceFile(root, content, false); }}},
        99);
    compare(
        "read of a setting, 10,000 times",
        [&] {
            for (int i = 0; i < 10'000; ++i) result = *defaults->integer("turn");
        },
        {{"read of its file, 10,000 times",
          [&] {
              char buffer[4096];
              for (int i = 0; i < 10'000; ++i) {
                  const int file = ::open(defaults->path().c_str(), O_RDONLY);
                  result = ::read(file, buffer, sizeof buffer);
                  ::close(file);
              }
          }}},
        9);
}

}  // namespace Bench
