// What is kept of a site's walk that was stopped, so that it can be gone on with: three files in the cache folder.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/files.h"

namespace qv {

// Addresses in the order in which they came, each with a path, trimmed. Whether one is there is told without going through them.
class AddressList {
   public:
    void Add(std::string_view url, std::string_view path = {});
    void Append(AddressList& other);  // takes all of the other's, which is empty then
    void Clear();
    bool Contains(std::string_view url) const;
    std::size_t Count() const { return entries_.size(); }
    const std::string& Url(std::size_t entry) const { return entries_[entry].url; }  // from 0
    const std::string& Path(std::size_t entry) const { return entries_[entry].path; }

   private:
    struct Entry {
        std::string url;
        std::string path;
    };
    std::deque<Entry> entries_;  // its elements stay where they are
    std::unordered_set<std::string_view> known_;
};

struct PartialSite {
    std::string SiteRoot;
    AddressList Pending;  // not opened yet
    AddressList Visited;
};

bool HasPartialSite(const Files& files, const std::string& cacheFolder);
// Files that are short or missing give what they hold.
PartialSite ReadPartialSite(const Files& files, const std::string& cacheFolder);
void WritePartialSite(Files& files, const std::string& cacheFolder, const std::string& siteRoot, const AddressList& queue,
                      const AddressList& visited);
void DeletePartialSite(Files& files, const std::string& cacheFolder);

}  // namespace qv
