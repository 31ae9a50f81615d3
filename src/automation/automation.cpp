#include "automation/automation.h"

#include <nlohmann/json.hpp>

#include "controls/form.h"
#include "controls/menu.h"
#include "text/characters.h"

namespace qv {

using nlohmann::json;

Automation::Automation(WindowSystem& windows, Driver& driver, std::function<void(const std::string&)> write)
    : requests_(windows, driver), write_(std::move(write)) {
    windows.Listen(this);
}

void Automation::Write(const json& line) { write_(line.dump(-1, ' ', false, json::error_handler_t::replace)); }

void Automation::HandleLine(const std::string& line) {
    const json request = json::parse(line, nullptr, false);
    json reply = request.is_discarded() ? json{{"ok", false}, {"error", "not a line of JSON"}} : requests_.Serve(request);
    const bool hasId = request.is_object() && request.contains("id") && request["id"].is_number();
    reply["id"] = hasId ? request["id"] : json(nullptr);
    Write(reply);
}

void Automation::Ready() { Write({{"event", "ready"}}); }

void Automation::Exiting(int code) { Write({{"event", "exit"}, {"code", code}}); }

void Automation::FormShown(Form& form) { Write({{"event", form.Modal() ? "modal" : "shown"}, {"form", form.Name()}}); }

void Automation::FormClosed(const Form& form) { Write({{"event", "closed"}, {"form", form.Name()}}); }

void Automation::MessageShown(const MessageRequest& request) {
    Write({{"event", "message"},
           {"text", AsUtf8(request.text)},
           {"title", AsUtf8(request.title)},
           {"buttons", request.buttons},
           {"default", request.defaultButton}});
}

void Automation::DialogShown(const FileDialogRequest& request) {
    Write({{"event", "dialog"},
           {"kind", request.save ? "save" : "open"},
           {"title", AsUtf8(request.title)},
           {"filter", AsUtf8(request.filter)},
           {"name", AsUtf8(request.name)},
           {"folder", AsUtf8(request.folder)}});
}

void Automation::Beeped() { Write({{"event", "beep"}}); }

void Automation::MenuPoppedUp(Menu& menu) { requests_.NotePopUp(menu.Name()); }

}  // namespace qv
