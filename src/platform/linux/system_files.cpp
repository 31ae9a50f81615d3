#include "platform/linux/system_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <system_error>

namespace qv {
namespace {

constexpr mode_t kOwnerOnly = 0600;  // some of the files hold passwords
constexpr mode_t kDocument = 0666;   // less the user's mask
constexpr std::size_t kReadStep = 4096;
constexpr std::string_view kTemporary = ".quorvantis-";  // then the number of the process, a dash, and a number

FileResult Failure(int error) { return {false, std::generic_category().message(error)}; }

// A path that the system can't take as it is told: it would end at the NUL.
bool HasNul(const std::string& path) { return path.find('\0') != std::string::npos; }

class Descriptor {
   public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return number_; }
    bool Open() const { return number_ >= 0; }
    int Close() {  // gives 0 or the error: some file systems tell only here that there was no room
        const int result = close(number_);
        number_ = -1;
        return result == 0 || errno == EINTR ? 0 : errno;
    }

   private:
    int number_;
};

// Writes all bytes; gives 0 or the error.
int WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written == 0 ? EIO : errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Makes a new file in a folder and opens it for writing; its name fits no mask of the program's own files. Gives -1 on failure.
int CreateTemporary(const std::string& folder, mode_t mode, std::string& path) {
    constexpr int kMostTries = 100;
    for (int number = 0; number < kMostTries; ++number) {
        path = folder + std::string(kTemporary) + std::to_string(getpid()) + "-" + std::to_string(number);
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;
}

bool Status(const std::string& path, struct stat& status) {
    return !HasNul(path) && stat(NativePath(path).c_str(), &status) == 0;
}

// Whether a file of this name was left by a process that isn't there any more.
bool IsLeftover(std::string_view name) {
    if (!name.starts_with(kTemporary)) return false;
    const char* end = name.data() + name.size();
    pid_t process = 0;
    const auto [rest, error] = std::from_chars(name.data() + kTemporary.size(), end, process);
    if (error != std::errc() || rest == end || *rest != '-' || process <= 0) return false;
    return process == getpid() || (kill(process, 0) != 0 && errno == ESRCH);
}

class SystemReplacer : public FileReplacer {
   public:
    SystemReplacer(std::string target, mode_t mode)
        : target_(std::move(target)), file_(CreateTemporary(target_.substr(0, target_.rfind('/') + 1), mode, temporary_)) {
        if (!file_.Open()) error_ = errno;
    }
    ~SystemReplacer() override {
        if (file_.Open()) unlink(temporary_.c_str());
    }
    int Error() const { return error_; }
    bool Append(std::string_view bytes) override {
        if (error_ == 0) error_ = WriteAll(file_.Number(), bytes);
        return error_ == 0;
    }
    FileResult Finish() override {
        if (!file_.Open()) return Failure(error_);
        const int closing = file_.Close();
        if (error_ == 0) error_ = closing;
        if (error_ == 0 && rename(temporary_.c_str(), target_.c_str()) != 0) error_ = errno;
        if (error_ == 0) return {};
        unlink(temporary_.c_str());
        return Failure(error_);
    }

   private:
    std::string target_;
    std::string temporary_;
    Descriptor file_;
    int error_ = 0;
};

class SystemAppender : public FileAppender {
   public:
    explicit SystemAppender(int descriptor) : file_(descriptor) {}
    SystemAppender(const SystemAppender&) = delete;
    SystemAppender& operator=(const SystemAppender&) = delete;
    bool Append(std::string_view bytes) override {
        if (WriteAll(file_.Number(), bytes) != 0) return false;
        length_ += static_cast<std::int64_t>(bytes.size());
        return true;
    }
    std::int64_t Length() const override { return length_; }

   protected:
    int Number() const { return file_.Number(); }

   private:
    Descriptor file_;
    std::int64_t length_ = 0;
};

// Writes over what the file held and cuts off the rest at the end. Some file systems write a file out to the disk each time that it is
// emptied and filled again, which takes longer than everything else here.
class SystemRewriter : public SystemAppender {
   public:
    using SystemAppender::SystemAppender;
    ~SystemRewriter() override { static_cast<void>(ftruncate(Number(), lseek(Number(), 0, SEEK_CUR)) == 0); }
};

}  // namespace

bool SystemFiles::FileExists(const std::string& path) const {
    struct stat status {};
    return Status(path, status) && !S_ISDIR(status.st_mode);
}

bool SystemFiles::FolderExists(const std::string& path) const {
    struct stat status {};
    return Status(path, status) && S_ISDIR(status.st_mode);
}

std::int64_t SystemFiles::Length(const std::string& path) const {
    struct stat status {};
    return Status(path, status) ? status.st_size : 0;
}

FileResult SystemFiles::Read(const std::string& path, std::string& bytes, std::int64_t limit) const {
    bytes.clear();
    if (HasNul(path)) return Failure(ENOENT);
    const Descriptor file(open(NativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.Open()) return Failure(errno);
    struct stat status {};
    if (fstat(file.Number(), &status) == 0 && S_ISDIR(status.st_mode)) return Failure(EISDIR);
    const auto most = static_cast<std::size_t>(limit);
    if (status.st_size > 0)
        bytes.reserve(std::min(most, static_cast<std::size_t>(status.st_size) + 1));  // one more to meet the end
    while (bytes.size() < most) {
        const std::size_t have = bytes.size();
        bytes.resize(std::min(most, bytes.capacity() > have ? bytes.capacity() : have + std::max(have, kReadStep)));
        const ssize_t got = read(file.Number(), bytes.data() + have, bytes.size() - have);
        const int error = errno;
        bytes.resize(have + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) break;
        if (got < 0 && error == EINTR) continue;
        if (got < 0) {
            bytes.clear();
            return Failure(error);
        }
    }
    return {};
}

FileResult SystemFiles::Write(const std::string& path, std::string_view bytes) {
    if (HasNul(path)) return Failure(ENOENT);
    SystemReplacer file(NativePath(path), kOwnerOnly);
    file.Append(bytes);
    return file.Finish();
}

FileResult SystemFiles::WriteOver(const std::string& path, std::string_view bytes) {
    if (HasNul(path)) return Failure(ENOENT);
    Descriptor file(open(NativePath(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kOwnerOnly));
    if (!file.Open()) return Failure(errno);
    const int writing = WriteAll(file.Number(), bytes);
    const int closing = file.Close();
    const int error = writing != 0 ? writing : closing;
    return error == 0 ? FileResult{} : Failure(error);
}

std::unique_ptr<FileReplacer> SystemFiles::Replace(const std::string& path) {
    if (HasNul(path)) return nullptr;
    auto file = std::make_unique<SystemReplacer>(NativePath(path), kDocument);
    if (file->Error() != 0) return nullptr;
    return file;
}

std::unique_ptr<FileAppender> SystemFiles::Extend(const std::string& path) {
    if (HasNul(path)) return nullptr;
    const int file = open(NativePath(path).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kDocument);
    return file < 0 ? nullptr : std::make_unique<SystemAppender>(file);
}

std::unique_ptr<FileAppender> SystemFiles::Create(const std::string& path) {
    if (HasNul(path)) return nullptr;
    const int file = open(NativePath(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kOwnerOnly);
    return file < 0 ? nullptr : std::make_unique<SystemRewriter>(file);
}

void SystemFiles::KeepForOwner(const std::string& path) {
    struct stat status {};
    if (Status(path, status) && S_ISREG(status.st_mode) && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        chmod(NativePath(path).c_str(), status.st_mode & S_IRWXU);
}

bool SystemFiles::Remove(const std::string& path) { return !HasNul(path) && unlink(NativePath(path).c_str()) == 0; }

bool SystemFiles::Rename(const std::string& from, const std::string& to) {
    return !HasNul(from) && !HasNul(to) && rename(NativePath(from).c_str(), NativePath(to).c_str()) == 0;
}

bool SystemFiles::MakeFolder(const std::string& path) {
    if (HasNul(path)) return false;
    const std::string native = NativePath(path);
    for (std::size_t slash = native.find('/', 1); slash != std::string::npos; slash = native.find('/', slash + 1))
        mkdir(native.substr(0, slash).c_str(), 0777);
    mkdir(native.c_str(), 0777);
    return FolderExists(path);
}

std::vector<std::string> SystemFiles::List(const std::string& folder, const std::string& mask) const {
    std::vector<std::string> names;
    DIR* opened = HasNul(folder) ? nullptr : opendir(NativePath(folder).c_str());
    if (opened == nullptr) return names;
    while (const dirent* entry = readdir(opened)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && FitsMask(name, mask)) names.emplace_back(name);
    }
    closedir(opened);
    std::sort(names.begin(), names.end());
    return names;
}

// Called before this process has begun a write of its own: a file with its number is from an earlier process of that number.
void SystemFiles::RemoveLeftovers(const std::string& folder) {
    DIR* opened = HasNul(folder) ? nullptr : opendir(NativePath(folder).c_str());
    if (opened == nullptr) return;
    while (const dirent* entry = readdir(opened))
        if (IsLeftover(entry->d_name)) unlinkat(dirfd(opened), entry->d_name, 0);
    closedir(opened);
}

FileResult SystemFiles::ListFolder(const std::string& folder, std::vector<Entry>& entries) const {
    entries.clear();
    if (HasNul(folder)) return Failure(ENOENT);
    DIR* opened = opendir(NativePath(folder).c_str());
    if (opened == nullptr) return Failure(errno);
    while (const dirent* entry = readdir(opened)) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..") continue;
        struct stat status {};
        const bool known = fstatat(dirfd(opened), entry->d_name, &status, 0) == 0;
        entries.push_back({name, known && S_ISDIR(status.st_mode)});
    }
    closedir(opened);
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return {};
}

std::string SystemFiles::FolderIdentity(const std::string& folder) const {
    struct stat status {};
    if (!Status(folder, status) || !S_ISDIR(status.st_mode)) return "";
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

}  // namespace qv
