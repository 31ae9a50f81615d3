// The windows of other programs, as a test wants them, and what was pressed in them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/other_windows.h"

namespace qv {

class FakeWindows : public OtherWindows {
   public:
    std::vector<std::string> Titles() override { return titles; }
    bool Activate(const std::string& title) override {
        pressed.push_back("to " + title);
        return true;
    }
    void PressKey(const std::string& key, bool control) override {
        pressed.push_back(control ? "ctrl+" + key : key);
        if (OnKey) OnKey(key);
    }
    std::vector<std::string> titles;
    std::vector<std::string> pressed;
    std::function<void(const std::string&)> OnKey;
};

}  // namespace qv
