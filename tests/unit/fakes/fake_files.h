// A disk in memory. Writes can be made to fail.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace qv {

class FakeFiles : public Files {
   public:
    std::map<std::string, std::string> files;  // by path
    std::set<std::string> folders;             // without a backslash at the end
    bool writesFail = false;
    std::vector<std::string> writes;  // paths in the order in which they were written

    bool FileExists(const std::string& path) const override { return files.count(path) != 0; }
    bool FolderExists(const std::string& path) const override { return folders.count(Bare(path)) != 0; }
    std::int64_t Length(const std::string& path) const override {
        return FileExists(path) ? static_cast<std::int64_t>(files.at(path).size()) : 0;
    }
    using Files::Read;
    FileResult Read(const std::string& path, std::string& bytes, std::int64_t limit) const override {
        bytes.clear();
        if (FolderExists(path)) return {false, "Is a directory"};
        if (!FileExists(path)) return {false, "No such file or directory"};
        if (unreadable.count(path) != 0) return {false, "Permission denied"};
        bytes = files.at(path).substr(0, static_cast<std::size_t>(limit));
        return {};
    }
    FileResult Write(const std::string& path, std::string_view bytes) override {
        if (writesFail) return {false, "No space left on device"};
        files[path] = std::string(bytes);
        writes.push_back(path);
        return {};
    }
    FileResult WriteOver(const std::string& path, std::string_view bytes) override {
        const std::string old = FileExists(path) ? files.at(path) : "";
        return Write(path, std::string(bytes) + (old.size() > bytes.size() ? old.substr(bytes.size()) : ""));
    }
    std::unique_ptr<FileReplacer> Replace(const std::string& path) override {
        if (writesFail) return nullptr;
        return std::make_unique<Replacer>(*this, path);
    }
    std::unique_ptr<FileAppender> Extend(const std::string& path) override {
        if (writesFail) return nullptr;
        return std::make_unique<Appender>(files[path]);
    }
    std::unique_ptr<FileAppender> Create(const std::string& path) override {
        if (writesFail) return nullptr;
        files[path].clear();
        return std::make_unique<Appender>(files[path]);
    }
    void KeepForOwner(const std::string& path) override { kept.insert(path); }
    std::set<std::string> kept;  // the files that nobody else may read
    bool Remove(const std::string& path) override { return files.erase(path) != 0; }
    void RemoveLeftovers(const std::string& folder) override { cleaned.insert(folder); }
    std::set<std::string> cleaned;  // the folders that were looked through for leftovers
    bool Rename(const std::string& from, const std::string& to) override {
        if (!FileExists(from)) return false;
        files[to] = files[from];
        files.erase(from);
        return true;
    }
    bool MakeFolder(const std::string& path) override {
        folders.insert(Bare(path));
        return true;
    }
    std::vector<std::string> List(const std::string& folder, const std::string& mask) const override {
        std::vector<std::string> names;
        for (const auto& [path, bytes] : files) {
            const std::string name = path.substr(path.rfind('\\') + 1);
            if (path.size() - name.size() == folder.size() && path.compare(0, folder.size(), folder) == 0 && FitsMask(name, mask))
                names.push_back(name);
        }
        return names;
    }

    FileResult ListFolder(const std::string& folder, std::vector<Entry>& entries) const override {
        entries.clear();
        const std::string bare = Bare(folder) + "\\";
        if (unreadable.count(Bare(folder)) != 0) return {false, "Permission denied"};
        std::map<std::string, bool> found;
        for (const auto& [path, bytes] : files) {
            if (path.compare(0, bare.size(), bare) != 0) continue;
            const auto end = path.find('\\', bare.size());
            found[path.substr(bare.size(), end == std::string::npos ? end : end - bare.size())] = end != std::string::npos;
        }
        for (const auto& [name, isFolder] : found) entries.push_back({name, isFolder});
        return {};
    }
    std::string FolderIdentity(const std::string& folder) const override {
        const auto same = sameFolder.find(Bare(folder));
        return same == sameFolder.end() ? Bare(folder) : same->second;
    }

    std::set<std::string> unreadable;
    std::map<std::string, std::string> sameFolder;  // a folder that is another one under a second name

   private:
    class Replacer : public FileReplacer {
       public:
        Replacer(FakeFiles& disk, std::string path) : disk_(disk), path_(std::move(path)) {}
        bool Append(std::string_view more) override {
            bytes_.append(more);
            return !disk_.writesFail;
        }
        FileResult Finish() override { return disk_.Write(path_, bytes_); }

       private:
        FakeFiles& disk_;
        std::string path_;
        std::string bytes_;
    };
    class Appender : public FileAppender {
       public:
        explicit Appender(std::string& bytes) : bytes_(bytes) {}
        bool Append(std::string_view more) override {
            bytes_.append(more);
            return true;
        }
        std::int64_t Length() const override { return static_cast<std::int64_t>(bytes_.size()); }

       private:
        std::string& bytes_;
    };
    static std::string Bare(std::string path) {
        while (!path.empty() && path.back() == '\\') path.pop_back();
        return path;
    }
};

}  // namespace qv
