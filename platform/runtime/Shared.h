#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace Platform {

// The slot of one process-wide service or value: made on first use by the
// factory, replaced for a scope by tests. A port writes
//
//     X& X::shared() { return Shared<X>::get([] { return std::make_unique<RealX>(); }); }
//
// Keep no reference from shared() beyond the statement that asked for it.
// Thread: get() any thread; an Override is made and ended while no other
// thread uses the slot.
template <typename X>
class Shared {
public:
    template <typename Factory>
    static X& get(Factory&& factory)
    {
        Slot& slot = theSlot();
        std::lock_guard lock(slot.mutex);
        if (!slot.current) slot.current = factory();
        return *slot.current;
    }

    // Grows whenever an Override begins or ends, so that what was derived from
    // the instance can be kept until then. Thread: any; free of locks.
    static unsigned generation() { return generation_.load(std::memory_order_acquire); }

    // Puts an instance into the slot for the rest of the program, in place of
    // the factory's: a service that a program links on top.
    static void install(std::shared_ptr<X> instance)
    {
        Slot& slot = theSlot();
        std::lock_guard lock(slot.mutex);
        std::swap(slot.current, instance);
    }

    // Puts another instance into the slot for a scope. Without an instance the
    // slot starts afresh: the next get() makes a new one.
    class [[nodiscard]] Override {
    public:
        explicit Override(std::shared_ptr<X> instance = nullptr)
        {
            Slot& slot = theSlot();
            std::lock_guard lock(slot.mutex);
            previous_ = std::exchange(slot.current, std::move(instance));
            ++generation_;
        }
        Override(const Override&) = delete;
        Override& operator=(const Override&) = delete;
        ~Override()
        {
            std::shared_ptr<X> ended;
            Slot& slot = theSlot();
            std::lock_guard lock(slot.mutex);
            ended = std::exchange(slot.current, std::move(previous_));
            ++generation_;
        }

    private:
        std::shared_ptr<X> previous_;
    };

private:
    struct Slot {
        std::recursive_mutex mutex;  // a factory may ask for its own service's neighbours
        std::shared_ptr<X> current;
    };

    static Slot& theSlot()
    {
        static Slot& slot = *new Slot;  // never destroyed: threads may outlive main
        return slot;
    }

    static inline std::atomic<unsigned> generation_{0};
};

}  // namespace Platform
