#include "platform/ui/dialogs/AlertPanel.h"

#include <utility>

#include "platform/runtime/Log.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"
#include "platform/ui/internal/AlertDialog.h"
#include "platform/ui/internal/GuiApplication.h"
#include "platform/ui/internal/QtWindow.h"
#include "platform/ui/internal/Sheet.h"

namespace Platform {
namespace {

AlertAnswer answerOfNobody(const AlertRequest& request)
{
    log("Alert \"" + request.message + "\": there is no screen to ask on, so it counts as cancelled");
    return {AlertAnswer::cancelled, request.textField ? request.textField->text : ""};
}

// Outside the toolkit's own calls: the completion may end the window, and the sheet with it.
void complete(AlertPanel::Completion completion, AlertAnswer answer)
{
    RunLoop::main().post([completion = std::move(completion), answer = std::move(answer)] { completion(answer); });
}

class QtAlertPanel final : public AlertPanel {
public:
    AlertAnswer runModal(const AlertRequest& request) override
    {
        if (!DialogAudience::shared().isPresent()) return answerOfNobody(request);
        ensureWidgetApplication();
        AlertDialog dialog(request, nullptr);
        dialog.exec();
        return dialog.answer();
    }

    void beginSheet(const WindowRef& window, const AlertRequest& request, Completion completion) override
    {
        if (!DialogAudience::shared().isPresent()) {
            return complete(std::move(completion), answerOfNobody(request));
        }
        ensureWidgetApplication();
        auto* dialog = new AlertDialog(request, WindowAccess::widget(window));
        Platform::beginSheet(
            dialog, [dialog, completion = std::move(completion)](QDialog&) { complete(completion, dialog->answer()); });
    }
};

}  // namespace

AlertPanel& AlertPanel::shared()
{
    return Shared<AlertPanel>::get([] { return std::make_unique<QtAlertPanel>(); });
}

DialogAudience& DialogAudience::shared()
{
    return Shared<DialogAudience>::get([] { return std::make_unique<DialogAudience>(); });
}

bool DialogAudience::isPresent() const
{
    return hasScreen();
}

}  // namespace Platform
