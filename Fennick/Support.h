#pragma once

namespace Fennick {

// The maker's pages, opened in the default browser. Their addresses are the
// build options PELLORA_CONTACT_PAGE and PELLORA_FAQ_PAGE; without one nothing
// opens and the log says so. Main thread.
class Support {
public:
    Support() = delete;

    static void openContactPage();
    static void openFAQPage();
};

}  // namespace Fennick
