#include "retrieve/site_walk.h"

#include "extract/url_text.h"

namespace qv {

void SiteWalk::Log(const std::string& text) { p_.session.LogText += text + p_.session.LineBreak + p_.session.LineBreak; }

void SiteWalk::SetWaiting(bool waiting) { p_.window.SetPointer(waiting ? Pointer::Wait : Pointer::Default); }

void SiteWalk::StopHiding() {
    p_.flags.HideGoodLinks = kClear;
    p_.window.ComHide.SetCaption(kCaptionShowBadOnly);
    p_.window.MenuLinkHide.SetChecked(false);
}

bool SiteWalk::IsIgnored(const std::string& url) const {
    return IsIgnoredDocument(url, p_.settings.DocumentTypes, p_.settings.IgnoreOpenPathList);
}

SiteWalk::Answer SiteWalk::AskToResume(const std::string& question, bool hasAddress) {
    if (!hasAddress || p_.window.txtFileName.Count() == 0 || !HasPartialSite(p_.files, p_.store.CacheFolder()))
        return Answer::Anew;
    const std::string answer = p_.window.Windows().ShowMessage(
        {.text = question, .buttons = {"Yes", "No", "Cancel"}, .defaultButton = "Yes", .question = true});
    return answer == "Yes" ? Answer::Resume : answer == "No" ? Answer::Anew : Answer::Cancel;
}

bool SiteWalk::TakeEntryFromWizard() {
    p_.settings.EntryIsSite = kSet;
    p_.session.LogText.clear();
    p_.session.WizardCancelled = kClear;
    ShowWizard();
    if (p_.session.WizardCancelled != 0) return false;
    p_.window.TextFileName.SetText(p_.session.SiteUrl + p_.session.SiteFileName);
    return true;
}

bool SiteWalk::EndWalk(AddressList& work, AddressList& pending, const AddressList& visited, const char* stoppedTitle) {
    CheckForm& w = p_.window;
    const std::string cache = p_.store.CacheFolder();
    const bool documents = w.txtFileName.Count() > 0;
    if (documents && w.txtFileName.ListIndex() != 0)
        w.txtFileName.SetListIndex(0);
    else if (documents)
        txtFileName_Click();
    const bool stopped = p_.flags.SiteOpenHalted != 0 && documents;
    if (stopped) {
        work.Append(pending);
        WritePartialSite(p_.files, cache, p_.session.SiteRoot, work, visited);
        UnloadReportForm();
        p_.session.LogTitle = stoppedTitle;
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
    return stopped;
}

void SiteWalk::CheckAutomatically(const char* complete, const char* starting) {
    CheckForm& w = p_.window;
    Log(complete);
    Log(starting + w.LabelInd.Caption());
    ComStart_Click();
    const bool stopped = p_.flags.StopRequested != 0;
    Log((stopped ? "Automatic Link Check was cancelled.  " : "Automatic Link Check complete.  ") + w.LabelInd.Caption());
    p_.session.LogTitle = stopped ? "Site Open Complete, Automatic Link Check Interrupted."
                                  : "Site Open && Automatic Link Check Complete.";
    UnloadReportForm();
    if (p_.flags.EnterpriseRunning == 0) ShowReportForm();
}

}  // namespace qv
