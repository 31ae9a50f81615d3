// The windows of other programs.
#pragma once

#include <string>
#include <vector>

namespace qv {

class OtherWindows {
   public:
    virtual ~OtherWindows() = default;
    // The titles of the windows on the screen, those in front first. None where there is no screen.
    virtual std::vector<std::string> Titles() = 0;
    // Brings the first window of this title to the front and gives it the keyboard. False when there is none.
    virtual bool Activate(const std::string& title) = 0;
    // Presses and releases a key in whatever window has the keyboard, as its user would; with Ctrl held down or not. Keys have the
    // names of X11 ("l", "Insert", "Escape").
    virtual void PressKey(const std::string& key, bool control) = 0;
};

// The first title that equals `wanted`, or, with `partial`, that contains it, exactly as to case, and isn't one of a mail or help
// window of Netscape's; empty when there is none.
std::string FindWindowTitle(const std::vector<std::string>& titles, const std::string& wanted, bool partial);

}  // namespace qv
