// Command1_Click: opens a page and, wave by wave, all documents of its site that it leads to. The same button cancels, and a
// walk that was stopped can be gone on with later.
#pragma once

#include <functional>

#include "retrieve/site_walk.h"

namespace qv {

class SiteOpen : public SiteWalk {
   public:
    explicit SiteOpen(Parts parts) : SiteWalk(parts) {}

    void Command1_Click();

    std::function<void()> OpenLocalWebSite;  // takes the command in Local mode
    std::function<void()> ComOpen_Click;  // opens the document of the address box

   private:
    struct Walk {
        bool resuming = false;
        bool halted = false;
        AddressList Pending, Queue, Visited;
    };
    bool Begin(Walk& walk);
    void TakePartialSite(Walk& walk);
    bool Validate();
    void OpenSite(Walk& walk);
    bool Prepare(Walk& walk);
    void OpenFirst(Walk& walk);
    void Harvest(Walk& walk, bool first);
    void RunWaves(Walk& walk);
    bool RunWave(Walk& walk, std::size_t from);
    void ShowCounts(std::size_t possible, bool first);
    void Cancel();
    void Finish(bool halted);
};

}  // namespace qv
