#pragma once

#include <memory>

#include "platform/files/OpenPanel.h"

class QFileDialog;
class QWidget;

namespace Platform {

// The toolkit's own file dialog as a sheet; without a screen, or a test in its
// place, every panel ends as cancelled with a line in the log.
class QtOpenPanel final : public OpenPanel {
public:
    void beginSheet(const WindowRef& window, const OpenPanelRequest& request, Completion completion) override;
};

// The dialog that the request asks for, not shown yet.
std::unique_ptr<QFileDialog> makeOpenPanel(const OpenPanelRequest& request, QWidget* parent);

}  // namespace Platform
