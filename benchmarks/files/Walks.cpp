#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Lorrel/files/Path.h"
#include "benchmarks/Interleaved.h"
#include "benchmarks/files/Benches.h"

namespace Bench {

namespace {

namespace fs = std::filesystem;

std::uint64_t walked;

std::uint64_t sizeByIterator(const std::string& folder)
{
    std::uint64_t sum = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) sum += entry.file_size();
    }
    return sum;
}

int addSize(const char*, const struct stat* status, int kind, FTW*)
{
    if (kind != FTW_D) walked += static_cast<std::uint64_t>(status->st_size);
    return 0;
}

std::vector<fs::path> filesByIterator(const std::string& folder)
{
    std::vector<fs::path> files;
    for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::recursive_directory_iterator(); ++entry) {
        if (entry->path().filename().native().starts_with('.')) {
            entry.disable_recursion_pending();
        } else if (!entry->is_directory()) {
            files.push_back(entry->path());
        }
    }
    return files;
}

// Folders of 100 files each.
void makeTree(const std::string& tree, int folders)
{
    for (int i = 0; i < folders; ++i) {
        const std::string folder = tree + "/" + std::to_string(i % 20) + "/folder" + std::to_string(i);
        fs::create_directories(folder);
        for (int j = 0; j < 100; ++j) {
            const int file = ::open((folder + "/file" + std::to_string(j) + ".txt").c_str(), O_CREAT | O_WRONLY, 0600);
            [[maybe_unused]] const auto written = ::write(file, "content", static_cast<std::size_t>(j % 8));
            ::close(file);
        }
    }
}

std::vector<Contestant> sizes(const std::string& tree)
{
    return {{"Path::size", [url = Platform::Url::fromPath(tree, true)] { keep(Lorrel::Path::size(url)); }},
            {"du -sb", [command = "du -sb '" + tree + "' > /dev/null"] { keep(std::system(command.c_str())); }},
            {"nftw",
             [tree] {
                 walked = 0;
                 ::nftw(tree.c_str(), addSize, 64, FTW_PHYS);
                 keep(walked);
             }},
            {"std::filesystem", [tree] { keep(sizeByIterator(tree)); }}};
}

}  // namespace

void compareWalks(const std::string& root)
{
    const std::string tree = root + "/tree";
    for (const int folders : {1, 10, 100, 1000}) {
        makeTree(tree, folders);
        curve("size of a folder by files", folders * 100, sizes(tree));
    }
    compare("size of 100000 files", sizes(tree), 9);
    const Platform::Url url = Platform::Url::fromPath(tree, true);
    compare("list of 100000 files",
            {{"Path::files", [&] { keep(Lorrel::Path::files(url).size()); }},
             {"std::filesystem", [&] { keep(filesByIterator(tree).size()); }}},
            9);
    fs::remove_all(tree);
}

}  // namespace Bench
