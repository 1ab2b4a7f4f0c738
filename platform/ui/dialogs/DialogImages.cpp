#include "platform/ui/dialogs/DialogImages.h"

#include <QFileDialog>
#include <QFileSystemModel>
#include <QPixmap>

#include "platform/runtime/RunLoop.h"
#include "platform/ui/internal/AlertDialog.h"
#include "platform/ui/internal/QtDrawing.h"
#include "platform/ui/internal/QtOpenPanel.h"
#include "platform/ui/internal/QtWindow.h"

namespace Platform {
namespace {

ImageRef imageOf(QWidget& widget)
{
    return std::make_shared<Image>(bitmapOf(widget.grab().toImage()));
}

}  // namespace

ImageRef alertImage(const AlertRequest& request)
{
    ensureWidgetApplication();
    AlertDialog dialog(request, nullptr);
    dialog.ensurePolished();
    dialog.adjustSize();
    return imageOf(dialog);
}

ImageRef openPanelImage(const OpenPanelRequest& request)
{
    ensureWidgetApplication();
    const std::unique_ptr<QFileDialog> panel = makeOpenPanel(request, nullptr);
    panel->resize(520, 300);
    // The folder is listed by a thread of the toolkit's.
    const auto* files = panel->findChild<QFileSystemModel*>();
    const QModelIndex root = files ? files->index(panel->directory().absolutePath()) : QModelIndex();
    RunLoop::main().runUntil([&] { return !files || files->rowCount(root) > 0; }, std::chrono::seconds(1));
    return imageOf(*panel);
}

}  // namespace Platform
