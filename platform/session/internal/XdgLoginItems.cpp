#include "platform/session/internal/XdgLoginItems.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <unistd.h>

#include "platform/bundle/Bundle.h"
#include "platform/runtime/Shared.h"
#include "platform/session/internal/AutostartFolder.h"

namespace Platform {

namespace {

namespace fs = std::filesystem;

std::optional<StartedProgram> programOf(const Bundle& bundle)
{
    const auto path = bundle.executablePath();
    if (!bundle.bundleIdentifier() || !path || ::access(path->c_str(), X_OK) != 0) return std::nullopt;
    return StartedProgram{fs::path(bundle.bundlePath()).stem(), *path};
}

}  // namespace

LoginItems& LoginItems::shared()
{
    return Shared<LoginItems>::get([] { return std::make_unique<XdgLoginItems>(); });
}

std::optional<StartedProgram> mainProgram()
{
    return programOf(Bundle::main());
}

std::optional<StartedProgram> loginItemProgram(std::string_view identifier)
{
    std::error_code failure;
    fs::directory_iterator entries(Bundle::main().bundlePath() + "/Contents/Library/LoginItems", failure);
    for (; !failure && entries != fs::directory_iterator(); entries.increment(failure)) {
        const auto bundle = Bundle::open(entries->path());
        if (bundle && bundle->bundleIdentifier() == identifier) return programOf(*bundle);
    }
    return std::nullopt;
}

Result<void> XdgLoginItems::setEnabled(std::string_view identifier, bool isEnabled)
{
    if (!isEnabled) return AutostartFolder::remove(std::string(identifier));
    const auto program = loginItemProgram(identifier);
    if (!program) return Error::fromErrno("find login item", identifier, ENOENT);
    return AutostartFolder::enable(std::string(identifier), program->name, program->path);
}

std::optional<std::vector<JobDictionary>> XdgLoginItems::jobDictionaries() const
{
    const auto identifiers = AutostartFolder::identifiers();
    if (!identifiers) return std::nullopt;
    std::vector<JobDictionary> jobs;
    for (const auto& identifier : *identifiers) {
        const auto entry = AutostartFolder::read(identifier);
        if (!entry) continue;
        jobs.push_back({{"Label", identifier}, {"OnDemand", AutostartFolder::isEnabled(*entry)}});
    }
    return jobs;
}

}  // namespace Platform
