#pragma once

#include "platform/ui/dialogs/AlertPanel.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// Gives every alert the same answer at once, and keeps what was asked. Sheets
// wait until a test ends them. Thread: main.
class FakeAlertPanel final : public Platform::AlertPanel {
public:
    explicit FakeAlertPanel(Platform::AlertAnswer given = {}) : answer(std::move(given)) {}

    Platform::AlertAnswer runModal(const Platform::AlertRequest& request) override
    {
        requests.push_back(request);
        return answer;
    }
    void beginSheet(const Platform::WindowRef&, const Platform::AlertRequest& request, Completion completion) override
    {
        requests.push_back(request);
        sheets.push_back(std::move(completion));
    }

    Platform::AlertAnswer answer;
    std::vector<Platform::AlertRequest> requests;
    std::vector<Completion> sheets;
};

using ReplacedAlertPanel = Replaced<Platform::AlertPanel, FakeAlertPanel>;

}  // namespace Tests
