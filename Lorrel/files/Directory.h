#pragma once

#include "platform/runtime/Url.h"

namespace Lorrel {

// The well-known folders of the user's account and of the system.
enum class Directory {
    applications,
    user,
    library,
    preferences,
    caches,
    applicationSupport,
    containers,
    savedState,
    trash,
    appleMusicCache,
    safariCache,
    spotifyCache,
    mailAttachments,
    userLaunchAgents,
    userLaunchDaemons,
    xcode,
    volumes,
    documents,
    downloads,
    appDocuments,
    safari,
    appleMapsCache,
};

// Where the folder is, whether it exists or not. Thread: any.
Platform::Url url(Directory directory);

}  // namespace Lorrel
