#include "platform/linux/processes.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>

namespace qv {
namespace {

constexpr int kMostMilliseconds = 10000;  // of a program that is waited for

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

// Bytes in memory that a program reads or writes as a file.
class MemoryFile {
   public:
    explicit MemoryFile(std::string_view bytes = {}) : file_(memfd_create("quorvantis", MFD_CLOEXEC)) {
        while (!bytes.empty()) {
            const ssize_t written = write(file_, bytes.data(), bytes.size());
            if (written <= 0) break;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        lseek(file_, 0, SEEK_SET);
    }
    ~MemoryFile() { close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    int Number() const { return file_; }
    std::string Bytes() const {
        std::string bytes;
        std::array<char, 4096> block{};
        off_t at = 0;
        for (ssize_t length = 0; (length = pread(file_, block.data(), block.size(), at)) > 0; at += length)
            bytes.append(block.data(), static_cast<std::size_t>(length));
        return bytes;
    }

   private:
    int file_;
};

// Waits for the end of a child; one that takes too long is ended. False when it didn't end by itself.
bool WaitForEnd(pid_t child, int& code) {
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
    pollfd end{handle, POLLIN, 0};
    if (handle >= 0 && poll(&end, 1, kMostMilliseconds) == 0) kill(child, SIGKILL);
    if (handle >= 0) close(handle);
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return false;
    code = WEXITSTATUS(status);
    return WIFEXITED(status);
}

// This process's environment with some variables set anew.
std::vector<char*> Environment(const std::vector<std::string>& variables) {
    std::vector<char*> all;
    all.reserve(variables.size());
    for (const auto& variable : variables) all.push_back(const_cast<char*>(variable.c_str()));
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string_view name = std::string_view(*variable).substr(0, std::string_view(*variable).find('=') + 1);
        const auto named = [&](const std::string& other) { return std::string_view(other).starts_with(name); };
        if (std::none_of(variables.begin(), variables.end(), named)) all.push_back(*variable);
    }
    all.push_back(nullptr);
    return all;
}

std::vector<char*> Words(const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> words = {const_cast<char*>(program.c_str())};
    for (const auto& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    return words;
}

}  // namespace

std::string ProgramFolder() {
    std::string program(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", program.data(), program.size());
    if (length <= 0) return "";
    program.resize(static_cast<std::size_t>(length));
    return program.substr(0, program.rfind('/') + 1);
}

bool IsProgram(const std::string& nativePath) {
    struct stat status {};
    return stat(nativePath.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(nativePath.c_str(), X_OK) == 0;
}

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

bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
    const auto words = Words(program, arguments);
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

Finished RunToEnd(const std::string& program, const std::vector<std::string>& arguments, std::string_view input,
                  const std::vector<std::string>& variables) {
    const MemoryFile in(input), out, err;
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_adddup2(&streams, in.Number(), 0);
    posix_spawn_file_actions_adddup2(&streams, out.Number(), 1);
    posix_spawn_file_actions_adddup2(&streams, err.Number(), 2);
    pid_t child = -1;
    Finished finished;
    const auto words = Words(program, arguments);
    const auto environment = Environment(variables);
    if (posix_spawn(&child, program.c_str(), &streams, nullptr, words.data(), environment.data()) == 0)
        finished.ended = WaitForEnd(child, finished.code);
    posix_spawn_file_actions_destroy(&streams);
    finished.output = out.Bytes();
    finished.errors = err.Bytes();
    return finished;
}

}  // namespace qv
