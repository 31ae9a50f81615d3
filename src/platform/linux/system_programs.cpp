#include "platform/linux/system_programs.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kOpener = "xdg-open";

bool IsProgram(const std::string& nativePath) {
    struct stat status {};
    return stat(nativePath.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(nativePath.c_str(), X_OK) == 0;
}

// The full native path of a program in PATH; empty when there is none.
std::string FindInPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::string_view rest = path != nullptr ? path : "";
    while (!rest.empty()) {
        const auto colon = rest.find(':');
        std::string candidate(rest.substr(0, colon));
        candidate.append("/").append(name);
        if (colon != 0 && IsProgram(candidate)) return candidate;
        rest.remove_prefix(colon == std::string_view::npos ? rest.size() : colon + 1);
    }
    return "";
}

// Behind the fork: nothing of this process goes along but what is told. Whatever keeps the program from starting goes into
// `told`.
[[noreturn]] void BecomeProgram(const char* program, char* const* words, int told) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = open("/dev/null", O_RDWR);
    for (int stream = 0; stream < 3; ++stream) dup2(nothing, stream);
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    execv(program, words);
    const char failed = 1;
    [[maybe_unused]] const auto written = write(told, &failed, 1);
    _exit(127);
}

// Starts a program that goes on by itself: a child of a child that has ended, with nothing on its standard streams. False when
// the system didn't start it.
bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> words;
    words.push_back(const_cast<char*>(program.c_str()));
    for (const auto& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    std::array<int, 2> told{};  // stays empty when the program was started
    if (pipe2(told.data(), O_CLOEXEC) != 0) return false;
    const pid_t child = fork();
    if (child == 0) {
        setsid();
        const pid_t grandchild = fork();
        if (grandchild == 0) BecomeProgram(program.c_str(), words.data(), told[1]);
        _exit(grandchild < 0 ? 1 : 0);
    }
    close(told[1]);
    int status = 1;
    char failed = 0;
    if (child > 0) {
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        while (read(told[0], &failed, 1) < 0 && errno == EINTR) {
        }
    }
    close(told[0]);
    return status == 0 && failed == 0;
}

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
    std::string program(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", program.data(), program.size());
    if (length <= 0) return "";
    program.resize(static_cast<std::size_t>(length));
    const std::string beside = PathText(program.substr(0, program.rfind('/') + 1));
    for (const char* place : {"..\\share\\quorvantis\\", "..\\..\\..\\data\\"})
        if (files.FileExists(beside + place + "tipofday.txt")) return beside + place;
    return "";
}

}  // namespace qv
