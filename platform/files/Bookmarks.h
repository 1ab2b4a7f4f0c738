#pragma once

#include <cstdint>

#include "platform/bundle/PropertyList.h"
#include "platform/runtime/Result.h"
#include "platform/runtime/Url.h"

namespace Platform {

// Option bits; kept with their numbers because programs store them.
namespace BookmarkOptions {
constexpr std::uint64_t creationWithSecurityScope = 0x800;
constexpr std::uint64_t resolutionWithSecurityScope = 0x400;
}  // namespace BookmarkOptions

struct ResolvedBookmark {
    Url url;
    // The entry is gone, was moved, or another one took its place.
    bool isStale = false;
};

// Remembers files and folders across launches, by place and by identity, and
// the right to use them. Thread: any.
class Bookmarks {
public:
    static Bookmarks& shared();
    virtual ~Bookmarks() = default;

    // Bytes that find the entry again. Fails when nothing stands there.
    virtual Result<PropertyList::Data> create(const Url& url, std::uint64_t options) const;
    // Where the bookmark leads. Fails on bytes that are no bookmark.
    virtual Result<ResolvedBookmark> resolve(const PropertyList::Data& bookmark, std::uint64_t options) const;

    // Whether the entry may be used from now on. Without sandboxes that is
    // whether this user may read it (and, for a folder, enter it).
    virtual bool startAccessing(const Url& url);
    virtual void stopAccessing(const Url& url);
};

}  // namespace Platform
