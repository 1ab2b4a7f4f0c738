#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/files/FileManager.h"
#include "platform/runtime/FileDescriptor.h"

namespace Platform {

// One walk below a folder. Of the folders on the way down only few stay open,
// whatever the depth: the others are reached by their path from the nearest open one.
class FolderWalk {
public:
    FolderWalk(std::string folder, const EnumerationOptions& options, const EntryVisitor& visit);
    Result<void> run();

private:
    struct Level {
        std::vector<char> entries;  // as the kernel gave them
        std::size_t next = 0;
        std::size_t pathLength = 0;
        FileDescriptor anchor;  // open on every level that deeper ones are reached from
        int base = -1;          // the nearest anchor
        std::size_t baseLength = 0;
    };

    bool enter(FileDescriptor folder);
    Visit visitNext();
    DirectoryEntry describe(const char* name, unsigned char type, Error& error);
    bool isWorthEntering(const DirectoryEntry& entry) const;

    const EnumerationOptions options_;
    // Read into here and copied out, so that small folders touch little memory.
    const std::unique_ptr<char[]> block_;
    const EntryVisitor& visit_;
    std::string path_;
    std::vector<Level> levels_;  // levels past depth_ are kept for their memory
    std::size_t depth_ = 0;
};

}  // namespace Platform
