// The way to the user's Web browser, and the services on the Web that it is sent to.
#pragma once

#include <string>
#include <string_view>

#include "controls/window_system.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/other_windows.h"
#include "platform/programs.h"
#include "session/session.h"

namespace qv {

class Browser {
   public:
    struct Parts {
        WindowSystem& windows;
        const Settings& settings;
        Programs& programs;
        OtherWindows& others;
        EventLoop& loop;
        const Clock& clock;
    };
    explicit Browser(Parts parts) : p_(parts) {}

    // Shows an address in the program of `BrowserPath`, else in what the desktop has for it. Quotes around the target go. A browser
    // that can't be started is passed over. A target of at most four characters, which is no address, ends in a message when no
    // browser is set.
    void OpenInBrowser(std::string target);

    // The address of the page that a running browser shows: it is found by its window's title, and asked by its own keys and the
    // clipboard. Empty when there is none or it doesn't tell.
    std::string PageAddress();

   private:
    std::string AskByKeys(const std::string& title);
    void Pause(double seconds, bool untilClipboard);  // events are handled meanwhile

    Parts p_;
};

// The address of a local file, given in either form: "file:///" and the native path, percent-encoded.
std::string FileUrl(const std::string& path);

// Addresses of the services. Texts have their blanks turned to "+".
namespace services {
std::string AltaVista(std::string_view text, bool quoted);  // in quotes, or behind "link:"
std::string Excite(std::string_view text);
std::string InfoSeek(std::string_view text);
std::string Google(std::string_view text);
std::string WhoisOfDocument(std::string_view host);  // without a "www." at its start
std::string WhoisOfLink(std::string_view host);
extern const char* const kHomePage;
}  // namespace services

}  // namespace qv
