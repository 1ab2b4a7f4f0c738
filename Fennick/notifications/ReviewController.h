#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {
class UserDefaults;
}

namespace Fennick {

// Decides when the program may ask its user for a review: once for an
// occasion, and not before that was first seen three days ago. What was seen
// and asked outlives the process, in the user defaults' suite
// "com.orvane.appreviews"; now is Clock::shared()'s wall clock. Thread: main.
class ReviewController {
public:
    static ReviewController& shared();

    // Without a store every operation does nothing and answers false.
    explicit ReviewController(std::shared_ptr<Platform::UserDefaults> defaults);

    // Shows the prompt when the occasion is due and was never asked for.
    void requestReview(std::optional<std::string_view> occasion);
    // Whether the waiting time since the first report is over. The first report starts it.
    bool isDue(std::string_view occasion);

private:
    const std::shared_ptr<Platform::UserDefaults> defaults_;
    const std::string initialCallKey_ = "init";
    const double interval_ = 259200;  // three days
};

}  // namespace Fennick
