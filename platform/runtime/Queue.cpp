#include "platform/runtime/Queue.h"

#include <chrono>

#include "platform/runtime/FatalError.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/internal/ReaderSlots.h"
#include "platform/runtime/internal/WorkerPool.h"

// How readers and writers meet. A reader marks a slot of its thread and then
// looks whether the queue is closed; a writer closes the queue and then looks at
// the slots. One of them must see the other. So that reading stays cheap the
// reader has no fence between its two steps: the writer makes the kernel fence
// the other threads instead. That is dear, so the queue keeps the set of slots
// that may be marked so; a reader outside the set joins it first, which is a
// fence, and the writer empties the set while the queue is closed. A reader looks
// at the set last: where it still finds itself there, having found the queue open
// before, any writer that will empty the set has yet to look for the mark.
//
// A reader that finds the queue closed takes back its mark and stands in line
// like everybody else. Whoever has the drain role lets the line advance: a
// background thread, or a thread that stands in line itself.

namespace Platform {

namespace {

constexpr int tasksPerTurn = 256;
constexpr int spinsBeforeSleep = 50;
// A reader's leaving is announced, but it may look for sleepers a moment too
// early; so sleep is short and looks again.
constexpr auto longestSleep = std::chrono::milliseconds(1);

void pauseProcessor()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

class GlobalExecutor final : public Executor {
    void async(std::function<void()> block) override { WorkerPool::shared().post(std::move(block)); }
};

class MainExecutor final : public Executor {
    void async(std::function<void()> block) override
    {
        RunLoop::main().post([block = std::move(block)] { runLogged(block, "the main queue"); });
    }
};

}  // namespace

std::shared_ptr<Queue> Queue::create(std::string label, Kind kind)
{
    return std::shared_ptr<Queue>(new Queue(std::move(label), kind));
}

Queue::~Queue() = default;

Executor& Queue::global()
{
    static Executor& executor = *new GlobalExecutor;
    return executor;
}

Executor& Queue::main()
{
    static Executor& executor = *new MainExecutor;
    return executor;
}

void Queue::TaskList::destroyAll()
{
    while (first_) delete std::exchange(first_, first_->next);
}

void Queue::append(Task& task)
{
    (last_ ? last_->next : first_) = &task;
    last_ = &task;
    if (!isClosed_.load(std::memory_order_relaxed)) isClosed_ = true;
}

Queue::Task& Queue::takeFirst()
{
    Task& task = *first_;
    first_ = std::exchange(task.next, nullptr);
    if (!first_) last_ = nullptr;
    return task;
}

void Queue::submit(Task* task)
{
    const Lock lock(mutex_);
    append(*task);
    if (!isDraining_) schedule();
}

void Queue::schedule()
{
    if (std::exchange(isScheduled_, true)) return;
    WorkerPool::shared().post([self = shared_from_this()] { self->work(); });
}

void Queue::work()
{
    TaskList ended;
    Lock lock(mutex_);
    isScheduled_ = false;
    if (isDraining_ || !first_) return;
    isDraining_ = true;
    drain(nullptr, ended, lock);
    release();
}

// Waits for the turn of a task that stands in line. A thread that is inside no
// queue runs what is pending before it rather than wake another thread; one that
// is must not, because the blocks could use the queue around it.
void Queue::awaitTurn(Task& waiting, TaskList& ended, Lock& lock)
{
    append(waiting);
    const bool mayHelp = first_ == &waiting || !threadRecord.innermost;
    if (!isDraining_ && mayHelp) {
        isDraining_ = true;
        drain(&waiting, ended, lock);
        release();
    } else if (!isDraining_) {
        schedule();
    }
    changed_.wait(lock, [&] { return waiting.isGranted; });
}

// Advances the line up to `stop`, to a thread that wants to run alone, or for
// one turn's share.
void Queue::drain(const Task* stop, TaskList& ended, Lock& lock)
{
    for (int count = 0; first_ && first_ != stop && (stop || count < tasksPerTurn); ++count) {
        if (first_->form == Form::waitingExclusive) return;
        if (first_->form == Form::exclusive) awaitReaders(lock);
        Task& task = takeFirst();
        switch (task.form) {
            case Form::waitingParallel:
            case Form::waitingExclusive:
                grant(task);
                break;
            case Form::parallel:
                startParallel(task);
                break;
            case Form::exclusive:
                runExclusive(task, lock);
                ended.add(&task);
                break;
        }
    }
}

// Ends the caller's drain role: lets in whoever is next in line, passes the role
// to a thread that wants to run alone, or to a background thread.
void Queue::release()
{
    while (first_ && first_->form == Form::waitingParallel) grant(takeFirst());
    if (first_ && first_->form == Form::waitingExclusive) return grant(takeFirst());
    isDraining_ = false;
    if (first_) return schedule();
    isClosed_ = false;
}

void Queue::grant(Task& waiting)
{
    if (waiting.form == Form::waitingParallel) ++parallelUses_;
    waiting.isGranted = true;
    changed_.notify_all();
}

// While the queue is closed nobody enters by a slot: marks once made visible are
// all there are. The thread's own slot is not marked, or it would wait for itself.
void Queue::awaitReaders(Lock& lock)
{
    const SlotSet own = threadRecord.slot;
    const SlotSet known = knownSlots_ & ~own;
    if (known) awaitStoresOfOtherThreads();
    SlotSet reading = markedSlots(known, this);
    for (int spins = 0; parallelUses_ > 0 || reading; ++spins) {
        if (parallelUses_ == 0 && spins < spinsBeforeSleep) {
            pauseProcessor();
        } else {
            isAwaited_ = true;
            changed_.wait_for(lock, longestSleep);
        }
        reading = markedSlots(reading, this);
    }
    isAwaited_ = false;
    if (known) knownSlots_ &= own;
}

void Queue::runExclusive(Task& task, Lock& lock)
{
    lock.unlock();
    runInside(task);
    lock.lock();
}

void Queue::startParallel(Task& task)
{
    ++parallelUses_;
    WorkerPool::shared().post([self = shared_from_this(), &task] { self->runParallel(task); });
}

void Queue::runParallel(Task& task)
{
    const std::unique_ptr<Task> owned(&task);
    runInside(task);
    endParallelUse();
}

void Queue::runInside(Task& task)
{
    const InsideQueue inside{this, threadRecord.innermost};
    threadRecord.innermost = &inside;
    runLogged([&task] { task.run(); }, label_.c_str());
    threadRecord.innermost = inside.outer;
}

void Queue::endParallelUse()
{
    const Lock lock(mutex_);
    --parallelUses_;
    changed_.notify_all();
}

void Queue::noticeLeaving()
{
    const Lock lock(mutex_);
    changed_.notify_all();
}

void Queue::checkNotInside() const
{
    for (const InsideQueue* inside = threadRecord.innermost; inside; inside = inside->outer) {
        if (inside->queue == this) {
            fatalError("Synchronous use of queue " + label_ + " from inside itself.", "platform/runtime/Queue");
        }
    }
}

bool Queue::isOpenToNew(SlotSet slot)
{
    knownSlots_ |= slot;
    return !isClosed_;
}

// By a cell of the slot, else in line.
Queue::ParallelUse::ParallelUse(Queue& queue) : queue_(queue), record_(threadRecord), inside_{&queue, record_.innermost}
{
    if (inside_.outer) queue_.checkNotInside();
    cell_ = record_.freeCell();
    if (cell_ && !queue_.marks(*cell_, record_.slot)) cell_ = nullptr;
    if (!cell_) {
        Task waiting(Form::waitingParallel);
        Lock lock(queue_.mutex_);
        queue_.awaitTurn(waiting, ended_, lock);
    }
    record_.innermost = &inside_;
}

Queue::ParallelUse::~ParallelUse()
{
    record_.innermost = inside_.outer;
    cell_ ? queue_.unmark(*cell_) : queue_.endParallelUse();
}

Queue::ExclusiveUse::ExclusiveUse(Queue& queue) : queue_(queue), inside_{&queue, threadRecord.innermost}
{
    queue_.checkNotInside();
    Task waiting(Form::waitingExclusive);
    Lock lock(queue_.mutex_);
    queue_.awaitTurn(waiting, ended_, lock);
    queue_.awaitReaders(lock);
    threadRecord.innermost = &inside_;
}

Queue::ExclusiveUse::~ExclusiveUse()
{
    threadRecord.innermost = inside_.outer;
    const Lock lock(queue_.mutex_);
    queue_.release();
}

}  // namespace Platform
