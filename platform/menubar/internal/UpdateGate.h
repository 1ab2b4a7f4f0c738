#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace Platform {

// Lets the first of many requests through at once (in the loop's next turn),
// merges those that come within 100 ms after a publication, and always lets
// the last one through. Costs nothing while nobody requests. Thread: main.
class UpdateGate {
public:
    // The action answers whether it published anything.
    explicit UpdateGate(std::function<bool()> publish);
    ~UpdateGate();

    void request();

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace Platform
