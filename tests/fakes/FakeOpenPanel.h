#pragma once

#include "platform/files/OpenPanel.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// A panel that a test answers in the user's place.
class FakeOpenPanel final : public Platform::OpenPanel {
public:
    void beginSheet(const Platform::WindowRef&, const Platform::OpenPanelRequest& request,
                    Completion completion) override
    {
        requests.push_back(request);
        completion_ = std::move(completion);
    }

    // Ends the open sheet.
    void choose(const Platform::Url& url)
    {
        end({Platform::OpenPanelAnswer::ok, url, url.deletingLastPathComponent()});
    }
    void end(const Platform::OpenPanelAnswer& answer) { std::exchange(completion_, nullptr)(answer); }

    std::vector<Platform::OpenPanelRequest> requests;

private:
    Completion completion_;
};

using ReplacedOpenPanel = Replaced<Platform::OpenPanel, FakeOpenPanel>;

}  // namespace Tests
