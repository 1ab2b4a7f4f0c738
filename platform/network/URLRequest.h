#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/runtime/Url.h"

namespace Platform {

// Names and values in the order in which they go to the wire; a name may repeat.
using HeaderFields = std::vector<std::pair<std::string, std::string>>;

enum class CachePolicy {
    useProtocolCachePolicy = 0,
    reloadIgnoringLocalCacheData = 1,
    // Also asks caches on the way to fetch anew.
    reloadIgnoringLocalAndRemoteCacheData = 4,
};

// What is to be fetched. A value.
class URLRequest {
public:
    explicit URLRequest(Url location) : url(std::move(location)) {}

    Url url;
    std::string method = "GET";
    std::optional<std::string> body;  // HEAD goes without
    CachePolicy cachePolicy = CachePolicy::useProtocolCachePolicy;
    // The longest time without any progress, from the start on.
    std::chrono::nanoseconds timeout = std::chrono::seconds(60);
    // A longer decoded body fails with dataLengthExceedsMaximum; absent: no limit.
    std::optional<std::size_t> maximumBodyBytes;

    const HeaderFields& headers() const { return headers_; }
    // Replaces every value of the name, whose case does not matter.
    void setValue(std::string_view name, std::string_view value);
    // A further value of the name.
    void addValue(std::string_view name, std::string_view value);

private:
    HeaderFields headers_;
};

}  // namespace Platform
