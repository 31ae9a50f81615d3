#include "platform/linux/interrupts.h"

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace qv {
namespace {

sigset_t WatchedSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    return set;
}

}  // namespace

InterruptWatch::InterruptWatch(EventLoop& loop, std::function<void()> interrupted) : loop_(loop) {
    const sigset_t set = WatchedSignals();
    sigprocmask(SIG_BLOCK, &set, nullptr);
    signals_ = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    loop_.Watch(signals_, true, false, [this, interrupted = std::move(interrupted)](bool, bool) {
        GiveBack();
        interrupted();
    });
}

InterruptWatch::~InterruptWatch() { GiveBack(); }

void InterruptWatch::GiveBack() {
    if (signals_ < 0) return;
    signalfd_siginfo info{};
    while (read(signals_, &info, sizeof info) > 0) {
    }
    loop_.Unwatch(signals_);
    close(signals_);
    signals_ = -1;
    const sigset_t set = WatchedSignals();
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

}  // namespace qv
