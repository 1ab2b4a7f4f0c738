#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#include "platform/runtime/FileDescriptor.h"

namespace Platform {

// Tells whether anything happened in a folder since the last question, without
// touching the folder: the kernel keeps the notes. Thread: any.
class FolderChanges {
public:
    static FolderChanges& shared();

    FolderChanges();
    // A number that differs from every earlier answer when something in the
    // folder may have changed in between. Where the folder cannot be watched
    // (it is missing, the quota is used up) it differs each time.
    std::uint64_t generation(const std::string& folder);

private:
    struct Folder {
        int watch = -1;
        std::uint64_t generation = 0;
    };

    void readEvents();
    void noteEvent(int watch, std::uint32_t events);

    std::mutex mutex_;
    FileDescriptor notes_;
    std::map<std::string, Folder> folders_;
    std::uint64_t last_ = 0;
};

}  // namespace Platform
