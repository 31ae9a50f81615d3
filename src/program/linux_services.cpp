#include "program/linux_services.h"

#include <clocale>

#include "text/basic_text.h"

namespace qv {

LinuxServices::LinuxServices(EventLoop& loop, const std::string& appPath) : loop_(loop) {
    std::setlocale(LC_TIME, "");  // the names of months
    if (!appPath.empty()) places_.appPath = EndsWith(appPath, "\\") ? appPath : appPath + "\\";
    scheduler_.emplace(places_.appPath);
    places_.shippedFolder = FindShippedFolder(files_);
    PrepareAppFolder(files_, places_.appPath, places_.shippedFolder);
}

ProgramServices LinuxServices::Services(std::string commandLine) {
    return {loop_, clock_, files_, http_, ftp_, ipInfo_, smtp_, mime_, code_, store_, programs_, others_, *scheduler_, timers_, flags_, places_, std::move(commandLine)};
}

}  // namespace qv
