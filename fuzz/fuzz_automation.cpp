// Lines of the automation protocol: each gets one reply, and none ends the program.
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>

#include "automation/automation.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "controls/window_system.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qv::WindowSystem windows{[] {}};
    qv::Form form{windows, "F", "A form"};
    qv::TextBox text{form, "Text1"};
    qv::CheckBox check{form, "Check1", "&On"};
    qv::OptionButton option{form, "Option1", "One"};
    qv::ListBox list{form, "List1", qv::ListBox::SelectionKind::Multiple};
    qv::ComboBox combo{form, "Combo1"};
    qv::CommandButton button{form, "Com1", "&Press"};
    qv::TabStrip tabs{form, "Tabs1", {"One", "Two"}};
    qv::ScrollBar bar{form, "Bar1"};
    for (const char* row : {"a", "b", "c"}) {
        list.AddItem(row);
        combo.AddItem(row);
    }
    windows.Show(form);
    qv::ControlDriver driver;
    int replies = 0;
    qv::Automation automation(windows, driver, [&](const std::string& line) {
        const auto reply = nlohmann::json::parse(line);
        if (reply.contains("id")) ++replies;
    });
    std::string rest(reinterpret_cast<const char*>(data), size);
    int lines = 0;
    for (std::size_t end = rest.find('\n'); end != rest.npos; end = rest.find('\n')) {
        automation.HandleLine(rest.substr(0, end));
        rest.erase(0, end + 1);
        ++lines;
    }
    if (replies != lines) std::abort();
    windows.Unload(form);
    return 0;
}
