#pragma once

#include "platform/files/OpenPanel.h"
#include "platform/ui/Image.h"
#include "platform/ui/dialogs/AlertPanel.h"

namespace Platform {

// The boxes as they look on this desktop, without showing them: for pictures
// in documents. Thread: main.
ImageRef alertImage(const AlertRequest& request);
ImageRef openPanelImage(const OpenPanelRequest& request);

}  // namespace Platform
