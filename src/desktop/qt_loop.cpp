#include "desktop/qt_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThread>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace qv {
namespace {

constexpr std::chrono::milliseconds kTurnInterval{5};

void Discard(QSocketNotifier* notifier) {
    if (notifier == nullptr) return;
    notifier->setEnabled(false);
    notifier->deleteLater();  // it may be the one that is being handled
}

}  // namespace

QtLoop::~QtLoop() {
    for (auto& [descriptor, watched] : watched_) {
        Discard(watched.read);
        Discard(watched.write);
    }
}

// Events that were posted to Qt before the one that is being handled now don't wake a nested turn, so a turn asks for them.
bool QtLoop::Turn(bool wait) {
    const bool ran = RunPosted();
    const int outer = std::exchange(turnLevel_, QThread::currentThread()->loopLevel());
    QCoreApplication::sendPostedEvents();
    auto* dispatcher = QAbstractEventDispatcher::instance();
    const bool handled = dispatcher->processEvents(wait && !ran ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
    turnLevel_ = outer;
    lastTurn_ = std::chrono::steady_clock::now();
    const std::lock_guard lock(mutex_);
    if (!posted_.empty()) Wake();
    return ran || handled;
}

bool QtLoop::RunPosted() {
    std::size_t left = 0;  // what is posted meanwhile waits for the next turn
    {
        const std::lock_guard lock(mutex_);
        left = posted_.size();
    }
    bool ran = false;
    for (; left > 0; --left) {
        std::function<void()> work;
        {
            const std::lock_guard lock(mutex_);
            if (posted_.empty()) break;
            work = std::move(posted_.front());
            posted_.pop_front();
        }
        work();
        ran = true;
    }
    return ran;
}

void QtLoop::Yield() { Turn(false); }

void QtLoop::WaitFor(double seconds) {
    if (Turn(false) || !(seconds > 0)) return;  // not a number ends here too
    const int deadline =
        StartQtTimer(std::chrono::milliseconds{static_cast<long>(std::ceil(std::min(seconds, kWaitForever) * 1000))});
    Turn(true);
    killTimer(deadline);
}

void QtLoop::YieldIfDue() {
    if (std::chrono::steady_clock::now() - lastTurn_ >= kTurnInterval) Yield();
}

QSocketNotifier* QtLoop::Notifier(int descriptor, bool write) {
    auto* notifier = new QSocketNotifier(descriptor, write ? QSocketNotifier::Write : QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, descriptor, write] { Ready(descriptor, write); });
    return notifier;
}

void QtLoop::Ready(int descriptor, bool write) {
    const auto found = watched_.find(descriptor);
    if (found == watched_.end()) return;
    const auto ready = found->second.ready;
    (*ready)(!write, write);
}

void QtLoop::Watch(int descriptor, bool read, bool write, std::function<void(bool, bool)> ready) {
    if (!read && !write) {
        const auto known = watched_.find(descriptor);
        if (known == watched_.end()) return;
        Discard(known->second.read);
        Discard(known->second.write);
        watched_.erase(known);
        return;
    }
    Watched& watched = watched_[descriptor];
    watched.ready = std::make_shared<std::function<void(bool, bool)>>(std::move(ready));
    const auto keep = [&](QSocketNotifier*& notifier, bool wanted, bool forWrite) {
        if (wanted && notifier == nullptr) notifier = Notifier(descriptor, forWrite);
        if (notifier != nullptr) notifier->setEnabled(wanted);
    };
    keep(watched.read, read, false);
    keep(watched.write, write, true);
}

int QtLoop::StartQtTimer(std::chrono::milliseconds interval) {
    return startTimer(std::max(interval, std::chrono::milliseconds{0}), Qt::PreciseTimer);
}

EventLoop::TimerId QtLoop::StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) {
    do lastTimer_ = lastTimer_ == std::numeric_limits<TimerId>::max() ? 1 : lastTimer_ + 1;
    while (timers_.count(lastTimer_) != 0);
    const int qtTimer = StartQtTimer(interval);
    timers_[lastTimer_] = {qtTimer, interval, repeat, std::make_shared<std::function<void()>>(std::move(tick))};
    byQtTimer_[qtTimer] = lastTimer_;
    return lastTimer_;
}

void QtLoop::StopTimer(TimerId timer) {
    const auto found = timers_.find(timer);
    if (found == timers_.end()) return;
    killTimer(found->second.qtTimer);
    byQtTimer_.erase(found->second.qtTimer);
    timers_.erase(found);
}

// Qt doesn't tick a timer whose handler is still at work, so each tick gets a timer of its own.
void QtLoop::timerEvent(QTimerEvent* event) {
    const auto known = byQtTimer_.find(event->timerId());
    if (known == byQtTimer_.end()) return;
    const TimerId timer = known->second;
    killTimer(event->timerId());
    byQtTimer_.erase(known);
    RunningTimer& running = timers_[timer];
    const auto tick = running.tick;
    if (running.repeat) {
        running.qtTimer = StartQtTimer(std::max(running.interval, std::chrono::milliseconds{1}));
        byQtTimer_[running.qtTimer] = timer;
    } else {
        timers_.erase(timer);
    }
    (*tick)();
}

// The queue is ours, since a nested turn has to go on with it; Qt's event wakes the loop, whoever turns it.
void QtLoop::Post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
    if (posted_.size() == 1) Wake();
}

void QtLoop::Wake() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (turnLevel_ == QThread::currentThread()->loopLevel()) return;  // a turn does this itself, once
            RunPosted();
            const std::lock_guard lock(mutex_);
            if (!posted_.empty()) Wake();
        },
        Qt::QueuedConnection);
}

}  // namespace qv
