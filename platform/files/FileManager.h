#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FileAttributes.h"
#include "platform/runtime/Result.h"
#include "platform/runtime/Url.h"

namespace Platform {

// What a path leads to, symbolic links followed.
enum class PathKind { none, file, directory };

struct EnumerationOptions {
    bool skipsHidden = false;              // entries whose names begin with a dot, and all below them
    bool skipsPackageDescendants = false;  // the insides of packages below the folder (not of the folder itself)
    bool skipsSubfolders = false;          // only what is directly inside
};

// One entry of a walk. The texts live as long as the visit.
struct DirectoryEntry {
    std::string_view path;
    std::string_view name;
    bool isDirectory = false;      // a folder itself; a link to one is not
    const Error* error = nullptr;  // why its kind could not be read; it then counts as no folder

    Url url() const { return Url::fromPath(path, isDirectory); }
};

enum class Visit { goOn, stop };
using EntryVisitor = std::function<Visit(const DirectoryEntry&)>;

// Reads folders and entries of the file system. Names are bytes, in any encoding.
// Thread: any.
class FileManager {
public:
    static FileManager& shared();
    virtual ~FileManager() = default;

    virtual PathKind kind(const std::string& path) const;
    virtual bool isReadable(const std::string& path) const;
    // Of the entry itself: a link is not followed.
    virtual Result<FileAttributes> attributes(const std::string& path) const;
    // The whole content of a regular file; fails on one of more than a gigabyte,
    // and where there is no memory for it.
    virtual Result<std::string> contents(const std::string& path) const;
    // The names of all entries directly inside a folder, "." and ".." left out.
    virtual Result<std::vector<std::string>> contentsOfDirectory(const std::string& path) const;

    // Visits what lies below a folder, each folder before its insides, siblings
    // in the order of the file system. Links are entries, never followed. A
    // subfolder that vanishes or may not be read shows as an entry without
    // insides. Fails when the folder itself cannot be listed.
    virtual Result<void> enumerate(const std::string& folder, const EnumerationOptions& options,
                                   const EntryVisitor& visit) const;

    // Removes an entry, a folder with all that it holds, at any depth; links are
    // not followed. Stops at the first that cannot be removed.
    virtual Result<void> removeItem(const std::string& path) const;
};

// The sum of the sizes of everything below a folder that is not itself a
// folder, hidden entries and packages included; what cannot be read counts 0. No
// more than the largest number.
// Works with two threads where the tree is large enough for it. Thread: any.
std::uint64_t totalFileSize(const std::string& folder);

// The user's documents folder as the desktop has it configured, else
// "Documents" in the home folder. Thread: any.
Url documentsFolder();

}  // namespace Platform
