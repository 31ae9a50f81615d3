#include "localmode/local_site_open.h"

#include "extract/url_text.h"
#include "localmode/folder_walk.h"
#include "retrieve/request_text.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kDiskError = "Sorry, There Was An Error Reading The Disk Drive.";
constexpr const char* kStoppedTitle =
    "Site open was stopped by user or by an error. Click the 'Open Local Web Site' button to resume.";

}  // namespace

bool LocalSiteOpen::LinkedOnly() const { return p_.settings.SiteOpenMode != 1 && p_.settings.SiteOpenMode != 2; }

void LocalSiteOpen::OpenLocalWebSite() {
    if (p_.window.Command1.Caption() != kCaptionCheckSite) {
        Press();
        return;
    }
    if (p_.flags.SiteOpenRunning != 0) return;  // a stopped walk is still on its way out
    Walk walk;
    if (p_.flags.EnterpriseRunning == 0 && !Begin(walk)) {
        SetWaiting(false);
        return;
    }
    CheckForm& w = p_.window;
    w.LabelInd.SetCaption("");
    w.List1.SetEnabled(false);
    StopHiding();
    if (StartsWithLower(w.TextFileName.Text(), "http")) OpenSite(walk);
    Finish(EndWalk(walk.Work, walk.Pending, walk.Opened, kStoppedTitle));
}

bool LocalSiteOpen::Begin(Walk& walk) {
    const Answer answer =
        AskToResume("Do you want to Resume loading your last local site?", !p_.window.TextFileName.Text().empty());
    if (answer == Answer::Cancel) return false;
    if (answer == Answer::Anew) return TakeEntryFromWizard();
    TakePartialSite(walk);
    return true;
}

// A walk can be gone on with once: its files are gone then. The last document is opened anew; where none of the pairs tells its
// path, the place that its address has in the folder does.
void LocalSiteOpen::TakePartialSite(Walk& walk) {
    PartialSite site = ReadPartialSite(p_.files, p_.store.CacheFolder());
    p_.session.SiteRoot = site.SiteRoot;
    walk.Pending.Append(site.Pending);
    walk.Opened.Append(site.Visited);
    walk.resuming = true;
    p_.session.LogText.clear();
    p_.files.RemoveAll(p_.store.CacheFolder(), "resume*.*");
    if (walk.Opened.Count() == 0) return;
    const std::string last = walk.Opened.Url(walk.Opened.Count() - 1);
    p_.window.TextFileName.SetText(last);
    for (std::size_t i = 0; i < walk.Pending.Count() && walk.firstPath.empty(); ++i)
        if (walk.Pending.Url(i) == last) walk.firstPath = walk.Pending.Path(i);
    if (!walk.firstPath.empty() || !StartsWith(last, p_.session.SiteUrl)) return;
    walk.firstPath = p_.session.SiteFolder + last.substr(p_.session.SiteUrl.size());
    ConvertSlashes(walk.firstPath, 0);
}

bool LocalSiteOpen::Prepare(Walk& walk, std::string& url, std::string& path) {
    CheckForm& w = p_.window;
    const Session& s = p_.session;
    url = w.TextFileName.Text();
    path = walk.firstPath;
    if (!walk.resuming) {
        if (p_.flags.EnterpriseRunning == 0) MenuFileNew_Click();
        url = s.SiteUrl + s.SiteFileName;
        path = s.SiteFolder + s.SiteFileName;
        w.TextFileName.SetText(url);
    }
    url = WithRootSlash(url);
    if (IsIgnored(url)) return false;
    Log("Opening Web Site... " + s.SiteUrl);
    w.Command1.SetCaption(kCaptionCancelSite);
    p_.flags.StopRequested = p_.flags.SiteOpenHalted = kClear;
    p_.rules.DisableControls();
    w.Command1.SetEnabled(true);
    SetWaiting(true);
    w.StatusBar1.SetText("");
    p_.flags.SiteOpenRunning = kSet;
    return true;
}

void LocalSiteOpen::OpenSite(Walk& walk) {
    std::string url;
    std::string path;
    if (!Prepare(walk, url, path)) return;
    if (!walk.resuming) walk.Opened.Add(url);
    OpenLocalDocument(path, url);
    if (!walk.resuming)
        p_.session.SiteRoot = RootOfSite(p_.http.URLScheme(), p_.http.URLServer(), p_.http.URLPort(), p_.http.URLPath());
    TakeLinks(walk, true);
    p_.window.LabelInd.SetCaption(LinkedOnly() ? PrintForm(p_.window.txtFileName.Count()) + " Document(s) opened of a possible" +
                                                     PrintForm(static_cast<long>(walk.Pending.Count()))
                                               : "Scanning folders, please wait...");
    RunPasses(walk);
}

void LocalSiteOpen::TakeLinks(Walk& walk, bool first) {
    const LinkTable& links = p_.session.Links;
    for (std::int32_t link = 1; link <= links.LinkCount; ++link) {
        const auto i = static_cast<std::size_t>(link);
        const std::string url(Trim(links.LinkUrls[i]));
        if (!StartsWith(url, p_.session.SiteRoot) || IsIgnored(url)) continue;
        if (walk.Pending.Contains(url) || (!first && walk.Work.Contains(url))) continue;
        walk.Pending.Add(url, links.LinkPaths[i]);
    }
}

// Along links each pass begins behind the entries of the earlier ones, which were opened or refused.
void LocalSiteOpen::RunPasses(Walk& walk) {
    bool another = p_.flags.SiteOpenHalted == 0;
    while (another) {
        another = false;
        const std::size_t from = walk.Work.Count();
        if (LinkedOnly())
            walk.Work.Append(walk.Pending);
        else
            ScanFolders(walk);
        walk.Pending.Clear();
        const std::size_t end = walk.Work.Count();
        for (std::size_t entry = from; entry < end && p_.flags.SiteOpenHalted == 0; ++entry)
            if (OpenEntry(walk, entry) && LinkedOnly()) another = true;
    }
}

void LocalSiteOpen::ScanFolders(Walk& walk) {
    FolderWalk folders(p_.files, {p_.session.SiteUrl, p_.session.SiteFolder});
    folders.IsIgnored = [this](const std::string& url) { return IsIgnored(url); };
    folders.Halted = [this] {
        p_.loop.YieldIfDue();
        return p_.flags.SiteOpenHalted != 0;
    };
    folders.CouldNotRead = [this] {
        if (p_.flags.EnterpriseRunning != 0)
            Log(kDiskError);
        else
            p_.window.Windows().ShowMessage(kDiskError);
    };
    const std::string& folder = p_.session.SiteFolder;
    folders.GetFolderFiles(folder.substr(0, folder.empty() ? 0 : folder.size() - 1), p_.settings.SiteOpenMode == 2, walk.Work);
}

// Whether the walk may go on from the document.
bool LocalSiteOpen::OpenEntry(Walk& walk, std::size_t entry) {
    const std::string url = walk.Work.Url(entry);
    if ((LinkedOnly() && walk.Opened.Contains(url)) || IsIgnored(url)) return false;
    walk.Opened.Add(url);
    p_.window.TextFileName.SetText(url);
    OpenLocalDocument(walk.Work.Path(entry), url);
    if (p_.flags.SiteOpenHalted != 0) return false;
    TakeLinks(walk, false);
    const std::string documents = PrintForm(p_.window.txtFileName.Count());
    const auto work = static_cast<long>(walk.Work.Count());
    p_.window.LabelInd.SetCaption(
        LinkedOnly()
            ? documents + " Documents opened of a possible" + PrintForm(work + static_cast<long>(walk.Pending.Count()))
            : documents + " Documents opened of " + PrintForm(work));
    p_.loop.Yield();
    return true;
}

// A press during a walk: the walk sees the flags at its next step.
void LocalSiteOpen::Press() {
    SetWaiting(true);
    p_.steps.CloseBodyFile();
    p_.flags.StopRequested = p_.flags.SiteOpenHalted = kSet;
    if (p_.flags.EnterpriseRunning != 0) p_.flags.EnterpriseAbort = kSet;
    p_.window.Command1.SetCaption(kCaptionCheckSite);
    SetWaiting(false);
    Finish(false);
}

// The tail of the command, however it went.
void LocalSiteOpen::Finish(bool stoppedForResume) {
    p_.window.List1.SetEnabled(true);
    if (p_.flags.SiteOpenHalted != 0 || stoppedForResume) {
        p_.rules.ShowPosition();
    } else if (p_.settings.AutoCheckLinks != 0) {
        CheckAutomatically("Site Open Complete.", "Starting automatic Link Check... ");
    } else {
        UnloadReportForm();
        p_.session.LogText += "Site Open Complete.";
        p_.session.LogTitle = "Site Open Complete. Click 'Check Links' to begin checking links.";
        if (p_.flags.EnterpriseRunning == 0) ShowReportForm();
        p_.rules.ShowPosition();
    }
    SetWaiting(false);
}

}  // namespace qv
