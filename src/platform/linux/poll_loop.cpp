#include "platform/linux/poll_loop.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace qv {
namespace {

constexpr std::chrono::milliseconds kTurnInterval{5};

}  // namespace

PollLoop::PollLoop()
    : epoll_(epoll_create1(EPOLL_CLOEXEC)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      lastTurn_(std::chrono::steady_clock::now()) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = wake_;
    epoll_ctl(epoll_, EPOLL_CTL_ADD, wake_, &event);
}

PollLoop::~PollLoop() {
    close(wake_);
    close(epoll_);
}

void PollLoop::Yield() { Turn(std::chrono::milliseconds{0}); }

void PollLoop::WaitFor(double seconds) {
    const double milliseconds = std::ceil(std::clamp(seconds, 0.0, kWaitForever) * 1000);
    Turn(std::chrono::milliseconds{static_cast<long>(milliseconds)});
}

void PollLoop::YieldIfDue() {
    if (std::chrono::steady_clock::now() - lastTurn_ >= kTurnInterval) Yield();
}

void PollLoop::Watch(int descriptor, bool read, bool write, std::function<void(bool, bool)> ready) {
    const auto known = watched_.find(descriptor);
    if (!read && !write) {
        if (known == watched_.end()) return;
        watched_.erase(known);
        epoll_ctl(epoll_, EPOLL_CTL_DEL, descriptor, nullptr);
        return;
    }
    epoll_event event{};
    event.events = (read ? static_cast<std::uint32_t>(EPOLLIN) : 0U) | (write ? static_cast<std::uint32_t>(EPOLLOUT) : 0U);
    event.data.fd = descriptor;
    const bool added = known == watched_.end();
    if (added || known->second.read != read || known->second.write != write) {
        const int first = added ? EPOLL_CTL_ADD : EPOLL_CTL_MOD;
        // A descriptor may have been closed and opened again behind the loop's back, and a plain file can't be watched.
        if (epoll_ctl(epoll_, first, descriptor, &event) != 0)
            epoll_ctl(epoll_, added ? EPOLL_CTL_MOD : EPOLL_CTL_ADD, descriptor, &event);
    }
    watched_[descriptor] = {read, write, std::make_shared<std::function<void(bool, bool)>>(std::move(ready))};
}

EventLoop::TimerId PollLoop::StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) {
    const TimerId timer = ++lastTimer_;
    timers_[timer] = {std::chrono::steady_clock::now() + interval, interval, repeat,
                      std::make_shared<std::function<void()>>(std::move(tick))};
    return timer;
}

void PollLoop::StopTimer(TimerId timer) { timers_.erase(timer); }

// The wake-up stays readable until the last piece of work has been taken, so that nested turns go on with the next one.
void PollLoop::Post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
    if (posted_.size() > 1) return;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wake_, &one, sizeof one);
}

std::function<void()> PollLoop::TakePosted() {
    const std::lock_guard lock(mutex_);
    if (posted_.empty()) return nullptr;
    std::function<void()> work = std::move(posted_.front());
    posted_.pop_front();
    if (posted_.empty()) {
        std::uint64_t drained = 0;
        [[maybe_unused]] const auto got = read(wake_, &drained, sizeof drained);
    }
    return work;
}

void PollLoop::RunPosted() {
    std::size_t left = 0;  // what is posted meanwhile waits for the next turn
    {
        const std::lock_guard lock(mutex_);
        left = posted_.size();
    }
    for (; left > 0; --left)
        if (const auto work = TakePosted()) work();
}

bool PollLoop::RunTimers() {
    if (timers_.empty()) return false;
    const auto now = std::chrono::steady_clock::now();
    std::vector<std::pair<SteadyTime, TimerId>> due;
    for (const auto& [timer, running] : timers_)
        if (running.due <= now) due.emplace_back(running.due, timer);
    std::sort(due.begin(), due.end());
    bool any = false;
    for (const auto& [when, timer] : due) {
        const auto found = timers_.find(timer);
        if (found == timers_.end() || found->second.due != when) continue;  // stopped, or run by a nested turn
        const auto tick = found->second.tick;
        if (found->second.repeat)
            found->second.due = now + std::max(found->second.interval, std::chrono::milliseconds{1});
        else
            timers_.erase(found);
        (*tick)();
        any = true;
    }
    return any;
}

bool PollLoop::RunDescriptors(int timeoutMilliseconds) {
    std::array<epoll_event, 64> events;
    const int count = epoll_wait(epoll_, events.data(), static_cast<int>(events.size()), timeoutMilliseconds);
    lastTurn_ = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        const epoll_event& event = events[static_cast<std::size_t>(i)];
        if (event.data.fd == wake_) {
            RunPosted();
            continue;
        }
        const auto found = watched_.find(event.data.fd);
        if (found == watched_.end()) continue;
        const bool ended = (event.events & (EPOLLERR | EPOLLHUP)) != 0;
        const bool readable = found->second.read && ((event.events & EPOLLIN) != 0 || ended);
        const bool writable = found->second.write && ((event.events & EPOLLOUT) != 0 || ended);
        const auto ready = found->second.ready;
        if (readable || writable) (*ready)(readable, writable);
    }
    return count > 0;
}

int PollLoop::UntilNextTimer(std::chrono::milliseconds atMost) const {
    auto wait = atMost;
    const auto now = std::chrono::steady_clock::now();
    for (const auto& [timer, running] : timers_) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(running.due - now);
        wait = std::clamp(left, std::chrono::milliseconds{0}, wait);
    }
    return static_cast<int>(wait.count());
}

bool PollLoop::Turn(std::chrono::milliseconds atMost) {
    const bool ran = RunTimers();
    const bool handled = RunDescriptors(ran ? 0 : UntilNextTimer(atMost));
    return RunTimers() || handled || ran;
}

}  // namespace qv
