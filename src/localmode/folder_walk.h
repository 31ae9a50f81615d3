// The files of a folder that mirrors a site, with the addresses that they have there.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "session/partial_site.h"

namespace qv {

class FolderWalk {
   public:
    struct Site {
        std::string url;     // with a "/" at its end
        std::string folder;  // with a backslash at its end
    };
    FolderWalk(const Files& files, Site site) : files_(files), site_(std::move(site)) {}

    std::function<bool(const std::string& url)> IsIgnored;
    std::function<bool()> Halted;                // asked behind each file and each folder; events are served in it
    std::function<void()> CouldNotRead;          // a folder: its scan ends

    // The files of a folder (without a backslash at its end), by name, and with `recursive` those of its sub-folders, one folder
    // after the other. A folder that is entered already isn't entered again, so links in a circle end.
    void GetFolderFiles(const std::string& folder, bool recursive, AddressList& found);

   private:
    void GetFolderFiles2(const std::string& folder, const std::vector<Files::Entry>& entries, AddressList& found);

    const Files& files_;
    Site site_;
    std::vector<std::string> entered_;  // the folders that the walk is inside of
};

}  // namespace qv
