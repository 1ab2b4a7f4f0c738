#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "Lorrel/apps/AppRunnerMonitor.h"
#include "Lorrel/apps/Apps.h"
#include "Lorrel/files/Path.h"
#include "benchmarks/Interleaved.h"
#include "benchmarks/files/Benches.h"
#include "platform/bundle/PropertyList.h"
#include "platform/files/FileManager.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"
#include "platform/session/Workspace.h"

namespace Bench {

namespace {

namespace fs = std::filesystem;
using Platform::PropertyList;

struct RootAt final : Platform::SystemRoots {
    explicit RootAt(std::string root) : root_(std::move(root)) {}
    std::string applications() const override { return root_ + "/Applications"; }
    std::string system() const override { return root_ + "/System"; }
    std::string root_;
};

std::vector<std::string> makeBundles(const std::string& folder, int count)
{
    std::vector<std::string> files;
    for (int i = 0; i < count; ++i) {
        const std::string name = "App" + std::to_string(i);
        const std::string contents = folder + "/" + name + ".app/Contents";
        fs::create_directories(contents + "/MacOS");
        fs::create_directories(contents + "/Resources");
        const PropertyList::Dictionary information = {{"CFBundleIdentifier", "org.example." + name},
                                                      {"CFBundleName", name},
                                                      {"CFBundleExecutable", name},
                                                      {"CFBundlePackageType", "APPL"},
                                                      {"CFBundleShortVersionString", "1.2.3"},
                                                      {"CFBundleVersion", "123"},
                                                      {"LSMinimumSystemVersion", "11.5"},
                                                      {"NSHumanReadableCopyright", "Copyright " + name}};
        files.push_back(contents + "/Info.plist");
        std::ofstream(files.back()) << *PropertyList(information).xml();
        std::ofstream(contents + "/MacOS/" + name) << "program";
    }
    return files;
}

}  // namespace

void compareCatalog(const std::string& root)
{
    const auto files = makeBundles(root + "/Applications", 2000);
    const Platform::Shared<Platform::SystemRoots>::Override roots(std::make_shared<RootAt>(root));
    compare("catalogue of 2000 bundles",
            {{"installedApps", [] { keep(Lorrel::Apps::installedApps(false).size()); }},
             {"Info.plist read and parsed",
              [&] {
                  for (const auto& file : files) keep(PropertyList::read(file).isSuccess());
              }},
             {"Info.plist read",
              [&] {
                  for (const auto& file : files) keep(Platform::FileManager::shared().contents(file)->size());
              }}},
            7);
    fs::remove_all(root + "/Applications");

    std::vector<std::string> identifiers;
    for (int i = 0; i < 20; ++i) identifiers.push_back("org.example.App" + std::to_string(i));
    const auto monitor = Lorrel::AppRunnerMonitor::create(identifiers, 1);
    compare("look at 20 applications",
            {{"AppRunnerMonitor", [&] { monitor->refresh(); }},
             {"one scan of the processes", [] { keep(Platform::Workspace::shared().runningApplications().size()); }}},
            49);
}

}  // namespace Bench
