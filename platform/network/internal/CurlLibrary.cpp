#include "platform/network/internal/CurlLibrary.h"

namespace Platform {

const CurlLibrary& curl()
{
    static const CurlLibrary& loaded = *[] {
        const auto* const curl = new CurlLibrary;  // for ever: threads may outlive main
        if (curl->library.isUsable()) curl->start(CURL_GLOBAL_DEFAULT);
        return curl;
    }();
    return loaded;
}

}  // namespace Platform
