#pragma once

#include "platform/ui/views/Action.h"
#include "platform/ui/views/View.h"

namespace Platform {

// A view that calls an operation of its target when it is clicked. The target
// is held weakly.
class Control : public View, public ActionSender {
public:
    using View::View;

    std::shared_ptr<Responder> target() const { return target_.lock(); }
    void setTarget(const std::shared_ptr<Responder>& target) { target_ = target; }
    const Action& action() const { return action_; }
    void setAction(Action action) { action_ = std::move(action); }
    long tag() const override { return tag_; }
    void setTag(long tag) { tag_ = tag; }
    bool isEnabled() const { return isEnabled_; }
    void setEnabled(bool enabled);

    // As a click does. Nothing while it is disabled, or without target and action.
    void performClick();
    bool mouseUp(Point point) override;

private:
    std::weak_ptr<Responder> target_;
    Action action_;
    long tag_ = 0;
    bool isEnabled_ = true;
};

}  // namespace Platform
