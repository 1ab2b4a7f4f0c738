#include "platform/network/internal/CurlHandles.h"

namespace Platform {

void startCurl()
{
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    static_cast<void>(started);
}

void forgetSession(CURL* easy)
{
    if (easy == nullptr) return;
    curl_easy_setopt(easy, CURLOPT_COOKIEFILE, nullptr);  // the reset would leak its list
    curl_easy_setopt(easy, CURLOPT_SHARE, nullptr);
    curl_easy_reset(easy);
}

Utf8HostNames::Utf8HostNames()
    : before_([] {
          static const locale_t utf8 = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
          return ::uselocale(utf8);  // without such a locale nothing changes
      }())
{
}

void append(HeaderList& list, const std::string& line)
{
    curl_slist* longer = curl_slist_append(list.get(), line.c_str());
    if (longer == nullptr) return;
    static_cast<void>(list.release());
    list.reset(longer);
}

CookieJar::CookieJar() : share_((startCurl(), curl_share_init()))
{
    curl_share_setopt(share_.get(), CURLSHOPT_LOCKFUNC, &CookieJar::lock);
    curl_share_setopt(share_.get(), CURLSHOPT_UNLOCKFUNC, &CookieJar::unlock);
    curl_share_setopt(share_.get(), CURLSHOPT_USERDATA, this);
    curl_share_setopt(share_.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
}

void CookieJar::lock(CURL*, curl_lock_data data, curl_lock_access, void* jar)
{
    static_cast<CookieJar*>(jar)->mutexes_[data].lock();
}

void CookieJar::unlock(CURL*, curl_lock_data data, void* jar)
{
    static_cast<CookieJar*>(jar)->mutexes_[data].unlock();
}

}  // namespace Platform
