#pragma once

#include <filesystem>

namespace Tests {

// How many descriptors this process has open, the one that looks included.
inline long openDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

}  // namespace Tests
