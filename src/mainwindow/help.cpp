#include "mainwindow/help.h"

namespace qv {

void Help::Show(HelpTopic topic) {
    const std::string name = "help\\topic" + std::to_string(static_cast<int>(topic)) + ".html";
    for (const std::string* folder : {&places_.appPath, &places_.shippedFolder}) {
        if (!files_.FileExists(*folder + name)) continue;
        programs_.OpenWithDesktop(NativePath(*folder + name));
        return;
    }
}

}  // namespace qv
