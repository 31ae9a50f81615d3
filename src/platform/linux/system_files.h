// Files and folders of the system.
#pragma once

#include "platform/files.h"

namespace qv {

class SystemFiles : public Files {
   public:
    bool FileExists(const std::string& path) const override;
    bool FolderExists(const std::string& path) const override;
    std::int64_t Length(const std::string& path) const override;
    using Files::Read;
    FileResult Read(const std::string& path, std::string& bytes, std::int64_t limit) const override;
    FileResult Write(const std::string& path, std::string_view bytes) override;
    FileResult WriteOver(const std::string& path, std::string_view bytes) override;
    std::unique_ptr<FileReplacer> Replace(const std::string& path) override;
    std::unique_ptr<FileAppender> Extend(const std::string& path) override;
    std::unique_ptr<FileAppender> Create(const std::string& path) override;
    void KeepForOwner(const std::string& path) override;
    bool Remove(const std::string& path) override;
    void RemoveLeftovers(const std::string& folder) override;
    bool Rename(const std::string& from, const std::string& to) override;
    bool MakeFolder(const std::string& path) override;
    FileResult ListFolder(const std::string& folder, std::vector<Entry>& entries) const override;
    std::string FolderIdentity(const std::string& folder) const override;
    std::vector<std::string> List(const std::string& folder, const std::string& mask) const override;
};

}  // namespace qv
