#pragma once

#include <clocale>
#include <memory>

#include <locale.h>
#include <plist/plist.h>

namespace Platform {

struct PlistDelete {
    void operator()(void* node) const { plist_free(node); }
};
// A tree of libplist that is ours to free.
using PlistNode = std::unique_ptr<void, PlistDelete>;

// The thread's locale is "C" for a scope: libplist reads and writes reals by
// the locale.
class CLocaleScope {
public:
    CLocaleScope() : locale_(::newlocale(LC_ALL_MASK, "C", nullptr)), previous_(::uselocale(locale_)) {}
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;
    ~CLocaleScope()
    {
        ::uselocale(previous_);
        if (locale_) ::freelocale(locale_);
    }

private:
    locale_t locale_;
    locale_t previous_;
};

}  // namespace Platform
