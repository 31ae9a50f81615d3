// Files and folders. Every path is a text in the backslash form ("\home\me\site\"); here, and nowhere else, it becomes a
// native path: each backslash turns into a slash.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// What came of an attempt. `Text` is the system's own words ("Permission denied"), empty on success.
struct FileResult {
    bool ok = true;
    std::string text;
    explicit operator bool() const { return ok; }
};

// A file that is written piece by piece. It is closed when its life ends.
class FileAppender {
   public:
    virtual ~FileAppender() = default;
    virtual bool Append(std::string_view bytes) = 0;  // false: not all was written
    virtual std::int64_t Length() const = 0;
};

// A whole file that is written piece by piece, to a temporary name in the same folder. The file itself changes at Finish alone;
// without it, or after a piece that failed, it stays as it was and the temporary file goes.
class FileReplacer {
   public:
    virtual ~FileReplacer() = default;
    virtual bool Append(std::string_view bytes) = 0;  // false: not all was written
    virtual FileResult Finish() = 0;                  // nothing may follow
};

class Files {
   public:
    virtual ~Files() = default;

    virtual bool FileExists(const std::string& path) const = 0;  // something of that name that isn't a folder
    virtual bool FolderExists(const std::string& path) const = 0;
    virtual std::int64_t Length(const std::string& path) const = 0;  // bytes; 0 when it can't be told

    // The whole contents. On failure `bytes` is empty; a folder fails. At most `limit` bytes are read.
    virtual FileResult Read(const std::string& path, std::string& bytes, std::int64_t limit) const = 0;
    FileResult Read(const std::string& path, std::string& bytes) const { return Read(path, bytes, kReadLimit); }
    static constexpr std::int64_t kReadLimit = std::int64_t{1} << 31;

    // Replaces the whole file, for its owner's eyes only: the bytes go to a temporary name in the same folder, which is renamed over the old file. A
    // failure leaves the old file as it was, and no temporary file.
    virtual FileResult Write(const std::string& path, std::string_view bytes) = 0;

    // Writes over what a file begins with, in place: of a longer file the rest stays. For a text of a few bytes that changes often; a
    // failure may leave some of them written. Makes the file, for its owner's eyes only, when there is none.
    virtual FileResult WriteOver(const std::string& path, std::string_view bytes) = 0;

    // The same as Write in pieces, and with the rights of an ordinary document (others may read it as the user's mask says). Null when
    // there can be no such file.
    virtual std::unique_ptr<FileReplacer> Replace(const std::string& path) = 0;

    // Opens a file for appending behind what it holds, making one with the rights of an ordinary document. Null when it can't be.
    virtual std::unique_ptr<FileAppender> Extend(const std::string& path) = 0;
    // Begins a file anew, for its owner's eyes only. What it held before is gone at the end of the appender's life at the latest, and
    // may stand behind the new bytes till then. Null when it can't be opened.
    virtual std::unique_ptr<FileAppender> Create(const std::string& path) = 0;

    // Takes the rights of everybody else from a file that is there; a failure is passed over.
    virtual void KeepForOwner(const std::string& path) = 0;
    virtual bool Remove(const std::string& path) = 0;  // one file; false when there is none or it stays
    // Removes what a process that was killed in the middle of a write has left in a folder. Failures are passed over.
    virtual void RemoveLeftovers(const std::string& folder) = 0;
    virtual bool Rename(const std::string& from, const std::string& to) = 0;
    virtual bool MakeFolder(const std::string& path) = 0;  // with its missing parents; true if it is there then

    // Names in a folder that fit a mask with "*" and "?", without regard to case, sorted bytewise; without "." and "..".
    virtual std::vector<std::string> List(const std::string& folder, const std::string& mask) const = 0;

    // What a folder holds, sorted bytewise by name; without "." and "..". A link is what it leads to. On failure `entries` is empty.
    struct Entry {
        std::string name;
        bool isFolder = false;
    };
    virtual FileResult ListFolder(const std::string& folder, std::vector<Entry>& entries) const = 0;
    // A text that is the same for two paths of one folder; empty when there is no such folder.
    virtual std::string FolderIdentity(const std::string& folder) const = 0;

    // The name as the folder lists it that equals `name` without regard to ASCII case, one of the same case first; `name`
    // itself when there is none. `folder` ends in a backslash.
    std::string RealName(const std::string& folder, const std::string& name) const;

    // Removes each file of the folder that fits the mask. Failures are passed over.
    void RemoveAll(const std::string& folder, const std::string& mask) {
        for (const auto& name : List(folder, mask)) Remove(folder + name);
    }
};

// Whether a name fits a mask with "*" and "?", without regard to ASCII case.
bool FitsMask(std::string_view name, std::string_view mask);

// A path text as the system wants it, and a native path as a path text.
std::string NativePath(std::string_view pathText);
std::string PathText(std::string_view nativePath);

}  // namespace qv
