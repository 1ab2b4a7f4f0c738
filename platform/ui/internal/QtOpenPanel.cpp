#include "platform/ui/internal/QtOpenPanel.h"

#include <QFile>
#include <QFileDialog>

#include "platform/runtime/Log.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Utf8.h"
#include "platform/ui/dialogs/AlertPanel.h"
#include "platform/ui/internal/QtWindow.h"
#include "platform/ui/internal/Sheet.h"

namespace Platform {
namespace {

QFileDialog::FileMode modeOf(const OpenPanelRequest& request)
{
    if (!request.canChooseFiles) return QFileDialog::Directory;
    return request.allowsMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

std::string nameOf(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

// The toolkit neither shows nor opens what is not named in UTF-8: the nearest folder that is.
QString startFolder(Url folder)
{
    while (!isUtf8(folder.path())) folder = folder.deletingLastPathComponent();
    return QFile::decodeName(QByteArray::fromStdString(folder.path()));
}

OpenPanelAnswer answerOf(const QFileDialog& panel)
{
    OpenPanelAnswer answer;
    answer.directory = Url::fromPath(nameOf(panel.directory().absolutePath()), true);
    const QStringList chosen = panel.selectedFiles();
    if (panel.result() != QDialog::Accepted) return answer;
    answer.response = OpenPanelAnswer::ok;
    if (!chosen.isEmpty()) answer.url = Url::fromPath(nameOf(chosen.front()));
    return answer;
}

}  // namespace

// The desktop's own dialogs would ignore some of the settings, so it is always the toolkit's.
std::unique_ptr<QFileDialog> makeOpenPanel(const OpenPanelRequest& request, QWidget* parent)
{
    auto panel = std::make_unique<QFileDialog>(parent);
    panel->setOption(QFileDialog::DontUseNativeDialog);
    panel->setOption(QFileDialog::ReadOnly, !request.canCreateDirectories);
    panel->setOption(QFileDialog::ShowDirsOnly, !request.canChooseFiles);
    panel->setFileMode(modeOf(request));
    panel->setAcceptMode(QFileDialog::AcceptOpen);
    if (request.directory) panel->setDirectory(startFolder(*request.directory));
    if (!request.prompt.empty()) panel->setLabelText(QFileDialog::Accept, QString::fromStdString(request.prompt));
    return panel;
}

void QtOpenPanel::beginSheet(const WindowRef& window, const OpenPanelRequest& request, Completion completion)
{
    if (!DialogAudience::shared().isPresent()) {
        log("Open panel: there is no screen to show it on, so it counts as cancelled");
        return RunLoop::main().post([completion = std::move(completion)] { completion({}); });
    }
    ensureWidgetApplication();
    auto* panel = makeOpenPanel(request, WindowAccess::widget(window)).release();
    Platform::beginSheet(panel, [panel, completion = std::move(completion)](QDialog&) {
        // Outside the toolkit's own calls: it may end the window, and the panel with it.
        RunLoop::main().post([completion, answer = answerOf(*panel)] { completion(answer); });
    });
}

}  // namespace Platform
