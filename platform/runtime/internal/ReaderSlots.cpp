#include "platform/runtime/internal/ReaderSlots.h"

namespace Platform {

namespace {

constexpr std::size_t mostSlots = 64;

constinit std::array<ReaderSlot, mostSlots> slots;
constinit std::atomic<std::size_t> slotsEverUsed{0};

ReaderSlot* takeSlot()
{
    for (std::size_t at = 0; at < mostSlots; ++at) {
        if (slots[at].isTaken.exchange(true)) continue;
        std::size_t used = slotsEverUsed.load();
        while (used <= at && !slotsEverUsed.compare_exchange_weak(used, at + 1)) {
        }
        return &slots[at];
    }
    return nullptr;
}

// Gives the slot back when its thread ends.
struct SlotOwner {
    ReaderSlot* slot = takeSlot();

    ~SlotOwner()
    {
        threadRecord.slot = nullptr;
        if (slot) slot->isTaken = false;
    }
};

}  // namespace

void ThreadRecord::askForSlot()
{
    thread_local SlotOwner owner;
    isAsked = true;
    slot = owner.slot;
}

bool isMarkedBySlots(const Queue* queue)
{
    const std::size_t used = slotsEverUsed.load();
    for (std::size_t at = 0; at < used; ++at) {
        for (const auto& cell : slots[at].cells) {
            if (cell.load() == queue) return true;
        }
    }
    return false;
}

}  // namespace Platform
