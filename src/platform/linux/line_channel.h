// Lines in on standard input, lines out on standard output.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/event_loop.h"

namespace qv {

class LineChannel {
   public:
    explicit LineChannel(EventLoop& loop, int input = 0, int output = 1) : loop_(loop), input_(input), output_(output) {}
    ~LineChannel();
    LineChannel(const LineChannel&) = delete;
    LineChannel& operator=(const LineChannel&) = delete;

    // Calls `line` for each line that comes in, without its end, one a turn of the loop; a call may turn the loop, and lines that
    // come meanwhile are then handled inside it. `end` comes behind the last line. A line longer than the bound is given cut to
    // it.
    void Start(std::function<void(const std::string&)> line, std::function<void()> end);
    void Write(std::string_view line);  // the line and its end, at once and whole

    static constexpr std::size_t kLongestLine = 64 * 1024 * 1024;

   private:
    void Take();
    void HandleLine();

    EventLoop& loop_;
    int input_;
    int output_;
    std::shared_ptr<int> alive_ = std::make_shared<int>(0);  // posted work comes to nothing once this is gone
    std::string pending_;
    bool posted_ = false;       // the next turn handles a line
    bool ended_ = false;        // nothing more comes in
    std::size_t searched_ = 0;  // up to here there is no line end in pending_
    std::function<void(const std::string&)> line_;
    std::function<void()> end_;
};

}  // namespace qv
