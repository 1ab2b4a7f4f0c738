#pragma once

#include <functional>
#include <memory>

namespace Platform {

// Something whose operations controls and menu items can call.
class Responder {
public:
    virtual ~Responder() = default;
};

// What was clicked or chosen.
class ActionSender {
public:
    virtual ~ActionSender() = default;
    virtual long tag() const = 0;
};

// An operation of a kind of responder, with or without the sender as argument.
// A value. A target of another kind is not called.
class Action {
public:
    Action() = default;
    template <typename T>
    Action(void (T::*operation)())
        : call_([operation](Responder& target, ActionSender&) {
              if (auto* object = dynamic_cast<T*>(&target)) (object->*operation)();
          })
    {
    }
    template <typename T>
    Action(void (T::*operation)(ActionSender&))
        : call_([operation](Responder& target, ActionSender& sender) {
              if (auto* object = dynamic_cast<T*>(&target)) (object->*operation)(sender);
          })
    {
    }

    explicit operator bool() const { return call_ != nullptr; }
    void operator()(Responder& target, ActionSender& sender) const
    {
        if (call_) call_(target, sender);
    }

private:
    std::function<void(Responder&, ActionSender&)> call_;
};

}  // namespace Platform
