#include "platform/runtime/internal/ReaderSlots.h"

#include <algorithm>
#include <bit>

#include <linux/membarrier.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/runtime/FatalError.h"

namespace Platform {

namespace {

constexpr std::size_t mostSlots = 64;

constinit std::array<ReaderSlot, mostSlots> allSlots;

bool orderThreads(int command)
{
    return syscall(SYS_membarrier, command, 0, 0) == 0;
}

// Null when all are taken, or when the kernel cannot order the marks of threads;
// then readers stand in line.
ReaderSlot* takeSlot()
{
    static const bool isOrdered = orderThreads(MEMBARRIER_CMD_REGISTER_PRIVATE_EXPEDITED);
    if (!isOrdered) return nullptr;
    const auto free =
        std::find_if(allSlots.begin(), allSlots.end(), [](ReaderSlot& slot) { return !slot.isTaken.exchange(true); });
    return free == allSlots.end() ? nullptr : &*free;
}

// Gives the slot back when its thread ends.
struct SlotOwner {
    ReaderSlot* slot = takeSlot();

    ~SlotOwner()
    {
        threadRecord.cells = nullptr;
        threadRecord.slot = 0;  // it is another thread's soon
        if (slot) slot->isTaken = false;
    }
};

}  // namespace

void ThreadRecord::askForSlot()
{
    thread_local SlotOwner owner;
    isAsked = true;
    if (!owner.slot) return;
    cells = owner.slot->cells.data();
    slot = SlotSet{1} << (owner.slot - allSlots.data());
}

ThreadRecord::Cell* ThreadRecord::freeCell()
{
    if (!isAsked) askForSlot();
    std::size_t depth = 0;
    for (const InsideQueue* inside = innermost; inside; inside = inside->outer) ++depth;
    return cells && depth < ReaderSlot::depth ? cells + depth : nullptr;
}

void awaitStoresOfOtherThreads()
{
    if (!orderThreads(MEMBARRIER_CMD_PRIVATE_EXPEDITED)) {
        fatalError("The kernel no longer orders the threads' memory.", "platform/runtime/ReaderSlots");
    }
}

SlotSet markedSlots(SlotSet slots, const Queue* queue)
{
    SlotSet marked = 0;
    for (; slots; slots &= slots - 1) {
        const auto& cells = allSlots[static_cast<std::size_t>(std::countr_zero(slots))].cells;
        const bool isMarked = std::any_of(cells.begin(), cells.end(), [&](auto& cell) { return cell.load() == queue; });
        if (isMarked) marked |= slots & -slots;
    }
    return marked;
}

}  // namespace Platform
