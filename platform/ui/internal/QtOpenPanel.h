#pragma once

#include "platform/files/OpenPanel.h"

namespace Platform {

// The toolkit's own file dialog as a sheet; without a screen, or a test in its
// place, every panel ends as cancelled with a line in the log.
class QtOpenPanel final : public OpenPanel {
public:
    void beginSheet(const WindowRef& window, const OpenPanelRequest& request, Completion completion) override;
};

}  // namespace Platform
