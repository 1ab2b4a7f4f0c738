#include "platform/network/internal/CurlLibrary.h"

namespace Platform {

const CurlLibrary& curl()
{
    return loadedOnce<CurlLibrary>([](const CurlLibrary& curl) {
        if (curl.library.isUsable()) curl.start(CURL_GLOBAL_DEFAULT);
    });
}

}  // namespace Platform
