#include <atomic>
#include <filesystem>
#include <limits>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Fennick/disk/DirectoryObserver.h"
#include "Fennick/disk/DiskUtilities.h"
#include "Fennick/disk/FileType.h"
#include "tests/support/Eventually.h"
#include "tests/support/TemporaryDirectory.h"

namespace Fennick {
namespace {

using Platform::Url;

TEST(DiskUtilities, RatesChangeTheirUnitsAtTheLimits)
{
    const struct {
        std::uint64_t rate;
        bool bits;
        const char* full;
        const char* compact;
    } rows[] = {
        {124'999, true, "999 Kb/s", "999 Kb/s"},
        {125'000, true, "1.00 Mb/s", "1 Mb/s"},
        {124'999'999, true, "1000.00 Mb/s", "999 Mb/s"},
        {124'999'999'999, true, "1000.00 Gb/s", "999 Gb/s"},
        {125'000'000'000, true, "0 b/s", "1000 Gb/s"},
        {1023, false, "1023 B/s", "1023 B/s"},
        {(1 << 20) - 1, false, "1023 KB/s", "1023 KB/s"},
        {1 << 20, false, "1.00 MB/s", "1 MB/s"},
        {(1 << 30) - 1, false, "1024.00 MB/s", "1023 MB/s"},
        {1'610'612'736, false, "1.50 GB/s", "1.50 GB/s"},
        {std::numeric_limits<std::uint64_t>::max(), false, "17179869184.00 GB/s", "17179869184.00 GB/s"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DiskUtilities::rateText(row.rate, row.bits), row.full) << row.rate;
        EXPECT_EQ(DiskUtilities::compactRateText(row.rate, row.bits), row.compact) << row.rate;
    }
    for (const double seconds : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(DiskUtilities::rateText(100, seconds, false), "-");
    }
    EXPECT_EQ(DiskUtilities::rateText(100, 3, false), "33 B/s");
    EXPECT_EQ(DiskUtilities::compactRateText(3 << 20, 2, false), "1 MB/s");
    EXPECT_EQ(DiskUtilities::rateText(1, 1e-300, false), "17179869184.00 GB/s");
}

TEST(FileType, IsTheKindThatTheNameTells)
{
    const Tests::TemporaryDirectory folder;
    const std::pair<const char*, FileType> rows[] = {{"a.heic", FileType::photo},     {"A.JPEG", FileType::photo},
                                                     {"a.mov", FileType::video},      {"a.m4a", FileType::audio},
                                                     {"a.tar.gz", FileType::archive}, {"a.pdf", FileType::document},
                                                     {"a.txt", FileType::other},      {"none", FileType::other}};
    for (const auto& [name, type] : rows) EXPECT_EQ(fileType(Url::fromPath(folder.write(name, "x"))), type) << name;
    EXPECT_EQ(fileType(Url::fromPath(folder.makeFolder("folder.jpg"))), FileType::other);
    EXPECT_EQ(fileType(Url::fromPath(folder / "missing.jpg")), FileType::other);
}

TEST(FilesByDate, NewestComesFirstAndEqualDatesKeepTheirOrder)
{
    const Tests::TemporaryDirectory folder;
    std::vector<Url> expected;
    for (const long seconds : {200, 100, 100, -5}) {
        expected.push_back(Url::fromPath(folder.write(std::to_string(expected.size()), "")));
        const timespec times[] = {{seconds, 0}, {seconds, 0}};
        ::utimensat(AT_FDCWD, expected.back().path().c_str(), times, 0);
    }
    for (const char* const missing : {"a", "b"}) expected.push_back(Url::fromPath(folder / missing));
    std::vector<Url> mixed;
    for (const std::size_t at : {4U, 1U, 3U, 2U, 5U, 0U}) mixed.push_back(expected[at]);
    EXPECT_EQ(sortedByModificationDate(mixed), expected);
}

TEST(DirectoryObserver, CallsOnABackgroundThreadForEveryKindOfEvent)
{
    const Tests::TemporaryDirectory root;
    const std::string folder = root.makeFolder("watched");
    std::atomic<int> calls = 0;
    std::atomic<std::thread::id> thread;
    const DirectoryObserver observer(Url::fromPath(folder), [&] {
        thread = std::this_thread::get_id();
        ++calls;
    });
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"new entry", [&] { root.write("watched/a", ""); }},
        {"entry removed", [&] { std::filesystem::remove(folder + "/a"); }},
        {"permissions", [&] { ::chmod(folder.c_str(), 0700); }},
        {"renamed", [&] { std::filesystem::rename(folder, root / "moved"); }},
        {"followed", [&] { root.write("moved/c", ""); }},
    };
    for (const auto& [what, change] : rows) {
        const int before = calls;
        change();
        EXPECT_TRUE(Tests::eventually([&] { return calls > before; })) << what;
    }
    EXPECT_NE(thread.load(), std::this_thread::get_id());
}

TEST(DirectoryObserver, EndsWithItsOwnerEvenWhileEventsComeOrWhereNoneCan)
{
    const Tests::TemporaryDirectory root;
    std::atomic<int> late = 0;
    for (int i = 0; i < 50; ++i) {
        const auto isEnded = std::make_shared<std::atomic<bool>>(false);
        {
            const DirectoryObserver observer(root.url(), [&late, isEnded] { late += *isEnded; });
            root.write("file" + std::to_string(i), "");
        }
        *isEnded = true;
        root.write("later" + std::to_string(i), "");
    }
    EXPECT_EQ(DirectoryObserver(Url::fromPath(root / "missing"), [] {}).fileDescriptor(), -1);
    std::atomic<bool> isCalled = false;
    const DirectoryObserver last(root.url(), [&] { isCalled = true; });
    root.write("end", "");
    EXPECT_TRUE(Tests::eventually([&] { return isCalled.load(); }));
    EXPECT_LT(late, 10) << "but for calls that had begun";
}

}  // namespace
}  // namespace Fennick
