#include "platform/linux/system_programs.h"

#include <cstdlib>
#include <string>

#include "platform/linux/processes.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kOpener = "xdg-open";

}  // namespace

std::string SystemPrograms::Native(const std::string& path) const {
    if (Trim(path).empty()) return "";
    if (files_.FileExists(path)) return NativePath(path);
    return EndsWith(Lower(PathText(path)), "\\notepad.exe") ? FindInPath(kOpener) : "";
}

bool SystemPrograms::Exists(const std::string& path) const { return !Native(path).empty(); }

bool SystemPrograms::Start(const std::string& path, const std::vector<std::string>& arguments) {
    const std::string program = Native(path);
    return !program.empty() && StartDetached(program, arguments);
}

bool SystemPrograms::OpenWithDesktop(const std::string& target) {
    const std::string opener = FindInPath(kOpener);
    return !opener.empty() && StartDetached(opener, {target});
}

Places FindPlaces() {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value != nullptr ? value : "");
    };
    std::string home = variable("QUORVANTIS_HOME");
    if (home.empty()) {
        std::string data = variable("XDG_DATA_HOME");
        if (data.empty()) data = variable("HOME") + "/.local/share";
        home = data + "/quorvantis";
    }
    Places places;
    places.appPath = PathText(home);
    if (!EndsWith(places.appPath, "\\")) places.appPath += "\\";
    places.windowsFolder = "\\usr\\bin\\";
    return places;
}

namespace {

void CopyFolder(Files& files, const std::string& from, const std::string& to) {
    files.MakeFolder(to);
    for (const auto& name : files.List(from, "*")) {
        if (files.FolderExists(from + name)) {
            CopyFolder(files, from + name + "\\", to + name + "\\");
            continue;
        }
        std::string bytes;
        if (files.Read(from + name, bytes)) files.Write(to + name, bytes);
    }
}

}  // namespace

void PrepareAppFolder(Files& files, const std::string& appPath, const std::string& shipped) {
    if (files.FolderExists(appPath)) return;
    files.MakeFolder(appPath);
    if (!shipped.empty()) CopyFolder(files, shipped, appPath);
}

std::string FindShippedFolder(const Files& files) {
    const std::string beside = PathText(ProgramFolder());
    if (beside.empty()) return "";
    for (const char* place : {"..\\share\\quorvantis\\", "..\\..\\..\\data\\"})
        if (files.FileExists(beside + place + "tipofday.txt")) return beside + place;
    return "";
}

}  // namespace qv
