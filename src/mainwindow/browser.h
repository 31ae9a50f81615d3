// The way to the user's Web browser.
#pragma once

#include <string>

#include "platform/event_loop.h"
#include "platform/programs.h"
#include "session/session.h"

namespace qv {

class Browser {
   public:
    Browser(const Settings& settings, Programs& programs, EventLoop& loop) : settings_(settings), programs_(programs), loop_(loop) {}

    // Shows an address in the program of `BrowserPath`, else in what the desktop has for it. Quotes around the target go. A browser
    // that can't be started is passed over.
    void OpenInBrowser(std::string target);

   private:
    const Settings& settings_;
    Programs& programs_;
    EventLoop& loop_;
};

// The address of a local file, given in either form: "file:///" and the native path, percent-encoded.
std::string FileUrl(const std::string& path);

}  // namespace qv
