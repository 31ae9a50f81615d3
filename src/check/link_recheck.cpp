#include "check/link_recheck.h"

#include "check/link_rules.h"
#include "text/basic_text.h"

namespace qv {

void LinkRecheck::MenuLinkRecheck_Click() {
    const int row = p_.window.List1.ListIndex();
    if (row < 0 || !p_.session.Links.Has(p_.window.List1.ItemData(row))) return;
    Begin();
    p_.rows.MarkRowChecking(row);
    Check(row);
    End();
}

void LinkRecheck::Begin() {
    CheckForm& w = p_.window;
    w.ComStart.SetEnabled(false);
    w.ComStop.SetEnabled(true);
    w.ComSkip.SetEnabled(true);
    p_.rules.DisableControls();
    p_.flags.StopRequested = kClear;
    p_.flags.TransferDone = kClear;
    p_.flags.HeaderBuffer.clear();
}

void LinkRecheck::Check(int row) {
    CheckForm& w = p_.window;
    const auto link = static_cast<std::size_t>(w.List1.ItemData(row));
    const LinkTable& links = p_.session.Links;
    LinkProbe probe;
    probe.skipLeft = p_.flags.SkipRequested != 0;
    probe.url = std::string(Trim(links.LinkUrls[link]));
    const std::string path(Trim(links.LinkPaths[link]));
    w.StatusBar1.SetText("Checking " + probe.url);
    p_.http.SetURL(probe.url);
    p_.steps.BuildRequestHeaders();
    const LinkDecision decision = DecideLink({.url = probe.url,
                                              .text = Trim(links.LinkTexts[link]),
                                              .path = path,
                                              .localMode = p_.settings.ProgramMode == kLocalMode,
                                              .remoteLinksNotChecked = p_.settings.RemoteLinksNotChecked != 0});
    switch (decision.road) {
        case LinkRoad::Settled:
            w.List1.SetSelected(0, false);  // the first row, whichever was asked for
            p_.rows.WriteRowStatus(row, decision.status);
            return;
        case LinkRoad::Ftp: p_.ftpProbe.Run(probe, FtpProbe::Kind::Recheck); break;
        case LinkRoad::LocalFile: p_.fileProbe.Run(probe, path, FileProbe::Path::AsItStands); break;
        case LinkRoad::Http: p_.httpProbe.Run(probe); break;
    }
    Judge(row, probe);
}

// A skipped link is judged by what its probe left. No redirect shows in a good status, and a persistent one isn't good.
void LinkRecheck::Judge(int row, const LinkProbe& probe) {
    p_.steps.ProbeWait(probe.deadline, probe.lookup, false);
    p_.loop.YieldIfDue();
    p_.steps.DisarmWatchdog();
    if (p_.flags.StopRequested != 0) {
        p_.rows.WriteRowStatus(row, status::kStopped);
        return;
    }
    const Judgement judged = JudgeOutcome({.lastErrorNumber = p_.flags.LastErrorNumber,
                                           .lastErrorText = p_.flags.LastErrorText,
                                           .replyText = probe.replyText,
                                           .lookupErrorText = probe.lookup.errorText,
                                           .lookupErrorNumber = probe.lookup.errorNumber,
                                           .url = probe.url,
                                           .watchdogExpired = p_.flags.WatchdogExpired != 0,
                                           .deadlinePassed = p_.steps.Passed(probe.deadline),
                                           .followRedirects = p_.settings.FollowRedirects != 0,
                                           .failed200IsBlank = true});
    p_.window.List1.SetSelected(row, false);
    p_.rows.WriteRowStatus(row, judged.status);
    p_.flags.LastErrorNumber = 0;
}

void LinkRecheck::End() {
    CheckForm& w = p_.window;
    w.ProgressBar1.SetValue(0);
    p_.rows.SaveDocument();
    w.StatusBar1.SetText("Done.");
    p_.rules.ShowPosition();
    p_.rules.EnableControls();
    w.ComStop.SetEnabled(false);
    w.ComSkip.SetEnabled(false);
    w.ComStart.SetEnabled(true);
}

}  // namespace qv
