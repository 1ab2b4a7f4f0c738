#pragma once

#include <map>

#include "platform/files/FileManager.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// The real file system, except that some paths are refused with an errno of
// the test's choice, and that one more folder seems to stand where the test
// wants it. Set it up before threads start.
class FakeFileManager final : public Platform::FileManager {
public:
    // Reading the file or listing the folder fails.
    void refuse(const std::string& path, int code) { refused_[path] = code; }
    // The kind of an entry met on a walk cannot be read.
    void hideKind(const std::string& path, int code) { hiddenKinds_[path] = code; }
    // Walks below `place` see what really stands below `folder`.
    void graft(std::string place, std::string folder)
    {
        place_ = std::move(place);
        folder_ = std::move(folder);
    }

    Platform::Result<std::string> contents(const std::string& path) const override
    {
        if (const auto code = refused_.find(path); code != refused_.end()) return refusal("open", *code);
        return FileManager::contents(path);
    }

    Platform::Result<void> enumerate(const std::string& folder, const Platform::EnumerationOptions& options,
                                     const Platform::EntryVisitor& visit) const override
    {
        if (const auto code = refused_.find(folder); code != refused_.end()) return refusal("open", *code);
        if (!place_.empty() && folder.starts_with(place_)) return enumerateGrafted(folder, options, visit);
        return FileManager::enumerate(folder, options, [&](const Platform::DirectoryEntry& entry) {
            const auto code = hiddenKinds_.find(std::string(entry.path));
            if (code == hiddenKinds_.end()) return visit(entry);
            const Platform::Error error = refusal("stat", *code);
            Platform::DirectoryEntry hidden = entry;
            hidden.isDirectory = false;
            hidden.error = &error;
            return visit(hidden);
        });
    }

private:
    static Platform::Error refusal(std::string_view call, const std::pair<const std::string, int>& path)
    {
        return Platform::Error::fromErrno(call, path.first, path.second);
    }

    Platform::Result<void> enumerateGrafted(const std::string& folder, const Platform::EnumerationOptions& options,
                                            const Platform::EntryVisitor& visit) const
    {
        const std::string real = folder_ + folder.substr(place_.size());
        return FileManager::enumerate(real, options, [&](const Platform::DirectoryEntry& entry) {
            const std::string seen = place_ + std::string(entry.path.substr(folder_.size()));
            Platform::DirectoryEntry moved = entry;
            moved.path = seen;
            return visit(moved);
        });
    }

    std::string place_;
    std::string folder_;
    std::map<std::string, int> refused_;
    std::map<std::string, int> hiddenKinds_;
};

using ReplacedFileManager = Replaced<Platform::FileManager, FakeFileManager>;

}  // namespace Tests
