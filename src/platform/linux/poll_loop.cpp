#include "platform/linux/poll_loop.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace qv {
namespace {

constexpr std::chrono::milliseconds kTurnInterval{1};

std::uint64_t EventKey(int descriptor, std::uint32_t generation) {
    return (std::uint64_t{generation} << 32) | static_cast<std::uint32_t>(descriptor);
}

void Drain(int wake) {
    std::uint64_t drained = 0;
    [[maybe_unused]] const auto got = read(wake, &drained, sizeof drained);
}

int DescriptorOf(std::uint64_t key) { return static_cast<int>(static_cast<std::uint32_t>(key)); }

}  // namespace

PollLoop::PollLoop()
    : epoll_(epoll_create1(EPOLL_CLOEXEC)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      lastTurn_(std::chrono::steady_clock::now()) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = EventKey(wake_, 0);
    epoll_ctl(epoll_, EPOLL_CTL_ADD, wake_, &event);
}

PollLoop::~PollLoop() {
    close(wake_);
    close(epoll_);
}

void PollLoop::Yield() { Turn(std::chrono::milliseconds{0}); }

void PollLoop::WaitFor(double seconds) {
    if (!(seconds > 0)) return Yield();  // not a number comes here too
    const double milliseconds = std::ceil(std::min(seconds, kWaitForever) * 1000);
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
        if (alwaysReady_.erase(descriptor) == 0) epoll_ctl(epoll_, EPOLL_CTL_DEL, descriptor, nullptr);
        return;
    }
    const bool added = known == watched_.end();
    const bool changed = added || known->second.read != read || known->second.write != write;
    Watched& watched = added ? watched_[descriptor] : known->second;
    if (added) watched.generation = ++lastGeneration_;
    watched.read = read;
    watched.write = write;
    watched.ready = std::make_shared<std::function<void(bool, bool)>>(std::move(ready));
    if (!changed || alwaysReady_.count(descriptor) != 0) return;
    epoll_event event{};
    event.events = (read ? static_cast<std::uint32_t>(EPOLLIN) : 0U) | (write ? static_cast<std::uint32_t>(EPOLLOUT) : 0U);
    event.data.u64 = EventKey(descriptor, watched.generation);
    const int first = added ? EPOLL_CTL_ADD : EPOLL_CTL_MOD;
    const int other = added ? EPOLL_CTL_MOD : EPOLL_CTL_ADD;  // for a number that was closed and opened again while watched
    if (epoll_ctl(epoll_, first, descriptor, &event) == 0) return;
    if ((errno == EEXIST || errno == ENOENT) && epoll_ctl(epoll_, other, descriptor, &event) == 0) return;
    alwaysReady_.insert(descriptor);
}

EventLoop::TimerId PollLoop::StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) {
    do lastTimer_ = lastTimer_ == std::numeric_limits<TimerId>::max() ? 1 : lastTimer_ + 1;
    while (timers_.count(lastTimer_) != 0);
    const TimerId timer = lastTimer_;
    timers_[timer] = {std::chrono::steady_clock::now() + interval, interval, repeat,
                      std::make_shared<std::function<void()>>(std::move(tick))};
    return timer;
}

void PollLoop::StopTimer(TimerId timer) { timers_.erase(timer); }

// The wake-up stays readable until the last piece of work was taken, so that nested turns go on with the next one.
void PollLoop::Post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
    const std::uint64_t one = 1;
    if (posted_.size() > 1) return;
    [[maybe_unused]] const auto written = write(wake_, &one, sizeof one);
}

void PollLoop::RunPosted() {
    std::size_t left = 0;  // what is posted meanwhile waits for the next turn
    {
        const std::lock_guard lock(mutex_);
        left = posted_.size();
    }
    for (; left > 0; --left) {
        std::function<void()> work;
        {
            const std::lock_guard lock(mutex_);
            if (posted_.empty()) return;
            work = std::move(posted_.front());
            posted_.pop_front();
            if (posted_.empty()) Drain(wake_);
        }
        work();
    }
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

void PollLoop::RunDescriptors(int timeoutMilliseconds) {
    std::array<epoll_event, 64> events;
    const int count = epoll_wait(epoll_, events.data(), static_cast<int>(events.size()), timeoutMilliseconds);
    lastTurn_ = std::chrono::steady_clock::now();
    const std::uint64_t poll = ++polls_;
    // A nested turn asked again: what it left comes back at the next turn.
    for (int i = 0; i < count && polls_ == poll; ++i) {
        const epoll_event& event = events[static_cast<std::size_t>(i)];
        const int descriptor = DescriptorOf(event.data.u64);
        if (descriptor == wake_) {
            RunPosted();
            continue;
        }
        const auto found = watched_.find(descriptor);
        if (found == watched_.end() || EventKey(descriptor, found->second.generation) != event.data.u64) continue;
        const bool ended = (event.events & (EPOLLERR | EPOLLHUP)) != 0;
        const bool readable = found->second.read && ((event.events & EPOLLIN) != 0 || ended);
        const bool writable = found->second.write && ((event.events & EPOLLOUT) != 0 || ended);
        const auto ready = found->second.ready;
        if (readable || writable) (*ready)(readable, writable);
    }
    if (polls_ == poll && !alwaysReady_.empty()) RunAlwaysReady();
}

void PollLoop::RunAlwaysReady() {
    const std::uint64_t poll = polls_;
    for (const int descriptor : std::vector<int>(alwaysReady_.begin(), alwaysReady_.end())) {
        const auto found = watched_.find(descriptor);
        if (polls_ != poll) return;
        if (found == watched_.end() || alwaysReady_.count(descriptor) == 0) continue;
        const auto ready = found->second.ready;
        (*ready)(found->second.read, found->second.write);
    }
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

void PollLoop::Turn(std::chrono::milliseconds atMost) {
    const bool ran = RunTimers();
    RunDescriptors(ran || !alwaysReady_.empty() ? 0 : UntilNextTimer(atMost));
    RunTimers();
}

}  // namespace qv
