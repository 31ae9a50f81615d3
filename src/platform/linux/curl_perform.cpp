#include "platform/linux/curl_perform.h"

#include <sys/select.h>

#include <algorithm>

namespace qv {
namespace {

constexpr double kBlindWait = 0.1;  // seconds, while libcurl waits for something that it doesn't show

}  // namespace

void CurlPerform::CloseConnections() {
    if (multi_ == nullptr) return;
    UnwatchAll();
    if (running_) curl_multi_remove_handle(multi_, easy_);
    curl_multi_cleanup(multi_);
    multi_ = nullptr;
    ended_ = true;
}

void CurlPerform::End() {
    ended_ = ended_ || running_;
    loop_.Post([] {});  // whoever waits for the transfer looks again
}

CURLcode CurlPerform::Run(const std::function<double()>& secondsLeft) {
    if (multi_ == nullptr) multi_ = curl_multi_init();
    running_ = true;
    ended_ = false;
    result_ = CURLE_OK;
    curl_multi_add_handle(multi_, easy_);
    for (Advance(); !ended_; Advance()) {
        WaitForMore(secondsLeft());
        if (!ended_ && secondsLeft() <= 0) {
            result_ = CURLE_OPERATION_TIMEDOUT;
            ended_ = true;
        }
    }
    UnwatchAll();
    if (multi_ != nullptr) curl_multi_remove_handle(multi_, easy_);
    running_ = false;
    return result_;
}

void CurlPerform::Advance() {
    if (ended_) return;
    int running = 0;
    curl_multi_perform(multi_, &running);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
        if (message->msg != CURLMSG_DONE) continue;
        result_ = message->data.result;
        ended_ = true;
    }
}

// A descriptor that is ready is let go of at once: should a handler of this turn wait for something else, it isn't told again and
// again.
void CurlPerform::WaitForMore(double secondsLeft) {
    fd_set read, write, exception;
    FD_ZERO(&read);
    FD_ZERO(&write);
    FD_ZERO(&exception);
    int last = -1;
    curl_multi_fdset(multi_, &read, &write, &exception, &last);
    for (int descriptor = 0; descriptor <= last; ++descriptor) {
        const bool reads = FD_ISSET(descriptor, &read);
        const bool writes = FD_ISSET(descriptor, &write);
        if (!reads && !writes) continue;
        watched_.push_back(descriptor);
        loop_.Watch(descriptor, reads, writes, [this, descriptor](bool, bool) { loop_.Unwatch(descriptor); });
    }
    long milliseconds = -1;
    curl_multi_timeout(multi_, &milliseconds);
    double seconds = milliseconds < 0 ? secondsLeft : static_cast<double>(milliseconds) / 1000;
    if (last < 0) seconds = std::min(seconds, kBlindWait);
    loop_.WaitFor(std::min(seconds, secondsLeft));
    UnwatchAll();
}

void CurlPerform::UnwatchAll() {
    for (const int descriptor : watched_) loop_.Unwatch(descriptor);
    watched_.clear();
}

}  // namespace qv
