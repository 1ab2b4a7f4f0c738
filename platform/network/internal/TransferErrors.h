#pragma once

#include <string>

#include <curl/curl.h>

#include "platform/network/URLError.h"

namespace Platform {

// The library's code in our words; its own message, where there is one, as description.
URLError errorOf(CURLcode code, const std::string& url, const std::string& message);

}  // namespace Platform
