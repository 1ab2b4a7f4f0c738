#include "examples/pellora/providers/DiskProvider.h"

#include <utility>

#include <sys/statvfs.h>

#include "examples/pellora/Texts.h"

namespace Pellora {

namespace {

struct Space {
    std::uint64_t used;
    std::uint64_t free;  // for users without privileges
};

std::optional<Space> spaceOf(const std::string& folder)
{
    struct statvfs state {};
    if (statvfs(folder.c_str(), &state) != 0 || state.f_blocks == 0) return std::nullopt;
    const std::uint64_t block = state.f_frsize;
    return Space{(state.f_blocks - state.f_bfree) * block, state.f_bavail * block};
}

// As a part of what there is for users; the kernel keeps some for itself.
std::optional<double> percentage(const Space& space)
{
    if (space.used + space.free == 0) return std::nullopt;
    return 100.0 * static_cast<double>(space.used) / static_cast<double>(space.used + space.free);
}

}  // namespace

DiskProvider::DiskProvider(std::string folder) : folder_(std::move(folder))
{
    const auto space = spaceOf(folder_);
    if (!space) return;
    const auto whole = GraphScale::to(static_cast<double>(space->used + space->free));
    percent_ = addPercentage("disk.percent", text("DISK_PERCENT"));
    used_ = addSize("disk.used", text("DISK_USED"), whole);
    free_ = addSize("disk.free", text("DISK_FREE"), whole);
}

void DiskProvider::update(double /*elapsed*/)
{
    if (!percent_) return;
    const auto space = spaceOf(folder_);
    take(percent_, space ? percentage(*space) : std::nullopt);
    take(used_, space ? std::optional(space->used) : std::nullopt);
    take(free_, space ? std::optional(space->free) : std::nullopt);
}

}  // namespace Pellora
