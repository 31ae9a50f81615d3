#include "program/start_up.h"

#include "session/mail_settings_file.h"
#include "reports/report_options.h"
#include "session/program_settings.h"
#include "sitedb/preferences.h"
#include "sitedb/site_database.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr double kStartWindowSeconds = 1.5;
constexpr const char* kSaveQuestion = "Do you want to save these documents and link lists for the next session?";

}  // namespace

bool StartUp::Unattended() const {
    return Lower(p_.commandLine) == "/auto-check" && p_.files.FileExists(p_.session.AppPath + "nwautogo.zdt");
}

void StartUp::InitialForm_Load() {
    p_.initialForm.Centre();
    p_.session.WindowsFolder = p_.places.windowsFolder;
    p_.session.AppPath = p_.places.appPath;
    if (!EndsWith(p_.session.AppPath, "\\")) p_.session.AppPath += "\\";
}

void StartUp::InitialForm_Activate() {
    if (p_.session.MainWindowShown != 0) return;
    if (Unattended()) {
        p_.windows.Hide(p_.initialForm);
        p_.windows.Show(p_.window);
        return;
    }
    if (p_.clock.PausesWanted()) {
        const double start = p_.clock.SecondsSinceMidnight();
        for (double now = start; now >= start && now < start + kStartWindowSeconds; now = p_.clock.SecondsSinceMidnight())
            p_.loop.WaitFor(start + kStartWindowSeconds - now);
    }
    p_.sites.ConvertSiteDatabase([this](const std::string& text) { p_.initialForm.Label3.SetCaption(text); },
                                 [this] { p_.loop.Yield(); });
    p_.windows.Show(p_.window);
}

void StartUp::MakeFolders() {
    p_.files.RemoveLeftovers(p_.session.AppPath);
    for (const char* name : {"cache", "Reports", "Logs", "Document Lists"}) {
        const std::string folder = p_.session.AppPath + name;
        p_.files.MakeFolder(folder);
        p_.files.RemoveLeftovers(folder);
    }
}

// Copied or restored from elsewhere, they may have come with the rights that others had there.
void StartUp::KeepPasswords() {
    for (const char* name : {"preferen.zdt", "sitedata.zdt", "emailcfg.zdt"}) p_.files.KeepForOwner(p_.session.AppPath + name);
}

void StartUp::LoadSettings() {
    MakeFolders();
    KeepPasswords();
    p_.preferences.ReadAtStart();
    p_.preferences.ApplyPreferences();
    ReadProgramSettings(p_.files, p_.session, p_.settings, p_.window);
    const std::string marker = p_.session.AppPath + "corvelleone.zdt";
    if (!p_.files.FileExists(marker)) {
        p_.files.Write(marker, "Corvelle\r\n");
        p_.session.FirstStart = kSet;
    }
    ReadMailSettings(p_.files, p_.session.AppPath, p_.mail);
    p_.settings.IgnoreOpenPathList = SplitBlankList(p_.settings.IgnoreOpenPaths);
    p_.settings.IgnoreLinkPathList = SplitBlankList(p_.settings.IgnoreLinkPaths);
    p_.session.Good.Clear();
}

void StartUp::CheckForm_Load() {
    CheckForm& w = p_.window;
    w.FitOnScreen();
    w.Centre();
    w.SetPointer(Pointer::Wait);
    p_.session.WindowsFolder = p_.places.windowsFolder;
    LoadSettings();
    w.Command1.SetCaption(kCaptionCheckSite);
    w.SetCaption("Zephon Quorvantis - Internet Mode");
    if (p_.settings.ProgramMode == kLocalMode) {
        p_.settings.ProgramMode = kInternetMode;
        MenuFileLocalMode_Click();
    }
    p_.rules.SetModeControls();
    p_.rules.SetToolButtons();
    p_.windows.Unload(p_.initialForm);
    w.SetPointer(Pointer::Default);
    if (!ReadReportOptions(p_.files, p_.session.AppPath, p_.settings)) {
        p_.settings.ReportFolder = p_.session.AppPath + "Reports\\";
        p_.settings.SaveTextReport = kSet;
        p_.settings.QuestionableOnly = kSet;
    }
    if (ReadEnterpriseSettings) ReadEnterpriseSettings();
    if (Unattended()) w.SetState(WindowState::Minimised);
}

void StartUp::RestoreSession() {
    CheckForm& w = p_.window;
    w.LabelInd.SetCaption("Loading last session...");
    if (const auto documents = p_.store.LoadSession()) {
        p_.flags.IgnoreControlEvents = kSet;
        for (const auto& [address, number] : *documents) w.txtFileName.AddItem(address, number);
        p_.flags.IgnoreControlEvents = kClear;
        p_.store.LoadGoodLinks();
        if (w.txtFileName.Count() > 0) w.txtFileName.SetListIndex(0);
        p_.rules.SetModeControls();
        p_.rules.SetToolButtons();
        w.SpinLeft.SetEnabled(true);
        w.SpinRight.SetEnabled(true);
    }
    w.LabelInd.SetCaption("");
}

void StartUp::CheckForm_Activate() {
    if (p_.session.MainWindowShown != 0) return;
    p_.session.MainWindowShown = kSet;
    p_.http.NetworkReady = true;
    p_.ftp.NetworkReady = true;
    p_.ipInfo.NetworkReady = true;
    if (Unattended()) {
        if (AutomaticStart() && End) End(0);
        return;
    }
    if (p_.store.HasCounter()) RestoreSession();
    if (p_.session.FirstStart != 0) ShowConfigForm();
    ShowTipForm();
    p_.window.Command1.SetFocus();
}

bool StartUp::AskAboutSession() {
    const std::string answer = p_.windows.ShowMessage(
        {.text = kSaveQuestion, .buttons = {"Yes", "No", "Cancel"}, .defaultButton = "Yes", .question = true});
    if (answer == "Yes") {
        if (SaveRunningCheck) SaveRunningCheck();
        p_.store.SaveRunState(p_.window.txtFileName);
    }
    if (answer == "No") MenuFileNew_Click();
    return answer != "Cancel";
}

void StartUp::CheckForm_Unload(bool& refused) {
    if (p_.window.txtFileName.Count() > 0) {
        if (p_.settings.ProgramMode == kBookmarksMode) {
            MenuFileNew_Click();
        } else if (!AskAboutSession()) {
            refused = true;
            return;
        }
    }
    if (p_.settings.ProgramMode == kBookmarksMode) p_.settings.ProgramMode = kInternetMode;
    p_.window.SetPointer(Pointer::Wait);
    p_.http.SetAction(HTTP1::Stop);
    WriteProgramSettings();
    p_.window.SetPointer(Pointer::Default);
    if (End) End(0);
}

void StartUp::WriteProgramSettings() { qv::WriteProgramSettings(p_.files, p_.session, p_.settings, p_.window); }

}  // namespace qv
