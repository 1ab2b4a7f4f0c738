#pragma once

#include <memory>
#include <set>
#include <vector>

#include "platform/input/internal/XConnection.h"
#include "platform/input/internal/XKeyMap.h"

namespace Platform {

// The keys that the server sends to us alone. They end with the connection.
class XKeyGrabs {
public:
    explicit XKeyGrabs(std::shared_ptr<XConnection> connection) : connection_(std::move(connection)) {}

    // Grabs those of the keys that are not held yet; all of them or, when
    // another program has one, none. Waits for the server's consent.
    bool add(const std::vector<XKey>& keys);
    // Lets go of all that is not in the set.
    void keepOnly(const std::set<XKey>& keys);

private:
    void release(const XKey& key);

    std::shared_ptr<XConnection> connection_;
    std::set<XKey> held_;
};

}  // namespace Platform
