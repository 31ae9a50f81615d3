#include "localmode/folder_walk.h"

#include <algorithm>

#include "extract/url_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

std::string WithoutLast(const std::string& text) { return text.empty() ? text : text.substr(0, text.size() - 1); }

}  // namespace

void FolderWalk::GetFolderFiles2(const std::string& folder, const std::vector<Files::Entry>& entries, AddressList& found) {
    const std::string mirror = WithoutLast(site_.folder);
    const std::string relative = (StartsWith(folder, mirror) ? folder.substr(mirror.size()) : folder) + "\\";
    for (const Files::Entry& entry : entries) {
        if (entry.isFolder) continue;
        if (Halted()) return;
        std::string url = WithoutLast(site_.url) + relative + entry.name;
        ConvertSlashes(url, 1);
        if (!IsIgnored(url)) found.Add(url, mirror + relative + entry.name);
    }
}

void FolderWalk::GetFolderFiles(const std::string& folder, bool recursive, AddressList& found) {
    std::vector<Files::Entry> entries;
    if (!files_.ListFolder(folder + "\\", entries)) {
        CouldNotRead();
        return;
    }
    GetFolderFiles2(folder, entries, found);
    if (!recursive) return;
    entered_.push_back(files_.FolderIdentity(folder + "\\"));
    for (const Files::Entry& entry : entries) {
        if (!entry.isFolder || Contains(entry.name, ".")) continue;  // the mask for folders is of names without an extension
        if (Halted()) break;
        const std::string inner = folder + "\\" + entry.name;
        const std::string identity = files_.FolderIdentity(inner + "\\");
        if (std::find(entered_.begin(), entered_.end(), identity) == entered_.end()) GetFolderFiles(inner, true, found);
    }
    entered_.pop_back();
}

}  // namespace qv
