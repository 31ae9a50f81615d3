#include "check/link_check_run.h"

#include "check/link_rules.h"
#include "text/basic_text.h"

namespace qv {
namespace {

// A checkpoint of a links file above this size may come late, so that large documents aren't written all the time.
constexpr std::size_t kLargeLinksFile = 250 * 1000;
constexpr std::chrono::milliseconds kLatestCheckpoint{100};
constexpr int kRowsBetweenCheckpoints = 10;

}  // namespace

void LinkCheckRun::ComStart_Click() {
    if (p_.flags.CheckRunning != 0 || p_.rows.IsAsking()) return;
    CheckForm& w = p_.window;
    if (p_.settings.ProgramMode == kBookmarksMode && CompanionRunning && CompanionRunning()) {
        w.Windows().ShowMessage(
            "Zephon Bookmarks is currently running. You must exit Zephon Bookmarks in order to edit your Bookmarks in "
            "Quorvantis.");
        return;
    }
    Begin();
    for (int document = w.txtFileName.ListIndex(); document >= 0 && document < w.txtFileName.Count(); ++document) {
        w.txtFileName.SetListIndex(document);
        CheckDocument();
        if (RunStopped_ || p_.flags.StopRequested != 0) break;
    }
    End();
}

void LinkCheckRun::Begin() {
    CheckForm& w = p_.window;
    QuestionableCount_ = GoodCount_ = 0;
    RunStopped_ = false;
    w.SetPointer(Pointer::Wait);
    const std::int32_t remembered = w.List1.ItemData(w.List1.ListIndex());
    ShowAllLinks(w, p_.flags);
    txtFileName_Click();
    if (remembered - 1 > 0) w.List1.SetListIndex(remembered - 1);
    p_.flags.StopRequested = p_.flags.SkipRequested = kClear;
    p_.flags.RetrievalMode = 0;
    w.ComStop.SetEnabled(true);
    w.ComSkip.SetEnabled(true);
    p_.rules.DisableControls();
    p_.flags.CheckRunning = kSet;
    rowsAtHand_ = true;
    if (p_.settings.ProgramMode != kBookmarksMode) p_.store.SaveRunState(w.txtFileName);
}

void LinkCheckRun::CheckDocument() {
    CheckForm& w = p_.window;
    w.ProgressBar1.SetRange(0, w.List1.SelectedCount());
    w.ProgressBar1.SetValue(0);
    for (int row = 0; row < w.List1.Count(); ++row) {
        p_.flags.SkipRequested = kClear;
        if (w.List1.Selected(row) && !CheckRow(row)) break;
    }
    SaveDocument();
    w.ProgressBar1.SetValue(0);
}

bool LinkCheckRun::CheckRow(int row) {
    CheckForm& w = p_.window;
    w.List1.SetListIndex(row);
    p_.rows.MarkRowChecking(row);
    p_.loop.YieldIfDue();
    p_.flags.TransferDone = kClear;
    p_.flags.HeaderBuffer.clear();
    const auto link = static_cast<std::size_t>(w.List1.ItemData(row));
    const LinkTable& links = p_.session.Links;
    LinkProbe probe;
    probe.url = std::string(Trim(links.LinkUrls[link]));
    const std::string path(Trim(links.LinkPaths[link]));
    w.StatusBar1.SetText("Checking " + probe.url);
    const LinkDecision decision = DecideLink({.url = probe.url,
                                              .text = Trim(links.LinkTexts[link]),
                                              .path = path,
                                              .knownGood = p_.session.Good.Contains(probe.url) && p_.flags.StopRequested == 0,
                                              .localMode = p_.settings.ProgramMode == kLocalMode,
                                              .remoteLinksNotChecked = p_.settings.RemoteLinksNotChecked != 0});
    switch (decision.road) {
        case LinkRoad::Settled: Settle(row, decision.status); return true;
        case LinkRoad::Ftp:  // an FTP session isn't ended by Stop: with the run stopped it isn't begun
            if (p_.flags.StopRequested == 0) p_.ftpProbe.Run(probe, FtpProbe::Kind::Run);
            break;
        case LinkRoad::LocalFile: p_.fileProbe.Run(probe, path, FileProbe::Path::Decoded); break;
        case LinkRoad::Http: p_.httpProbe.Run(probe); break;
    }
    return Judge(row, probe);
}

void LinkCheckRun::Settle(int row, const char* status) {
    p_.window.List1.SetSelected(row, false);
    p_.loop.YieldIfDue();
    ++GoodCount_;
    p_.rows.WriteRowStatus(row, status);
    CountProgress();
}

bool LinkCheckRun::Judge(int row, LinkProbe& probe) {
    p_.steps.ProbeWait(probe.deadline, probe.lookup);
    p_.loop.YieldIfDue();
    p_.steps.DisarmWatchdog();
    ListBox& list = p_.window.List1;
    if (p_.flags.StopRequested != 0) {
        RunStopped_ = true;
        p_.flags.EnterpriseAbort = kSet;
        p_.rows.WriteRowStatus(row, status::kStopped);
        return false;
    }
    if (p_.flags.SkipRequested != 0) {
        p_.rows.WriteRowStatus(row, status::kSkipped);
        list.SetSelected(row, true);  // the row stays highlighted until the list is filled again
    } else {
        const Judgement judged = JudgeOutcome({.lastErrorNumber = p_.flags.LastErrorNumber,
                                               .lastErrorText = p_.flags.LastErrorText,
                                               .replyText = probe.replyText,
                                               .lookupErrorText = probe.lookup.errorText,
                                               .lookupErrorNumber = probe.lookup.errorNumber,
                                               .url = probe.url,
                                               .watchdogExpired = p_.flags.WatchdogExpired != 0,
                                               .deadlinePassed = p_.steps.Passed(probe.deadline),
                                               .redirectSeen = probe.redirectSeen,
                                               .followRedirects = p_.settings.FollowRedirects != 0,
                                               .persistentRedirectsOk = p_.settings.PersistentRedirectsOk != 0});
        ++(judged.good ? GoodCount_ : QuestionableCount_);
        if (judged.good) p_.session.Good.Add(probe.url);
        list.SetSelected(row, false);
        p_.rows.WriteRowStatus(row, judged.status);
        p_.flags.LastErrorNumber = 0;
    }
    CountProgress();
    CheckpointIfDue(row);
    p_.flags.FtpProbeActive = kClear;
    return true;
}

void LinkCheckRun::CountProgress() {
    p_.window.ProgressBar1.SetValue(p_.window.ProgressBar1.Value() + 1);
    if (RowJudged) RowJudged();
}

void LinkCheckRun::CheckpointIfDue(int row) {
    if (row % kRowsBetweenCheckpoints != 1 || p_.settings.ProgramMode == kBookmarksMode) return;
    if (p_.store.SavedLinkBytes() <= kLargeLinksFile) {
        SaveDocument();
    } else if (lateCheckpoint_ == 0) {
        lateCheckpoint_ = p_.loop.StartTimer(kLatestCheckpoint, false, [this] {
            lateCheckpoint_ = 0;
            SaveDocument();
        });
    }
}

void LinkCheckRun::SaveDocument() {
    if (lateCheckpoint_ != 0) p_.loop.StopTimer(lateCheckpoint_);
    lateCheckpoint_ = 0;
    p_.rows.SaveDocument();
}

void LinkCheckRun::SaveIfRunning() {
    if (p_.flags.CheckRunning != 0 && rowsAtHand_ && p_.settings.ProgramMode != kBookmarksMode) SaveDocument();
}

void LinkCheckRun::CreateAutomaticReports() {
    if (p_.settings.AutoReportsAfterCheck == 0 || p_.flags.EnterpriseRunning != 0 || !CreateReports) return;
    std::string errorText;
    CreateReports(errorText);
    const std::string lineBreaks = p_.session.LineBreak + p_.session.LineBreak;
    p_.session.LogText +=
        (errorText.empty() ? std::string("Reports have been emailed. ") : "There was an Email error: " + errorText) + lineBreaks;
}

void LinkCheckRun::End() {
    CheckForm& w = p_.window;
    if (!RunStopped_) {
        rowsAtHand_ = false;  // all are saved, and the reports load those of other documents
        if (w.txtFileName.Count() > 0) w.txtFileName.SetListIndex(0);
        CreateAutomaticReports();
    }
    p_.flags.CheckRunning = kClear;
    w.StatusBar1.SetText("Done.");
    w.LabelInd.SetCaption(ClosingLine(GoodCount_, QuestionableCount_));
    p_.rules.EnableControls();
    w.ComStop.SetEnabled(false);
    w.ComSkip.SetEnabled(false);
    w.ComStart.SetEnabled(true);
    w.SetPointer(Pointer::Default);
}

void LinkCheckRun::ComStop_Click() {
    CheckForm& w = p_.window;
    p_.loop.Yield();
    p_.steps.DisarmWatchdog();
    p_.http.SetAction(HTTP1::Stop);
    w.ComStop.SetEnabled(false);
    w.ComSkip.SetEnabled(false);
    w.ComStart.SetEnabled(true);
    p_.flags.StopRequested = kSet;
}

void LinkCheckRun::ComSkip_Click() {
    p_.http.SetAction(HTTP1::Stop);
    p_.flags.SkipRequested = kSet;
}

}  // namespace qv
