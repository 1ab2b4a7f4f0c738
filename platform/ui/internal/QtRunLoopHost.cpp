#include "platform/ui/internal/QtRunLoopHost.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

namespace Platform {

QtRunLoopHost::QtRunLoopHost(RunLoop& loop) : notifier_(loop.descriptor(), QSocketNotifier::Read)
{
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [&loop] { loop.dispatchOne(); });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &notifier_,
                     [&loop] { loop.prepareToSleep(); });
}

QtRunLoopHost::~QtRunLoopHost() = default;

void QtRunLoopHost::runUntil(RunLoop&, const std::function<bool()>& isDone,
                             std::optional<std::chrono::nanoseconds> timeout)
{
    const auto deadline =
        timeout ? QDeadlineTimer(*timeout, Qt::PreciseTimer) : QDeadlineTimer(QDeadlineTimer::Forever);
    QTimer alarm;
    if (timeout) {
        alarm.setTimerType(Qt::PreciseTimer);
        alarm.setSingleShot(true);
        alarm.start(std::chrono::ceil<std::chrono::milliseconds>(std::max(*timeout, std::chrono::nanoseconds(0))));
    }
    QEventLoop events;
    while (!isDone() && !deadline.hasExpired()) {
        events.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void QtRunLoopHost::wake()
{
    if (auto* dispatcher = QAbstractEventDispatcher::instance(QCoreApplication::instance()->thread())) {
        dispatcher->wakeUp();
    }
}

}  // namespace Platform
