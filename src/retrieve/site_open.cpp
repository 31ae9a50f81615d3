#include "retrieve/site_open.h"

#include "extract/url_text.h"
#include "retrieve/request_text.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kCaptionCancelSite = "Cancel &Web Site";
constexpr const char* kStoppedTitle =
    "Site download was stopped by user or by disconnection. Click the 'Open Web Site' button to resume site download.";

}  // namespace

void SiteOpen::Log(const std::string& text) { p_.session.LogText += text + p_.session.LineBreak + p_.session.LineBreak; }

void SiteOpen::SetWaiting(bool waiting) { p_.window.SetPointer(waiting ? Pointer::Wait : Pointer::Default); }

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
    CheckForm& w = p_.window;
    w.LabelInd.SetCaption("");
    p_.flags.HideGoodLinks = kClear;
    w.ComHide.SetCaption(kCaptionShowBadOnly);
    w.MenuLinkHide.SetChecked(false);
    if (Validate()) OpenSite(walk);
    Finish(walk.halted);
}

// What the user picks: the walk that was stopped, or an entry of the database. False when he cancelled.
bool SiteOpen::Begin(Walk& walk) {
    if (!AskToResume(walk)) return false;
    if (walk.resuming) return true;
    p_.settings.EntryIsSite = kSet;
    p_.session.LogText.clear();
    p_.session.WizardCancelled = kClear;
    ShowWizard();
    if (p_.session.WizardCancelled != 0) return false;
    p_.window.TextFileName.SetText(p_.session.SiteUrl + p_.session.SiteFileName);
    return true;
}

bool SiteOpen::AskToResume(Walk& walk) {
    const std::string cache = p_.store.CacheFolder();
    if (!HasPartialSite(p_.files, cache) || Trim(p_.window.TextFileName.Text()).empty() || p_.window.txtFileName.Count() == 0)
        return true;
    const std::string answer = p_.window.Windows().ShowMessage({.text = "Do you want to Resume your last site download?",
                                                                .buttons = {"Yes", "No", "Cancel"},
                                                                .defaultButton = "Yes",
                                                                .question = true});
    if (answer == "Cancel") return false;
    if (answer != "Yes") return true;
    PartialSite site = ReadPartialSite(p_.files, cache);
    p_.session.SiteRoot = site.SiteRoot;
    walk.Pending.Append(site.Pending);
    walk.Visited.Append(site.Visited);
    if (walk.Visited.Count() > 0) p_.window.TextFileName.SetText(walk.Visited.Url(walk.Visited.Count() - 1));
    p_.session.LogText.clear();
    walk.resuming = true;
    return true;
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
    EndWalk(walk);
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
    if (IsIgnoredDocument(start, p_.settings.DocumentTypes, p_.settings.IgnoreOpenPathList)) return false;
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
        if (IsIgnoredDocument(url, p_.settings.DocumentTypes, p_.settings.IgnoreOpenPathList)) continue;
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
        if (walk.Visited.Contains(url) || IsIgnoredDocument(url, p_.settings.DocumentTypes, p_.settings.IgnoreOpenPathList))
            continue;
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

void SiteOpen::EndWalk(Walk& walk) {
    CheckForm& w = p_.window;
    const bool documents = w.txtFileName.Count() > 0;
    const std::string cache = p_.store.CacheFolder();
    if (documents && w.txtFileName.ListIndex() != 0)
        w.txtFileName.SetListIndex(0);
    else if (documents)
        txtFileName_Click();
    if (p_.flags.SiteOpenHalted != 0 && documents) {
        walk.Queue.Append(walk.Pending);
        WritePartialSite(p_.files, cache, p_.session.SiteRoot, walk.Queue, walk.Visited);
        UnloadReportForm();
        walk.halted = true;
        p_.session.LogTitle = kStoppedTitle;
        if (p_.flags.EnterpriseRunning == 0) ShowReportForm();
    } else if (HasPartialSite(p_.files, cache)) {
        DeletePartialSite(p_.files, cache);
    }
    p_.flags.SiteOpenRunning = p_.flags.SiteOpenHalted = kClear;
    p_.flags.RetrievalMode = 0;
    p_.rules.EnableControls();
    w.Command1.SetCaption(kCaptionCheckSite);
    w.ComStart.SetEnabled(true);
    SetWaiting(false);
}

void SiteOpen::Cancel() {
    p_.steps.DisarmWatchdog();
    p_.flags.StopRequested = p_.flags.SiteOpenHalted = kSet;
    p_.steps.CloseBodyFile();
    if (p_.flags.EnterpriseRunning != 0) p_.flags.EnterpriseAbort = kSet;
    p_.window.Command1.SetCaption(kCaptionCheckSite);
    p_.http.SetAction(HTTP1::Stop);
}

void SiteOpen::CheckAutomatically() {
    CheckForm& w = p_.window;
    Log("Site Open Complete. ");
    Log("Starting Automatic Link Check... " + w.LabelInd.Caption());
    ComStart_Click();
    const bool stopped = p_.flags.StopRequested != 0;
    Log((stopped ? "Automatic Link Check was cancelled.  " : "Automatic Link Check complete.  ") + w.LabelInd.Caption());
    p_.session.LogTitle = stopped ? "Site Open Complete, Automatic Link Check Interrupted."
                                  : "Site Open && Automatic Link Check Complete.";
    UnloadReportForm();
    if (p_.flags.EnterpriseRunning == 0) ShowReportForm();
}

// The end of the command, however it went.
void SiteOpen::Finish(bool halted) {
    if (p_.flags.SiteOpenHalted != 0 || halted) {
        p_.rules.ShowPosition();
    } else if (p_.settings.AutoCheckLinks != 0) {
        CheckAutomatically();
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
