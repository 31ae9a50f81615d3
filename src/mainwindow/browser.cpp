#include "mainwindow/browser.h"

#include "extract/url_text.h"
#include "platform/files.h"

namespace qv {

void Browser::OpenInBrowser(std::string target) {
    if (!target.empty() && target.front() == '"') {
        target.erase(0, 1);
        if (!target.empty()) target.pop_back();
    }
    if (settings_.BrowserPath.empty())
        programs_.OpenWithDesktop(target);
    else
        programs_.Start(settings_.BrowserPath, {target});
    loop_.Yield();
}

std::string FileUrl(const std::string& path) {
    std::string native = NativePath(path);
    PercentEncode(native);
    const auto afterSlashes = native.find_first_not_of('/');
    return "file:///" + (afterSlashes == std::string::npos ? std::string() : native.substr(afterSlashes));
}

}  // namespace qv
