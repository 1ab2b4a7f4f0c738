#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sys/stat.h>

#include "platform/files/internal/DirectoryReader.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Result.h"

namespace Platform {

// Removes an entry with all that is below it. One folder is open at a time,
// whatever the depth; what stands in the place of a folder that was moved away
// meanwhile is left alone.
class FolderRemoval {
public:
    explicit FolderRemoval(std::string path);
    // Ends at the first entry that cannot be removed.
    Result<void> run();

private:
    // A folder on the way down to the open one.
    struct Level {
        std::string name;
        std::vector<std::string> folders;  // still to be removed
        dev_t device = 0;
        ino_t inode = 0;
    };

    bool enter(FileDescriptor folder, std::string name);
    bool removeFiles();
    bool removeFile(const RawEntry& entry);
    bool removeNextFolder();
    bool leave();
    bool fail(const char* call, const std::string& name);

    const std::string path_;
    const std::unique_ptr<char[]> block_;
    std::vector<char> entries_;
    FileDescriptor open_;  // the last level's folder
    std::vector<Level> levels_;
    std::optional<Error> failure_;
};

}  // namespace Platform
