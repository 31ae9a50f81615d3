// A layer between a program and the disk, put in by LD_PRELOAD. FAULT_FOLDER names the folder whose files it looks after; each
// write, rename and removal there is counted, and FAULT says what happens:
//   count:FILE   nothing; a letter is appended to FILE for each operation
//   kill:N       the process is killed in the place of operation N; of a write, the first half of its bytes are written before
//   full:N       from operation N on there is no room: writes, and renames, fail
//   readonly     nothing can be made, changed or removed
//   short        a write takes one byte out of two of what it was given, at least one
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct Plan {
    std::string folder;
    std::string kind;
    std::string log;
    long number = 0;
    long operations = 0;
};

Plan& ThePlan() {
    static Plan plan = [] {
        Plan made;
        const char* folder = std::getenv("FAULT_FOLDER");
        const char* fault = std::getenv("FAULT");
        if (folder == nullptr || fault == nullptr) return made;
        made.folder = folder;
        const std::string text = fault;
        const auto colon = text.find(':');
        made.kind = text.substr(0, colon);
        if (colon != std::string::npos) made.log = text.substr(colon + 1);
        made.number = std::atol(made.log.c_str());
        return made;
    }();
    return plan;
}

bool Watched(const char* path) {
    const Plan& plan = ThePlan();
    return !plan.folder.empty() && std::strncmp(path, plan.folder.c_str(), plan.folder.size()) == 0;
}

bool Watched(int file) {
    if (ThePlan().folder.empty()) return false;
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    char name[64];
    char path[4096];
    std::snprintf(name, sizeof name, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(name, path, sizeof path - 1);
    if (length <= 0) return false;
    path[length] = 0;
    return Watched(path);
}

// Counts an operation. True: it fails for want of room.
bool Count() {
    Plan& plan = ThePlan();
    ++plan.operations;
    if (plan.kind == "count") {
        const long log = syscall(SYS_openat, AT_FDCWD, plan.log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        syscall(SYS_write, log, "x", 1);
        syscall(SYS_close, log);
    }
    return plan.kind == "readonly" || (plan.kind == "full" && plan.operations >= plan.number);
}

bool KilledHere() { return ThePlan().kind == "kill" && ThePlan().operations == ThePlan().number; }

[[noreturn]] void Die() {
    syscall(SYS_kill, syscall(SYS_getpid), SIGKILL);
    for (;;) pause();
}

template <class Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, std::size_t size) {
    if (Watched(file)) {
        const bool full = Count();
        if (KilledHere()) {
            syscall(SYS_write, file, bytes, size / 2);
            Die();
        }
        if (full) {
            errno = ENOSPC;
            return -1;
        }
        if (ThePlan().kind == "short" && size > 1) size /= 2;
    }
    return syscall(SYS_write, file, bytes, size);
}

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const auto mode = static_cast<mode_t>((flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, int) : 0);
    va_end(more);
    if (ThePlan().kind == "readonly" && (flags & (O_WRONLY | O_RDWR | O_CREAT)) != 0 && Watched(path)) {
        errno = EROFS;
        return -1;
    }
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int ftruncate(int file, off_t length) {
    if (Watched(file)) {
        Count();
        if (KilledHere()) Die();
    }
    return static_cast<int>(syscall(SYS_ftruncate, file, length));
}

int mkdir(const char* path, mode_t mode) {
    if (ThePlan().kind == "readonly" && Watched(path)) {
        errno = EROFS;
        return -1;
    }
    return static_cast<int>(syscall(SYS_mkdir, path, mode));
}

int rename(const char* from, const char* to) {
    if (Watched(to)) {
        const bool full = Count();
        if (KilledHere()) Die();
        if (full) {
            errno = ENOSPC;
            return -1;
        }
    }
    return Real<int (*)(const char*, const char*)>("rename")(from, to);
}

int unlink(const char* path) {
    if (Watched(path)) {
        Count();
        if (KilledHere()) Die();
        if (ThePlan().kind == "readonly") {
            errno = EROFS;
            return -1;
        }
    }
    return Real<int (*)(const char*)>("unlink")(path);
}

}  // extern "C"
