#pragma once

#include <array>
#include <clocale>
#include <memory>
#include <mutex>
#include <string>

#include "platform/network/internal/CurlLibrary.h"

namespace Platform {

template <auto release>
struct CurlDeleter {
    template <typename T>
    void operator()(T* handle) const
    {
        (curl().*release)(handle);
    }
};

// One transfer's settings and connection state.
using EasyHandle = std::unique_ptr<CURL, CurlDeleter<&CurlLibrary::endEasy>>;
// A set of transfers with their connections.
using MultiHandle = std::unique_ptr<CURLM, CurlDeleter<&CurlLibrary::endMulti>>;
using HeaderList = std::unique_ptr<curl_slist, CurlDeleter<&CurlLibrary::endList>>;

// Takes a handle's settings and its session's cookies from it; connections stay.
void forgetSession(CURL* easy);

// While it lives, the library takes the host names of this thread's transfers
// as UTF-8, which they are, and not in the encoding of the program's locale.
class Utf8HostNames {
public:
    Utf8HostNames();
    Utf8HostNames(const Utf8HostNames&) = delete;
    Utf8HostNames& operator=(const Utf8HostNames&) = delete;
    ~Utf8HostNames() { ::uselocale(before_); }

private:
    const locale_t before_;
};

// The list with one line more; a list that could not grow is unchanged.
void append(HeaderList& list, const std::string& line);

// The cookies of one session, shared by its transfers. Outlives their handles.
class CookieJar {
public:
    CookieJar();
    CookieJar(const CookieJar&) = delete;
    CookieJar& operator=(const CookieJar&) = delete;

    void attach(CURL* easy) const { curl().setOption(easy, CURLOPT_SHARE, share_.get()); }

private:
    static void lock(CURL*, curl_lock_data data, curl_lock_access, void* jar);
    static void unlock(CURL*, curl_lock_data data, void* jar);

    std::array<std::mutex, CURL_LOCK_DATA_LAST> mutexes_;
    std::unique_ptr<CURLSH, CurlDeleter<&CurlLibrary::endShare>> share_;
};

}  // namespace Platform
