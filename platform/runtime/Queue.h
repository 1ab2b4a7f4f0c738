#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/runtime/ThreadRecord.h"

namespace Platform {

// Somewhere a block can be sent to run later. Thread: any.
class Executor {
public:
    virtual ~Executor() = default;

    // Returns before the block runs. What the block throws is logged.
    virtual void async(std::function<void()> block) = 0;
};

// Blocks in the order of their submission. On a serial queue they run one at a
// time; on a concurrent one in parallel, except for barriers, each of which waits
// for all earlier blocks and runs alone.
//
// Asynchronous blocks run on background threads, or on a thread that waits for
// them in a synchronous call; never inside the call that submits them. What they
// throw is logged. Synchronous blocks run on the calling thread, and what they
// throw reaches the caller. Synchronous use of a queue from inside one of its
// own blocks is a programming error and ends the process.
//
// Pending blocks keep the queue alive. Thread: any.
class Queue : public std::enable_shared_from_this<Queue> {
public:
    enum class Kind : std::uint8_t { serial, concurrent };

    // The label is for diagnostics only and need not be unique.
    static std::shared_ptr<Queue> create(std::string label, Kind kind);

    // The background threads, in parallel; and the main run loop, in order.
    static Executor& global();
    static Executor& main();

    const std::string& label() const { return label_; }
    Kind kind() const { return kind_; }

    template <typename Block>
    void async(Block&& block)
    {
        const Form form = kind_ == Kind::serial ? Form::exclusive : Form::parallel;
        submit(new TaskOf<std::decay_t<Block>>(form, std::forward<Block>(block)));
    }
    template <typename Block>
    void asyncBarrier(Block&& block)
    {
        submit(new TaskOf<std::decay_t<Block>>(Form::exclusive, std::forward<Block>(block)));
    }

    // The block's result, by value.
    template <typename Block>
    auto sync(Block&& block)
    {
        if (kind_ == Kind::serial) return syncBarrier(std::forward<Block>(block));
        ThreadRecord& record = threadRecord;
        if (!record.innermost && record.cells && marks(*record.cells, record.slot)) {
            const SlotUse use(*this, record);
            return std::forward<Block>(block)();
        }
        const ParallelUse use(*this);
        return std::forward<Block>(block)();
    }
    template <typename Block>
    auto syncBarrier(Block&& block)
    {
        const ExclusiveUse use(*this);
        return std::forward<Block>(block)();
    }

    ~Queue();

private:
    // Parallel blocks may overlap. The two waiting forms stand for a thread that
    // will run a synchronous block itself once its turn has come.
    enum class Form : std::uint8_t { parallel, exclusive, waitingParallel, waitingExclusive };

    struct Task {
        explicit Task(Form taskForm) : form(taskForm) {}
        Task(const Task&) = delete;
        Task& operator=(const Task&) = delete;
        virtual ~Task() = default;
        virtual void run() {}

        Task* next = nullptr;
        Form form;
        bool isGranted = false;
    };

    template <typename Block>
    struct TaskOf final : Task {
        template <typename Source>
        TaskOf(Form taskForm, Source&& source) : Task(taskForm), block(std::forward<Source>(source))
        {
        }
        void run() override { block(); }

        Block block;
    };

    // Tasks that have run; destroyed with the list.
    class TaskList {
    public:
        TaskList() = default;
        TaskList(const TaskList&) = delete;
        TaskList& operator=(const TaskList&) = delete;
        ~TaskList()
        {
            if (first_) destroyAll();
        }
        void add(Task* task)
        {
            task->next = first_;
            first_ = task;
        }

    private:
        void destroyAll();

        Task* first_ = nullptr;
    };

    // A synchronous block of a thread that is inside no queue, marked in the first
    // cell of its slot: what almost every read is. It knows what was before it and
    // so leaves without reading it back.
    class SlotUse {
    public:
        SlotUse(Queue& queue, ThreadRecord& record) : queue_(queue), record_(record), inside_{&queue, nullptr}
        {
            record_.innermost = &inside_;
        }
        SlotUse(const SlotUse&) = delete;
        SlotUse& operator=(const SlotUse&) = delete;
        ~SlotUse()
        {
            record_.innermost = nullptr;
            queue_.unmark(*record_.cells);
        }

    private:
        Queue& queue_;
        ThreadRecord& record_;
        InsideQueue inside_;
    };

    // The calling thread's turn for one synchronous block. Values that were
    // replaced on the way die when the turn is over.
    class ParallelUse {
    public:
        explicit ParallelUse(Queue& queue);
        ParallelUse(const ParallelUse&) = delete;
        ParallelUse& operator=(const ParallelUse&) = delete;
        ~ParallelUse();

    private:
        TaskList ended_;
        Queue& queue_;
        ThreadRecord& record_;
        InsideQueue inside_;
        ThreadRecord::Cell* cell_;
    };

    class ExclusiveUse {
    public:
        explicit ExclusiveUse(Queue& queue);
        ExclusiveUse(const ExclusiveUse&) = delete;
        ExclusiveUse& operator=(const ExclusiveUse&) = delete;
        ~ExclusiveUse();

    private:
        TaskList ended_;
        Queue& queue_;
        InsideQueue inside_;
    };

    using Lock = std::unique_lock<std::mutex>;

    Queue(std::string label, Kind kind) : label_(std::move(label)), kind_(kind) {}

    void submit(Task* task);
    void append(Task& task);
    Task& takeFirst();
    void schedule();
    void work();

    void awaitTurn(Task& waiting, TaskList& ended, Lock& lock);
    void drain(const Task* stop, TaskList& ended, Lock& lock);
    void release();
    void grant(Task& waiting);
    void awaitReaders(Lock& lock);
    // Marks the cell and says whether that let its thread in; if not, it is unmarked again.
    bool marks(ThreadRecord::Cell& cell, SlotSet slot)
    {
        cell.store(this, std::memory_order_release);
        std::atomic_signal_fence(std::memory_order_seq_cst);
        if (!isClosed_ && ((knownSlots_ & slot) || isOpenToNew(slot))) return true;
        unmark(cell);
        return false;
    }
    bool isOpenToNew(SlotSet slot);
    void unmark(ThreadRecord::Cell& cell)
    {
        cell.store(nullptr, std::memory_order_release);
        if (isAwaited_.load(std::memory_order_relaxed)) noticeLeaving();
    }
    void runExclusive(Task& task, Lock& lock);
    void startParallel(Task& task);
    void runParallel(Task& task);
    void runInside(Task& task);
    void endParallelUse();
    void noticeLeaving();
    void checkNotInside() const;

    const std::string label_;
    const Kind kind_;

    std::mutex mutex_;
    std::condition_variable changed_;
    Task* first_ = nullptr;
    Task* last_ = nullptr;
    std::size_t parallelUses_ = 0;  // granted by the queue, beside those marked in the slots
    bool isDraining_ = false;       // some thread has the role of running the pending blocks
    bool isScheduled_ = false;      // a background thread is on its way

    // Beside each other and away from the rest: all that a reader looks at.
    alignas(64) std::atomic<bool> isClosed_{false};  // something waits or runs alone: no entry by slot
    std::atomic<bool> isAwaited_{false};             // somebody sleeps until the readers have left
    std::atomic<SlotSet> knownSlots_{0};             // whose marks may be here and not yet visible to others
};

}  // namespace Platform
