// OpenLocalWebSite: opens the documents of a folder that mirrors a site, along their links or all of them. The same button
// stops, and a walk that was stopped can be gone on with.
#pragma once

#include <functional>
#include <string>

#include "retrieve/site_walk.h"

namespace qv {

class LocalSiteOpen : public SiteWalk {
   public:
    explicit LocalSiteOpen(Parts parts) : SiteWalk(parts) {}

    void OpenLocalWebSite();

    std::function<void(const std::string& path, const std::string& url)> OpenLocalDocument;

   private:
    struct Walk {
        bool resuming = false;
        std::string firstPath;
        AddressList Pending, Work, Opened;
    };
    bool Begin(Walk& walk);
    void TakePartialSite(Walk& walk);
    void OpenSite(Walk& walk);
    bool Prepare(Walk& walk, std::string& url, std::string& path);
    void TakeLinks(Walk& walk, bool first);
    void RunPasses(Walk& walk);
    void ScanFolders(Walk& walk);
    bool OpenEntry(Walk& walk, std::size_t entry);
    bool LinkedOnly() const;
    void Press();
    void Finish(bool stoppedForResume);
};

}  // namespace qv
