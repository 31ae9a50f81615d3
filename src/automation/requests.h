// The requests of the automation protocol: finding what they address, making sure that a user could do it, and doing it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "automation/driver.h"
#include "controls/window_system.h"

namespace qv {

class Requests {
   public:
    Requests(WindowSystem& windows, Driver& driver) : windows_(windows), driver_(driver) {}

    // Carries a request out. Gives the fields of its reply, with "ok"; a refusal has "ok": false and an "error". Returns when the
    // handlers that it set going have returned.
    nlohmann::json Serve(const nlohmann::json& request);

    void NotePopUp(const std::string& menu) { popUp_ = menu; }

   private:
    struct Target {
        Form* form = nullptr;
        Control* control = nullptr;
        std::string error;
    };
    Target Find(const nlohmann::json& request) const;
    std::string Obstacle(const Target& target, const std::string& verb) const;  // why a user couldn't; empty if he could

    nlohmann::json ServeVerb(const std::string& verb, const nlohmann::json& request);
    nlohmann::json ServeTarget(const std::string& verb, const nlohmann::json& request);
    nlohmann::json Act(const std::string& verb, Target& target, const nlohmann::json& request);
    nlohmann::json ActOnForm(const std::string& verb, Form& form);
    nlohmann::json Set(Control& control, const nlohmann::json& request);
    nlohmann::json OnRow(const std::string& verb, Control& control, const nlohmann::json& request);
    nlohmann::json PressKey(Control& control, const nlohmann::json& request);
    nlohmann::json ShowMenu(Control& control);
    nlohmann::json Answer(const nlohmann::json& request);
    nlohmann::json Forms() const;
    nlohmann::json Clipboard(const nlohmann::json& request);

    WindowSystem& windows_;
    Driver& driver_;
    std::string popUp_;
};

}  // namespace qv
