#include "platform/network/internal/CurlHandles.h"

namespace Platform {

void forgetSession(CURL* easy)
{
    if (easy == nullptr) return;
    curl().setOption(easy, CURLOPT_COOKIEFILE, nullptr);  // the reset would leak its list
    curl().setOption(easy, CURLOPT_SHARE, nullptr);
    curl().resetEasy(easy);
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
    curl_slist* longer = curl().appendToList(list.get(), line.c_str());
    if (longer == nullptr) return;
    static_cast<void>(list.release());
    list.reset(longer);
}

CookieJar::CookieJar() : share_(curl().newShare())
{
    curl().setShareOption(share_.get(), CURLSHOPT_LOCKFUNC, &CookieJar::lock);
    curl().setShareOption(share_.get(), CURLSHOPT_UNLOCKFUNC, &CookieJar::unlock);
    curl().setShareOption(share_.get(), CURLSHOPT_USERDATA, this);
    curl().setShareOption(share_.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
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
