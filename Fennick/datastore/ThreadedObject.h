#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Fennick/datastore/LabelDispatch.h"
#include "Fennick/datastore/ThreadingType.h"
#include "platform/runtime/Queue.h"

namespace Fennick {

// Confines one value to a private queue: whatever reads or changes it runs there
// as a block. Operations of one container must not be nested in its own blocks;
// that ends the process. Thread: any.
template <typename T>
class ThreadedObject {
public:
    ThreadedObject(T value, ThreadingType threadingType)
        : state_(std::make_shared<State>(std::move(value))),
          queue_(Platform::Queue::create(LabelDispatch::nextLabel(), kindOf(threadingType)))
    {
    }
    ThreadedObject(const ThreadedObject&) = delete;
    ThreadedObject& operator=(const ThreadedObject&) = delete;
    virtual ~ThreadedObject() = default;

    ThreadingType threadingType() const
    {
        return queue_->kind() == Platform::Queue::Kind::serial ? ThreadingType::serial : ThreadingType::concurrent;
    }
    const std::string& label() const { return queue_->label(); }

    // Runs `block(const T&)` on the calling thread and returns its result, by
    // value. It sees every earlier write of its thread.
    template <typename Block>
    auto read(Block&& block) const
    {
        return queue_->sync([&] { return block(std::as_const(state_->threadedValue)); });
    }

    // Runs `block(T&)` later, alone, and returns at once. The value lives until then.
    template <typename Block>
    void write(Block&& block)
    {
        queue_->asyncBarrier(
            [state = state_, block = std::forward<Block>(block)]() mutable { block(state->threadedValue); });
    }

    // Runs `block(T&)` alone on the calling thread and returns its result, by value.
    template <typename Block>
    auto writeSync(Block&& block)
    {
        return queue_->syncBarrier([&] { return block(state_->threadedValue); });
    }

private:
    struct State {
        explicit State(T value) : threadedValue(std::move(value)) {}
        T threadedValue;
    };

    static Platform::Queue::Kind kindOf(ThreadingType type)
    {
        return type == ThreadingType::serial ? Platform::Queue::Kind::serial : Platform::Queue::Kind::concurrent;
    }

    std::shared_ptr<State> state_;
    std::shared_ptr<Platform::Queue> queue_;
};

}  // namespace Fennick
