#pragma once

#include "platform/runtime/Url.h"

namespace Tests {

// A folder of its own for one test, removed with all that it holds at the end,
// also where the test took away permissions. Not copyable. Thread: any.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory();

    // Absolute, without symbolic links and without trailing slash.
    const std::string& path() const { return path_; }
    Platform::Url url() const { return Platform::Url::fromPath(path_, true); }

    // The path of a name below the folder; nothing is made.
    std::string operator/(std::string_view name) const;
    // Writes a file (and the folders above it); its path.
    std::string write(std::string_view name, std::string_view content) const;
    // Makes a folder (and those above it); its path.
    std::string makeFolder(std::string_view name) const;

private:
    std::string path_;
};

// The whole content of a file; empty when it cannot be read.
std::string contentOf(const std::string& path);

}  // namespace Tests
