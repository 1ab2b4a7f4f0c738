#include <cstdint>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "benchmarks/Interleaved.h"
#include "benchmarks/files/Benches.h"
#include "platform/bundle/UserDefaults.h"

namespace Bench {

namespace {

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
    compare("save of one setting among 50",
            {{"UserDefaults", [&] { defaults->set("turn", ++turn); }},
             {"write and fsync and rename and fsync", [&] { replaceFile(root, content, true); }},
             {"write and fsync and rename", [&] { replaceFile(root, content, false); }}},
            49);
    compare("read of a setting",
            {{"UserDefaults", [&] { keep(*defaults->integer("turn")); }},
             {"read of its file",
              [&] {
                  char buffer[4096];
                  const int file = ::open(defaults->path().c_str(), O_RDONLY);
                  keep(::read(file, buffer, sizeof buffer));
                  ::close(file);
              }}},
            9);
}

}  // namespace Bench
