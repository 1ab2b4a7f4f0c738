#pragma once

#include <curl/curl.h>

#include "platform/runtime/SystemLibrary.h"

namespace Platform {

// The library's functions that we call. With all that it brings along it costs
// a process a megabyte, so it is loaded when the first session is made.
struct CurlLibrary {
    SystemLibrary library{"libcurl.so.4"};
    decltype(&curl_global_init) start = library.find("curl_global_init");
    decltype(&curl_easy_init) newEasy = library.find("curl_easy_init");
    decltype(&curl_easy_cleanup) endEasy = library.find("curl_easy_cleanup");
    decltype(&curl_easy_reset) resetEasy = library.find("curl_easy_reset");
    decltype(&curl_easy_setopt) setOption = library.find("curl_easy_setopt");
    decltype(&curl_easy_getinfo) getInfo = library.find("curl_easy_getinfo");
    decltype(&curl_easy_strerror) textOf = library.find("curl_easy_strerror");
    decltype(&curl_multi_init) newMulti = library.find("curl_multi_init");
    decltype(&curl_multi_cleanup) endMulti = library.find("curl_multi_cleanup");
    decltype(&curl_multi_add_handle) addToMulti = library.find("curl_multi_add_handle");
    decltype(&curl_multi_remove_handle) removeFromMulti = library.find("curl_multi_remove_handle");
    decltype(&curl_multi_perform) perform = library.find("curl_multi_perform");
    decltype(&curl_multi_poll) poll = library.find("curl_multi_poll");
    decltype(&curl_multi_wakeup) wakeUp = library.find("curl_multi_wakeup");
    decltype(&curl_multi_info_read) nextMessage = library.find("curl_multi_info_read");
    decltype(&curl_share_init) newShare = library.find("curl_share_init");
    decltype(&curl_share_cleanup) endShare = library.find("curl_share_cleanup");
    decltype(&curl_share_setopt) setShareOption = library.find("curl_share_setopt");
    decltype(&curl_slist_append) appendToList = library.find("curl_slist_append");
    decltype(&curl_slist_free_all) endList = library.find("curl_slist_free_all");
};

// Loaded and ready on first use. Ask whether it is usable before anything else. Any thread.
const CurlLibrary& curl();

}  // namespace Platform
