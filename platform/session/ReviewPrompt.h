#pragma once

namespace Platform {

// Asks the user to review the product. The desktop alone decides whether a
// prompt is shown; nobody learns what came of it. The page where reviews are
// written is the build option PELLORA_REVIEW_URL. Thread: main.
class ReviewPrompt {
public:
    static ReviewPrompt& shared();
    virtual ~ReviewPrompt() = default;

    virtual void requestReview() = 0;
};

}  // namespace Platform
