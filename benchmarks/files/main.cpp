#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "benchmarks/files/Benches.h"

int main()
{
    std::string root = (std::filesystem::temp_directory_path() / "pellora-bench-XXXXXX").string();
    if (!::mkdtemp(root.data())) return 1;
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    ::setenv("HOME", root.c_str(), 1);
    ::unsetenv("XDG_CONFIG_HOME");
    Bench::compareWalks(root);
    Bench::compareCatalog(root);
    Bench::compareMonitors(root);
    Bench::compareDefaults(root);
    std::filesystem::remove_all(root);
    return 0;
}
