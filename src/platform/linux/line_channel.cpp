#include "platform/linux/line_channel.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace qv {

LineChannel::~LineChannel() { loop_.Unwatch(input_); }

void LineChannel::Start(std::function<void(const std::string&)> line, std::function<void()> end) {
    line_ = std::move(line);
    end_ = std::move(end);
    fcntl(input_, F_SETFL, fcntl(input_, F_GETFL, 0) | O_NONBLOCK);
    loop_.Watch(input_, true, false, [this](bool, bool) { Take(); });
}

void LineChannel::Take() {
    std::array<char, 65536> buffer;
    const ssize_t got = read(input_, buffer.data(), buffer.size());
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got > 0) {
        pending_.append(buffer.data(), static_cast<std::size_t>(got));
    } else {
        loop_.Unwatch(input_);
        ended_ = true;
    }
    if (!posted_) HandleLine();
}

// The line is taken out and the next turn told of what follows before it is handled, so that a handler's own turns go on with it.
void LineChannel::HandleLine() {
    posted_ = false;
    const auto end = pending_.find('\n', searched_);
    if (end == std::string::npos) {
        searched_ = pending_.size();
        if (pending_.size() > kLongestLine) pending_.resize(kLongestLine);
        if (ended_) end_();
        return;
    }
    const std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    searched_ = 0;
    if (ended_ || pending_.find('\n') != std::string::npos) {
        posted_ = true;
        loop_.Post([this, alive = std::weak_ptr<int>(alive_)] {
            if (!alive.expired()) HandleLine();
        });
    }
    line_(line);
}

void LineChannel::Write(std::string_view line) {
    std::string bytes(line);
    bytes += '\n';
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const ssize_t written = write(output_, rest.data(), rest.size());
        if (written > 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd wait{output_, POLLOUT, 0};
            poll(&wait, 1, -1);
        } else if (errno != EINTR) {
            return;
        }
    }
}

}  // namespace qv
