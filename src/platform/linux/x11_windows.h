// OtherWindows on X11.
#pragma once

#include "platform/other_windows.h"

namespace qv {

// Whether windows can be opened: the environment names a display, and it answers.
bool HasDisplay();

// Asks the display that the environment names, anew each time; without one there are no windows.
class X11Windows : public OtherWindows {
   public:
    std::vector<std::string> Titles() override;
    bool Activate(const std::string& title) override;
    void PressKey(const std::string& key, bool control) override;
};

}  // namespace qv
