#include "retrieve/site_open.h"

#include "retrieve/request_text.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kStoppedTitle =
    "Site download was stopped by user or by disconnection. Click the 'Open Web Site' button to resume site download.";

}  // namespace

void SiteOpen::Command1_Click() {
    SetWaiting(true);
    if (p_.settings.ProgramMode == kLocalMode) {
        OpenLocalWebSite();
        return;
    }
    if (p_.window.Command1.Caption() != kCaptionCheckSite) {
        Cancel();
        Finish(false);
        return;
    }
    if (p_.flags.SiteOpenRunning != 0) return;  // a cancelled walk is still on its way out
    Walk walk;
    if (p_.flags.EnterpriseRunning == 0 && !Begin(walk)) {
        SetWaiting(false);
        return;
    }
    p_.window.LabelInd.SetCaption("");
    StopHiding();
    if (Validate()) OpenSite(walk);
    Finish(walk.halted);
}

// What the user picks: the walk that was stopped, or an entry of the database. False when he cancelled.
bool SiteOpen::Begin(Walk& walk) {
    const Answer answer =
        AskToResume("Do you want to Resume your last site download?", !Trim(p_.window.TextFileName.Text()).empty());
    if (answer == Answer::Cancel) return false;
    if (answer == Answer::Anew) return TakeEntryFromWizard();
    TakePartialSite(walk);
    return true;
}

void SiteOpen::TakePartialSite(Walk& walk) {
    PartialSite site = ReadPartialSite(p_.files, p_.store.CacheFolder());
    p_.session.SiteRoot = site.SiteRoot;
    walk.Pending.Append(site.Pending);
    walk.Visited.Append(site.Visited);
    if (walk.Visited.Count() > 0) p_.window.TextFileName.SetText(walk.Visited.Url(walk.Visited.Count() - 1));
    p_.session.LogText.clear();
    walk.resuming = true;
}

bool SiteOpen::Validate() {
    if (StartsWithLower(p_.window.TextFileName.Text(), "http")) return true;
    constexpr const char* kInvalid = "Please type a valid Web URL first...";
    if (p_.flags.EnterpriseRunning != 0)
        Log(kInvalid);
    else
        p_.window.Windows().ShowMessage(kInvalid);
    return false;
}

void SiteOpen::OpenSite(Walk& walk) {
    if (!Prepare(walk)) return;
    OpenFirst(walk);
    Harvest(walk, true);
    ShowCounts(walk.Pending.Count(), true);
    RunWaves(walk);
    walk.halted = EndWalk(walk.Queue, walk.Pending, walk.Visited, kStoppedTitle);
}

bool SiteOpen::Prepare(Walk& walk) {
    CheckForm& w = p_.window;
    if (walk.resuming) {
        w.LabelInd.SetCaption("Resuming Site Download...");
    } else {
        const std::string address = w.TextFileName.Text();
        MenuFileNew_Click();
        w.TextFileName.SetText(address);
        w.LabelInd.SetCaption("Retrieving Web Site...");
    }
    SetWaiting(true);
    const std::string start = WithRootSlash(std::string(Trim(w.TextFileName.Text())));
    if (start != Trim(w.TextFileName.Text())) w.TextFileName.SetText(start);
    if (IsIgnored(start)) return false;
    Log("Opening Web Site... " + p_.session.SiteUrl);
    w.Command1.SetCaption(kCaptionCancelSite);
    p_.flags.StopRequested = p_.flags.SiteOpenHalted = kClear;
    p_.rules.DisableControls();
    w.ComOpen.SetEnabled(true);
    w.Command1.SetEnabled(true);
    p_.flags.SiteOpenRunning = kSet;
    return true;
}

// The first page, or on a resume the last one that was visited.
void SiteOpen::OpenFirst(Walk& walk) {
    if (!walk.resuming) walk.Visited.Add(p_.window.TextFileName.Text());
    ComOpen_Click();
    if (!walk.resuming)
        p_.session.SiteRoot = RootOfSite(p_.http.URLScheme(), p_.http.URLServer(), p_.http.URLPort(), p_.http.URLPath());
}

void SiteOpen::Harvest(Walk& walk, bool first) {
    const LinkTable& links = p_.session.Links;
    const std::string& root = p_.session.SiteRoot;
    for (std::int32_t link = 1; link <= links.LinkCount; ++link) {
        const auto i = static_cast<std::size_t>(link);
        const std::string url(Trim(links.LinkUrls[i]));
        if (!StartsWith(url, root) && !(first && CheckCommaDelimited(root, url))) continue;
        if (IsIgnored(url)) continue;
        if (walk.Pending.Contains(url) || (!first && walk.Queue.Contains(url))) continue;
        walk.Pending.Add(url, links.LinkPaths[i]);
    }
}

void SiteOpen::ShowCounts(std::size_t possible, bool first) {
    const long documents = p_.window.txtFileName.Count();
    p_.window.LabelInd.SetCaption(PrintForm(documents) + (first && documents == 1 ? " Document" : " Documents") +
                                  " retrieved of a possible" + PrintForm(static_cast<long>(possible)));
}

// What earlier waves have left in the queue was opened or refused: a wave begins behind it.
void SiteOpen::RunWaves(Walk& walk) {
    bool found = true;
    while (found && p_.flags.SiteOpenHalted == 0) {
        const std::size_t from = walk.Queue.Count();
        walk.Queue.Append(walk.Pending);
        found = RunWave(walk, from);
    }
}

bool SiteOpen::RunWave(Walk& walk, std::size_t from) {
    bool found = false;
    const std::size_t end = walk.Queue.Count();
    for (std::size_t entry = from; entry < end; ++entry) {
        const std::string url = walk.Queue.Url(entry);
        if (walk.Visited.Contains(url) || IsIgnored(url)) continue;
        walk.Visited.Add(url);
        p_.window.TextFileName.SetText(url);
        ComOpen_Click();
        if (p_.flags.SiteOpenHalted != 0) return found;
        Harvest(walk, false);
        found = true;
        ShowCounts(walk.Queue.Count() + walk.Pending.Count(), false);
    }
    return found;
}

void SiteOpen::Cancel() {
    p_.steps.DisarmWatchdog();
    p_.flags.StopRequested = p_.flags.SiteOpenHalted = kSet;
    p_.steps.CloseBodyFile();
    if (p_.flags.EnterpriseRunning != 0) p_.flags.EnterpriseAbort = kSet;
    p_.window.Command1.SetCaption(kCaptionCheckSite);
    p_.http.SetAction(HTTP1::Stop);
}

// The end of the command, however it went.
void SiteOpen::Finish(bool halted) {
    if (p_.flags.SiteOpenHalted != 0 || halted) {
        p_.rules.ShowPosition();
    } else if (p_.settings.AutoCheckLinks != 0) {
        CheckAutomatically("Site Open Complete. ", "Starting Automatic Link Check... ");
    } else {
        UnloadReportForm();
        Log("Site Download Complete.");
        if (p_.flags.EnterpriseRunning == 0) {
            ShowReportForm();
            p_.rules.ShowPosition();
        }
    }
    SetWaiting(false);
}

}  // namespace qv
