// The automation protocol: request lines in, reply and event lines out.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "automation/requests.h"
#include "controls/window_system.h"

namespace qv {

// Requests are handled as they come, also inside handlers that turn the event loop; a reply is written when its handler has
// returned.
class Automation : public WindowListener {
   public:
    // `write` takes a line without its end, and has written it when it returns.
    Automation(WindowSystem& windows, Driver& driver, std::function<void(const std::string&)> write);

    void HandleLine(const std::string& line);
    void Ready();
    void Exiting(int code);

    void FormShown(Form& form) override;
    void FormClosed(const Form& form) override;
    void MessageShown(const MessageRequest& request) override;
    void DialogShown(const FileDialogRequest& request) override;
    void Beeped() override;
    void MenuPoppedUp(Menu& menu) override;

   private:
    void Write(const nlohmann::json& line);

    Requests requests_;
    std::function<void(const std::string&)> write_;
};

}  // namespace qv
