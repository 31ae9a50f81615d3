// The event loop under the windows: Qt's.
#pragma once

#include <QObject>
#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "platform/event_loop.h"

class QSocketNotifier;

namespace qv {

// Turns may be nested, and every handler may be entered again from such a turn, also while it runs itself.
// A descriptor's watch is to be ended before the descriptor is closed.
class QtLoop : public QObject, public EventLoop {
   public:
    QtLoop() = default;
    ~QtLoop() override;

    void Yield() override;
    void WaitFor(double seconds) override;
    void YieldIfDue() override;
    void Watch(int descriptor, bool read, bool write, std::function<void(bool, bool)> ready) override;
    TimerId StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) override;
    void StopTimer(TimerId timer) override;
    void Post(std::function<void()> work) override;

   protected:
    void timerEvent(QTimerEvent* event) override;

   private:
    struct Watched {
        QSocketNotifier* read = nullptr;
        QSocketNotifier* write = nullptr;
        std::shared_ptr<std::function<void(bool, bool)>> ready;
    };
    struct RunningTimer {
        int qtTimer = 0;
        std::chrono::milliseconds interval;
        bool repeat = false;
        std::shared_ptr<std::function<void()>> tick;
    };
    bool Turn(bool wait);  // whether anything was handled
    bool RunPosted();
    void Wake();
    QSocketNotifier* Notifier(int descriptor, bool write);
    void Ready(int descriptor, bool write);
    int StartQtTimer(std::chrono::milliseconds interval);

    std::unordered_map<int, Watched> watched_;
    std::unordered_map<TimerId, RunningTimer> timers_;
    std::unordered_map<int, TimerId> byQtTimer_;
    TimerId lastTimer_ = 0;
    std::chrono::steady_clock::time_point lastTurn_ = std::chrono::steady_clock::now();
    int turnLevel_ = -1;  // of Qt's loops, the one inside which a turn is being made; -1: none is
    std::mutex mutex_;  // guards posted_
    std::deque<std::function<void()>> posted_;
};

}  // namespace qv
