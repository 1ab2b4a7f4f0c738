#pragma once

#include <set>

#include "platform/files/Bookmarks.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// Real bookmarks, with a system that refuses the use of some folders.
class FakeBookmarks final : public Platform::Bookmarks {
public:
    bool startAccessing(const Platform::Url& url) override
    {
        return !refused.contains(url) && Bookmarks::startAccessing(url);
    }
    void stopAccessing(const Platform::Url& url) override { stopped.insert(url); }

    std::set<Platform::Url> refused;
    std::set<Platform::Url> stopped;
};

using ReplacedBookmarks = Replaced<Platform::Bookmarks, FakeBookmarks>;

}  // namespace Tests
