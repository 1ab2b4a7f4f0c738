#include "platform/menubar/PopUpMenu.h"

#include <QApplication>

#include "platform/menubar/internal/MenuWindow.h"
#include "platform/ui/dialogs/AlertPanel.h"

namespace Platform {

bool popUp(const MenuRef& menu)
{
    if (!menu || !DialogAudience::shared().isPresent()) return false;
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return false;
    return MenuWindow::open(menu);
}

}  // namespace Platform
