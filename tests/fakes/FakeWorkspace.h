#pragma once

#include <algorithm>
#include <map>

#include "platform/session/Workspace.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// A session whose applications exist in memory only.
class FakeWorkspace final : public Platform::Workspace {
public:
    // From now on an application can be opened at the path.
    Platform::Url install(const std::string& path, std::optional<std::string> identifier)
    {
        installed_[path] = std::move(identifier);
        return Platform::Url::fromPath(path, true);
    }

    // One more process of the application, without asking whether it runs.
    Platform::RunningApplication start(const std::string& path)
    {
        const auto bundle = Platform::Url::fromPath(path, true);
        ++processes_;
        running_.emplace_back(processes_, static_cast<std::uint64_t>(processes_), installed_[path], bundle,
                              bundle.appendingPathComponent("Contents/MacOS/program"));
        return running_.back();
    }
    // Installed and started in one, for tests that need no path.
    Platform::RunningApplication run(const std::string& identifier)
    {
        const std::string path = "/Applications/" + identifier + ".app";
        install(path, identifier);
        return start(path);
    }

    // All processes with the identifier end.
    void end(const std::string& identifier)
    {
        std::erase_if(running_, [&](const auto& running) { return running.bundleIdentifier() == identifier; });
    }

    const std::vector<Platform::RunningApplication>& askedToQuit() const { return askedToQuit_; }
    // Requests in their order, granted or not.
    const std::vector<Platform::Url>& openRequests() const { return openRequests_; }
    const std::vector<Platform::Url>& openedURLs() const { return openedURLs_; }

    std::vector<Platform::RunningApplication> runningApplications() override { return running_; }
    bool isRunning(std::string_view identifier) override { return firstRunning(identifier).has_value(); }

    bool terminate(const Platform::RunningApplication& application) override
    {
        if (std::find(running_.begin(), running_.end(), application) == running_.end()) return false;
        const auto asked = application;  // may be an element of the list
        askedToQuit_.push_back(asked);
        std::erase(running_, asked);
        return true;
    }

    Platform::Result<Platform::RunningApplication> openApplication(const Platform::Url& application,
                                                                   const Platform::OpenConfiguration&) override
    {
        openRequests_.push_back(application);
        const auto found = installed_.find(application.path());
        if (found == installed_.end()) return Platform::Error{"open", application.path(), 0, "not an application"};
        for (const auto& running : running_) {
            const bool isSame = found->second ? running.bundleIdentifier() == found->second
                                              : running.bundleUrl().path() == application.path();
            if (isSame) return running;
        }
        return start(found->first);
    }

    Platform::Result<void> openURL(const Platform::Url& url) override
    {
        openedURLs_.push_back(url);
        return {};
    }

    // The entry and the folder that it is to be shown in.
    Platform::Result<void> selectFile(const std::string& path, const std::string& root) override
    {
        selectedFiles_.emplace_back(path, root);
        return {};
    }
    const std::vector<std::pair<std::string, std::string>>& selectedFiles() const { return selectedFiles_; }

private:
    std::map<std::string, std::optional<std::string>> installed_;
    std::vector<Platform::RunningApplication> running_;
    std::vector<Platform::RunningApplication> askedToQuit_;
    std::vector<Platform::Url> openRequests_;
    std::vector<Platform::Url> openedURLs_;
    std::vector<std::pair<std::string, std::string>> selectedFiles_;
    int processes_ = 100;
};

using ReplacedWorkspace = Replaced<Platform::Workspace, FakeWorkspace>;

}  // namespace Tests
