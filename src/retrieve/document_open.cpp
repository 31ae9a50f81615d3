#include "retrieve/document_open.h"

#include "retrieve/request_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kMostPasses = 12;
constexpr int kBrightGreen = 10;
constexpr int kGreen = 2;

}  // namespace

void DocumentOpen::Log(const std::string& text) { p_.session.LogText += text + p_.session.LineBreak + p_.session.LineBreak; }

void DocumentOpen::SetWaiting(bool waiting) { p_.window.SetPointer(waiting ? Pointer::Wait : Pointer::Default); }

void DocumentOpen::ResetBar() {
    p_.window.ProgressBar1.SetValue(0);
    p_.window.ProgressBar1.SetVisible(true);
    p_.window.Picture1.SetVisible(false);
}

bool DocumentOpen::HasWizard() const {
    return p_.flags.Alone() && p_.flags.OpenWithoutWizard == 0 && p_.flags.ReopenFromList == 0;
}

void DocumentOpen::ComOpen_Click() {
    SetWaiting(true);
    if (p_.flags.SiteOpenRunning == 0 && p_.settings.ProgramMode == kLocalMode) {
        OpenInLocalMode();
        SetWaiting(false);
        return;
    }
    if (p_.window.ComOpen.Caption() != kCaptionCheckDocument) {
        Cancel();
        return;
    }
    if (retrieving_) return;  // a cancelled retrieval is still on its way out
    if (HasWizard() && !(AskAboutPartialSite() && TakeEntryFromWizard())) {
        SetWaiting(false);
        return;
    }
    SetWaiting(false);
    if (!Validate()) return;
    retrieving_ = true;
    Retrieval retrieval;
    SetUp(retrieval);
    Retrieve(retrieval);
    Judge(retrieval);
    retrieving_ = false;
}

void DocumentOpen::OpenInLocalMode() {
    if (p_.flags.EnterpriseRunning == 0) {
        p_.settings.EntryIsSite = kClear;
        p_.session.WizardCancelled = kClear;
        ShowWizard();
        if (p_.session.WizardCancelled != 0) return;
    }
    const Session& s = p_.session;
    const std::string path = s.SiteFolder + s.SiteFileName;
    p_.window.TextFileName.SetText(path);
    const std::string url = s.SiteUrl + s.SiteFileName;
    p_.window.TextFileName.SetText(url);
    if (OpenLocalDocument) OpenLocalDocument(path, url);
}

bool DocumentOpen::AskAboutPartialSite() {
    if (!p_.files.FileExists(p_.store.CacheFolder() + "resumes.zdt") || Trim(p_.window.TextFileName.Text()).empty() ||
        p_.window.txtFileName.Count() == 0)
        return true;
    const std::string answer = p_.window.Windows().ShowMessage(
        {.text = "You have a Web site partially downloaded. Do you want to delete it in order to download this document?",
         .buttons = {"Yes", "No"},
         .defaultButton = "Yes",
         .question = true});
    if (answer != "Yes") return false;
    MenuFileNew_Click();
    return true;
}

bool DocumentOpen::TakeEntryFromWizard() {
    p_.settings.EntryIsSite = kClear;
    p_.session.WizardCancelled = kClear;
    ShowWizard();
    if (p_.session.WizardCancelled != 0) return false;
    p_.window.TextFileName.SetText(p_.session.SiteUrl + p_.session.SiteFileName);
    return true;
}

bool DocumentOpen::Validate() {
    const std::string& address = p_.window.TextFileName.Text();
    if (StartsWithLower(address, "http")) return true;
    if (p_.flags.SiteOpenRunning != 0)
        Log("Invalid URL - " + address);
    else if (p_.flags.EnterpriseRunning == 0)
        p_.window.Windows().ShowMessage("Please enter a valid Web Url first...");
    return false;
}

void DocumentOpen::SetUp(Retrieval& r) {
    CheckForm& w = p_.window;
    w.Picture2.SetFill(kBrightGreen);
    p_.flags.HideGoodLinks = kClear;
    w.ComHide.SetCaption(kCaptionShowBadOnly);
    w.MenuLinkHide.SetChecked(false);
    p_.flags.StopRequested = kClear;
    p_.flags.SkipRequested = kClear;
    SetWaiting(true);
    if (p_.flags.SiteOpenRunning == 0) {
        p_.rules.DisableControls();
        w.StatusBar1.SetText("");
        w.LabelInd.SetCaption("Retrieving Document...");
    }
    w.ComOpen.SetCaption(kCaptionCancelDocument);
    w.ComOpen.SetEnabled(true);
    p_.steps.TransferLength = 0;
    r.openedUrl = WithRootSlash(std::string(Trim(w.TextFileName.Text())));
    if (r.openedUrl != Trim(w.TextFileName.Text())) w.TextFileName.SetText(r.openedUrl);
    p_.flags.RetrievalMode = kSet;
    if (p_.flags.EnterpriseRunning != 0 && p_.flags.SiteOpenRunning == 0) Log("Opening Document - " + r.openedUrl);
}

void DocumentOpen::Retrieve(Retrieval& r) {
    do {
        PreparePass(r);
        Exchange(r);
    } while (AnotherPass(r) && r.passCount < kMostPasses && p_.flags.StopRequested == 0 && p_.flags.SkipRequested == 0);
}

void DocumentOpen::PreparePass(Retrieval& r) {
    if (r.retryCount == 1) p_.http.SetAction(HTTP1::Reset);
    p_.http.SetURL(r.redirectPending ? r.redirectUrl : r.openedUrl);
    if (SplitCommaHost(p_.http.URLServer())) {
        p_.http.SetURLServer(CheckDomainOrIP(p_.session.SiteRoot, p_.http.URLServer()));
        const std::string repaired =
            p_.http.URLScheme() + "://" + p_.http.URLServer() + PortSuffix(p_.http.URLPort()) + p_.http.URLPath();
        if (!r.redirectPending) r.openedUrl = repaired;
        p_.http.SetURL(repaired);
    }
    p_.steps.SplitQueryOffServer();
    p_.steps.BuildRequestHeaders();
    r.redirectPending = false;
    p_.flags.TransferDone = kClear;
    p_.flags.HeaderBuffer.clear();
    p_.window.StatusBar1.SetText("Looking up host: " + p_.http.URLServer());
    p_.flags.Clear();
    r.lookup = {};
    p_.steps.ApplyProxySettings();
    p_.steps.OpenBodyFile();
}

void DocumentOpen::Exchange(Retrieval& r) {
    const std::string server = p_.http.URLServer();
    p_.steps.ArmWatchdog(false);
    p_.steps.FindAddress(r.retryCount != 0, r.lookup);
    p_.steps.ArmWatchdog(false);
    r.deadline = p_.steps.Now() + p_.settings.HttpTimeout;
    if (r.lookup.errorText.empty()) {
        p_.window.StatusBar1.SetText("Contacting host: " + server);
        p_.steps.FixScheme();
        p_.steps.NormalizePath();
        p_.steps.TargetRequestUrl(r.retryCount != 0 ? server : r.lookup.address);
        p_.steps.Request(HTTP1::Get);
    } else {
        p_.flags.LastErrorNumber = r.lookup.errorNumber;
    }
    WaitForReply(r);
    p_.steps.DisarmWatchdog();
    p_.steps.CloseBodyFile();
    p_.http.SetURLServer(server);
    p_.session.CurrentDocumentUrl = r.openedUrl;
    ++r.passCount;
}

void DocumentOpen::WaitForReply(const Retrieval& r) {
    const RunFlags& f = p_.flags;
    while (f.TransferDone == 0 && f.LastErrorNumber == 0 && r.lookup.errorText.empty() && f.StopRequested == 0 &&
           (f.BodySeen != 0 || !p_.steps.Passed(r.deadline))) {
        // Once the program has seen a body only the watchdog ends a silent wait.
        p_.steps.SleepUntil(f.BodySeen != 0 ? p_.steps.Now() + kWaitForever : r.deadline);
    }
}

bool DocumentOpen::AnotherPass(Retrieval& r) {
    if (!r.lookup.errorText.empty() || p_.flags.StopRequested != 0) return false;
    const std::string& failure = p_.flags.LastErrorText;
    if (Contains(failure, "302") || Contains(failure, "301")) {
        p_.http.SetURL(r.openedUrl);
        const auto target = ParseRedirect(p_.flags.HeaderBuffer,
                                          {p_.http.URLScheme(), p_.http.URLServer(), p_.http.URLPort(), p_.http.URLPath()});
        if (!target) return false;
        r.redirectUrl = *target;
        r.redirectPending = true;
        p_.flags.HeaderBuffer.clear();
        return true;
    }
    if (failure.empty()) return false;
    return ++r.retryCount <= 1;
}

void DocumentOpen::Judge(Retrieval& r) {
    if (p_.flags.StopRequested != 0)
        EndStopped(r);
    else if (p_.flags.LastErrorNumber != 0)
        EndFailed(r);
    else if (p_.steps.Passed(r.deadline))
        EndTimedOut(r);
    else if (p_.flags.OpenInSourceViewer != 0)
        p_.programs.Start(p_.settings.SourceViewerPath, {NativePath(p_.steps.BodyFilePath())});
    else {
        EndImported(r);
        return;
    }
    Close();
}

void DocumentOpen::EndStopped(const Retrieval& r) {
    p_.http.SetAction(HTTP1::Stop);
    p_.flags.StopRequested = kClear;
    p_.flags.LastErrorNumber = 0;
    ResetBar();
    p_.window.StatusBar1.SetText("Cancelled");
    Log("Document Open was cancelled - " + r.openedUrl);
}

void DocumentOpen::EndFailed(const Retrieval& r) {
    RunFlags& f = p_.flags;
    const std::string& lookupText = r.lookup.errorText;
    if (f.Alone()) {
        const std::string what = f.WatchdogExpired != 0
                                     ? "Connection Timed Out - " + (lookupText.empty() ? r.openedUrl : lookupText)
                                     : (lookupText.empty() ? f.LastErrorText : lookupText) + " - " + r.openedUrl;
        p_.window.Windows().ShowMessage(what);
        p_.window.StatusBar1.SetText("");
    } else {
        Log(f.LastErrorText + " - " + r.openedUrl);
    }
    if (!lookupText.empty()) {
        Log(std::to_string(r.lookup.errorNumber) + " - " + lookupText + " - " + r.openedUrl);
        f.SiteOpenHalted = kSet;
        f.StopRequested = kSet;
        if (f.EnterpriseRunning != 0) f.EnterpriseAbort = kSet;
    }
    f.LastErrorNumber = 0;
    ResetBar();
    f.WatchdogExpired = kClear;
}

void DocumentOpen::EndTimedOut(const Retrieval& r) {
    if (p_.flags.Alone()) p_.window.Windows().ShowMessage("Connection Timed Out - " + r.openedUrl);
    Log("Document retrieval timed out - " + r.openedUrl);
    ResetBar();
    p_.window.StatusBar1.SetText("");
}

bool DocumentOpen::Import(const Retrieval& r) {
    CheckForm& w = p_.window;
    w.StatusBar1.SetText("Importing Hyperlinks...");
    ResetBar();
    w.List1.SetVisible(false);
    w.List1.Clear();
    p_.session.ImportFilePath = p_.steps.BodyFilePath();
    Flag failed = kClear;
    std::string reason;
    p_.importer.Import(1, failed, reason, p_.session.CurrentDocumentUrl);
    if (failed != 0) Refused(reason, r.openedUrl);
    return failed == 0;
}

void DocumentOpen::Refused(const std::string& reason, const std::string& url) {
    CheckForm& w = p_.window;
    Log(reason + " - " + url);
    ResetBar();
    w.StatusBar1.SetText("Done.");
    w.List1.SetVisible(true);
    w.Picture2.SetFill(kGreen);
    if (p_.flags.SiteOpenRunning == 0) {
        p_.rules.ShowPosition();
        p_.rules.EnableControls();
        SetWaiting(false);
    }
    w.ComOpen.SetCaption(kCaptionCheckDocument);
}

void DocumentOpen::EndImported(const Retrieval& r) {
    if (!Import(r)) return;
    p_.session.CurrentDocumentUrl = r.openedUrl;
    p_.window.StatusBar1.SetText("Document: " + r.openedUrl);
    ListDocument(WebDocumentHeader(p_.session));
    if (p_.flags.EnterpriseRunning != 0 && p_.flags.SiteOpenRunning == 0) Log("Document Open Complete.  ");
    Close();
}

void DocumentOpen::ListDocument(const HeaderLines& header) {
    CheckForm& w = p_.window;
    const std::string& url = p_.session.CurrentDocumentUrl;
    p_.flags.IgnoreControlEvents = kSet;
    int entry = 0;
    while (entry < w.txtFileName.Count() && w.txtFileName.Text(entry) != url) ++entry;
    if (entry == w.txtFileName.Count()) w.txtFileName.AddItem(url, p_.store.NextCacheNumber());
    const std::int32_t number = w.txtFileName.ItemData(entry);
    w.txtFileName.SetListIndex(entry);
    w.TextFileName.SetText(url);
    p_.store.WriteHeader(number, header);
    p_.store.SaveLinkList(number);
    p_.rows.AddAllRows();
    p_.rows.SetListExtent();
    if (w.List1.Count() > 0) w.List1.SetListIndex(0);
    p_.flags.IgnoreControlEvents = kClear;
    w.List1.SetVisible(true);
    w.StatusBar1.SetText("Done.");
    if (p_.flags.SiteOpenRunning == 0) p_.rules.ShowPosition();
}

void DocumentOpen::Close() {
    CheckForm& w = p_.window;
    p_.flags.LastErrorNumber = 0;
    p_.flags.WatchdogExpired = kClear;
    w.Picture2.SetFill(kGreen);
    w.ComOpen.SetCaption(kCaptionCheckDocument);
    if (p_.flags.SiteOpenRunning != 0) return;
    p_.rules.EnableControls();
    w.Command1.SetEnabled(true);
    if (w.List1.Count() > 0) w.ComStart.SetEnabled(true);
    p_.rules.ShowPosition();
    p_.flags.RetrievalMode = 0;
    SetWaiting(false);
}

void DocumentOpen::Cancel() {
    p_.steps.DisarmWatchdog();
    if (p_.flags.EnterpriseRunning != 0) p_.flags.EnterpriseAbort = kSet;
    p_.window.ComOpen.SetCaption(kCaptionCheckDocument);
    p_.steps.CloseBodyFile();
    p_.http.SetAction(HTTP1::Stop);
    p_.flags.StopRequested = kSet;
    SetWaiting(false);
}

}  // namespace qv
