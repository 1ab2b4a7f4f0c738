#include "Lorrel/presentation/Alert.h"

#include "Lorrel/resource_bundle_accessor.h"
#include "platform/ui/dialogs/AlertPanel.h"

namespace Lorrel {

using namespace Platform;

namespace {

constexpr Size textFieldSize{192, 21};

AlertRequest request(AlertStyle style, const std::string& message, const std::string& information, const char* first,
                     const char* second)
{
    return {style, message, information, {Resources::text(first), Resources::text(second)}};
}

bool isYes(const AlertAnswer& answer)
{
    return answer.button == AlertAnswer::secondButton;
}

}  // namespace

bool Alert::confirm(const std::string& message, const std::string& information)
{
    return isYes(AlertPanel::shared().runModal(request(AlertStyle::warning, message, information, "NO", "YES")));
}

void Alert::confirm(const WindowRef& window, const std::string& message, const std::string& information,
                    std::function<void(bool)> completion)
{
    AlertPanel::shared().beginSheet(window, request(AlertStyle::informational, message, information, "NO", "YES"),
                                    [completion = std::move(completion)](const AlertAnswer& answer) {
                                        if (completion) completion(isYes(answer));
                                    });
}

void Alert::askForText(const std::string& message, const std::string& information,
                       const std::optional<std::string>& defaultText,
                       const std::function<void(const std::string&, bool)>& completion)
{
    AlertRequest prompt = request(AlertStyle::warning, message, information, "OK", "CANCEL");
    prompt.textField = AlertRequest::TextField{defaultText.value_or(""), textFieldSize};
    const AlertAnswer answer = AlertPanel::shared().runModal(prompt);
    if (completion) completion(answer.text, answer.button == AlertAnswer::firstButton);
}

}  // namespace Lorrel
