#include "program/program.h"

#include <algorithm>
#include <optional>

#include "check/code_form.h"
#include "check/http_probe.h"
#include "check/link_check_run.h"
#include "check/link_recheck.h"
#include "extract/hyperlink_importer.h"
#include "localmode/local_document_open.h"
#include "localmode/local_site_open.h"
#include "mail/address_book.h"
#include "mail/config_form.h"
#include "mail/email_form.h"
#include "mail/mail_sender.h"
#include "mail/mail_settings_file.h"
#include "mainwindow/browser.h"
#include "mainwindow/check_form.h"
#include "mainwindow/document_commands.h"
#include "mainwindow/document_selection.h"
#include "mainwindow/initial_form.h"
#include "mainwindow/link_marks.h"
#include "mainwindow/mode_commands.h"
#include "mainwindow/session_commands.h"
#include "mainwindow/spin_buttons.h"
#include "mainwindow/tip_form.h"
#include "mainwindow/window_rules.h"
#include "program/start_up.h"
#include "reports/frmform.h"
#include "reports/report_creation.h"
#include "reports/report_files.h"
#include "reports/report_form.h"
#include "reports/report_manager_form.h"
#include "reports/report_select_form.h"
#include "reports/save_reports.h"
#include "retrieve/document_open.h"
#include "retrieve/http_session.h"
#include "retrieve/site_open.h"
#include "session/document_store.h"
#include "session/link_rows.h"
#include "sitedb/load_site_record.h"
#include "sitedb/preferences.h"
#include "sitedb/site_database.h"
#include "sitedb/wizard_form.h"

namespace qv {

// Everything that the program is made of, in the order in which it is made.
struct Program::House {
    explicit House(const ProgramServices& s);
    void ConnectStart(Program& program);
    void ConnectCommands();
    void ConnectWindow();
    void ConnectReports();
    void ConnectUnbuilt();
    void ShowWizard();
    void TakeEntry(const QuietEntry& entry);
    void ConnectSites();
    void ShowConfigForm();
    void ShowTipForm();
    void ShowEmailForm();
    bool ShowReportOptions();
    void ShowReportManager(std::int16_t logs);
    void ShowReportViewer();
    void ShowAbout();

    ProgramServices services;
    RunFlags& flags;
    Session session;
    Settings settings;
    MailSettings mail;
    AddressBook addressBook;
    WindowSystem windows{[this] { services.loop.WaitFor(kWaitForever); }};
    CheckForm window{windows};
    InitialForm initialForm{windows};
    CodeForm codeForm{windows};

    DocumentStore store{services.files, session};
    SiteDatabase sites{services.files, session};
    Preferences preferences{services.files, session, settings};
    SiteRecordLoader loader{sites, session, settings, services.http};
    WindowRules rules{window, session, settings, services.programs, store};
    LinkRows rows{window.List1, window.FontNamePicture, session, settings, flags};
    HyperlinkImporter importer{
        services.files, services.loop, services.clock,
        services.http,  session,       settings,
        flags,          windows,       {window.ProgressBar1, window.Picture1, window.ComHide, window.List1}};
    HttpSession steps{
        {window, session, settings, flags, services.http, services.ipInfo, services.loop, services.clock, services.files}};
    DocumentOpen documentOpen{{window, rules, session, settings, flags, store, rows, services.http, steps, importer,
                               services.loop, services.files, services.programs}};
    LocalDocumentOpen localDocument{{window, rules, session, settings, flags, services.http, importer, documentOpen}};
    HttpProbe httpProbe{window, settings, flags, services.http, steps, services.loop};
    FtpProbe ftpProbe{settings, flags, services.http, services.ftp, steps};
    FileProbe fileProbe{settings, flags, services.http, steps, services.files};
    RowStatus rowStatus{window, session, store, rows};
    LinkCheckRun checkRun{{window, rules, session, settings, flags, store, services.http, steps, httpProbe, ftpProbe, fileProbe,
                           rowStatus, services.loop}};
    LinkRecheck recheck{{window, rules, session, settings, flags, services.http, steps, httpProbe, ftpProbe, fileProbe, rowStatus,
                         services.loop}};
    ReportForm reportForm{{windows, session, flags, window.txtFileName, window.StatusBar1}};
    Browser browser{settings, services.programs, services.loop};
    ReportSaver reportSaver{{window, session, settings, store, services.files, services.loop, services.clock}};
    ReportCreation reportCreation{{window, rules, session, settings, mail, reportSaver}};
    ReportFiles reportFiles{{windows, services.files, session, settings, mail, services.programs, browser}};
    MailSender mailSender{{window, session, settings, mail, services.smtp, services.mime, services.code, services.loop}};
    SiteOpen siteOpen{
        {window, rules, session, settings, flags, store, services.http, steps, services.loop, services.files}};
    LocalSiteOpen localSite{
        {window, rules, session, settings, flags, store, services.http, steps, services.loop, services.files}};
    DocumentSelection selection{{window, rules, session, settings, flags, store, rows, services.http, loader, preferences}};
    SessionCommands sessionCommands{
        {window, rules, session, settings, flags, store, services.files, services.http, sites, loader}};
    LinkMarks marks{{window, rules, session, settings, flags, store, rows}};
    DocumentCommands documentCommands{{window, rules, session, settings, flags, store, services.programs}};
    ModeCommands modes{window, rules, session, settings};
    std::optional<QuietEntry> quietEntry;  // takes the place of the wizard
    SpinButtons spin{window, flags, services.loop};
    StartUp startUp{{windows, window, initialForm, rules, session, settings, mail, flags, store, preferences, sites,
                     services.files, services.http, services.ftp, services.ipInfo, services.loop, services.clock, services.places,
                     services.commandLine}};
};

Program::House::House(const ProgramServices& s) : services(s), flags(s.flags) {
    window.Timer1.Use(&services.timers);
    window.Timer2.Use(&services.timers);
    window.Timer2.SetInterval(150);
    ConnectCommands();
    ConnectSites();
    ConnectReports();
    ConnectWindow();
    ConnectUnbuilt();
}

void Program::House::TakeEntry(const QuietEntry& entry) {
    session.SiteUrl = entry.siteUrl;
    session.SiteFileName = entry.fileName;
    session.SiteFolder = entry.folder;
    session.SiteRecordNumber = 0;
    session.WizardCancelled = kClear;
}

void Program::House::ShowWizard() {
    if (quietEntry) {
        TakeEntry(*quietEntry);
        return;
    }
    WizardForm wizard({windows, services.files, session, settings, flags, mail, preferences, sites, loader, window.TextFileName,
                       window.txtFileName});
    windows.ShowModal(wizard);
}

void Program::House::ShowConfigForm() {
    ConfigForm form(windows, services.files, session, mail);
    windows.ShowModal(form);
}

void Program::House::ShowTipForm() {
    TipForm form(windows, services.files, services.store, session);
    windows.ShowModal(form);
}

void Program::House::ShowAbout() {
    InitialForm about(windows);
    about.Centre();
    about.Command1.SetVisible(true);
    windows.ShowModal(about);
}

void Program::House::ConnectStart(Program& program) {
    initialForm.Load = [this] { startUp.InitialForm_Load(); };
    initialForm.Activate = [this] { startUp.InitialForm_Activate(); };
    window.Load = [this] { startUp.CheckForm_Load(); };
    window.Activate = [this] { startUp.CheckForm_Activate(); };
    window.Unload = [this](bool& refused) { startUp.CheckForm_Unload(refused); };
    startUp.MenuFileNew_Click = [this] { sessionCommands.MenuFileNew_Click(); };
    startUp.MenuFileLocalMode_Click = [this] { modes.MenuFileLocalMode_Click(); };
    startUp.ShowConfigForm = [this] { ShowConfigForm(); };
    startUp.ShowTipForm = [this] { ShowTipForm(); };
    startUp.SaveRunningCheck = [this] { checkRun.SaveIfRunning(); };
    startUp.End = [&program](int code) {
        if (program.OnEnd) program.OnEnd(code);
    };
}

void Program::House::ConnectCommands() {
    const auto fileNew = [this] { sessionCommands.MenuFileNew_Click(); };
    const auto open = [this] { documentOpen.ComOpen_Click(); };
    const auto normalMode = [this] { modes.MenuFileNormalMode_Click(); };
    const auto localMode = [this] { modes.MenuFileLocalMode_Click(); };
    documentOpen.ShowWizard = [this] { ShowWizard(); };
    documentOpen.MenuFileNew_Click = fileNew;
    modes.MenuFileNew_Click = fileNew;
    selection.ComOpen_Click = open;
    sessionCommands.ComOpen_Click = open;
    sessionCommands.MenuFileNormalMode_Click = normalMode;
    sessionCommands.MenuFileLocalMode_Click = localMode;
    const auto openLocal = [this](const std::string& path, const std::string& url) {
        localDocument.OpenLocalDocument(path, url);
    };
    const auto hide = [this] { marks.MenuLinkHide_Click(); };
    const auto showDocument = [this] { selection.txtFileName_Click(); };
    checkRun.txtFileName_Click = showDocument;
    marks.txtFileName_Click = showDocument;
    documentCommands.txtFileName_Click = showDocument;
    documentCommands.ComOpen_Click = open;
    documentCommands.OpenLocalDocument = openLocal;
    documentOpen.OpenLocalDocument = openLocal;
    sessionCommands.OpenLocalDocument = openLocal;
    spin.FindQuestionableDocument = [this](std::int16_t direction) { marks.FindQuestionableDocument(direction); };

    window.ComHide.Click = window.MenuLinkHide.Click = window.ToolLinkQuest.Click = hide;
    window.MenuViewReload.Click = window.ToolDocReopen.Click = [this] { documentCommands.MenuViewReload_Click(); };
    window.MenuViewSource.Click = window.ToolDocSource.Click = [this] { documentCommands.MenuViewSource_Click(); };
    window.MenuViewDelete.Click = window.ToolDocDelete.Click = [this] { documentCommands.MenuViewDelete_Click(); };
    window.MenuLinkRecheck.Click = window.ToolLinkCheck.Click = [this] { recheck.MenuLinkRecheck_Click(); };
    window.MenuLinkOpen.Click = [this] { documentCommands.MenuLinkOpen_Click(); };

    window.MenuFileNormalMode.Click = window.ToolInterMode.Click = normalMode;
    window.MenuFileLocalMode.Click = window.ToolLocalMode.Click = localMode;
    window.MenuFileNew.Click = window.ToolOpenDoc.Click = fileNew;
    window.MenuFileOpen.Click = window.ComOpen.Click = open;
    window.MenuFileSaveList.Click = [this] { sessionCommands.MenuFileSaveList_Click(); };
    window.MenuFileLoadList.Click = [this] { sessionCommands.MenuFileLoadList_Click(); };
    window.MenuFileExit.Click = [this] { windows.Unload(window); };
    window.MenuHelpEmail.Click = window.Command2.Click = [this] { ShowConfigForm(); };
    window.MenuHelpTip.Click = [this] {
        services.store.Save("Options", "Show Tips at Startup", "1");
        ShowTipForm();
    };
    window.MenuHelpStatus.Click = [this] { windows.Show(codeForm); };
    window.MenuHelpAbout.Click = [this] { ShowAbout(); };
    window.ComStart.Click = [this] { checkRun.ComStart_Click(); };
    window.ComStop.Click = [this] { checkRun.ComStop_Click(); };
    window.ComSkip.Click = [this] { checkRun.ComSkip_Click(); };
}

// The walks through a site, on the Internet and in a folder. They tell of themselves in the log's window.
void Program::House::ConnectSites() {
    const auto showLog = [this] { windows.Show(reportForm); };
    const auto unloadLog = [this] { windows.Unload(reportForm); };
    const auto check = [this] { checkRun.ComStart_Click(); };
    const auto showDocument = [this] { selection.txtFileName_Click(); };
    siteOpen.ShowWizard = localSite.ShowWizard = [this] { ShowWizard(); };
    siteOpen.MenuFileNew_Click = localSite.MenuFileNew_Click = [this] { sessionCommands.MenuFileNew_Click(); };
    siteOpen.ComOpen_Click = [this] { documentOpen.ComOpen_Click(); };
    localSite.OpenLocalDocument = [this](const std::string& path, const std::string& url) {
        localDocument.OpenLocalDocument(path, url);
    };
    siteOpen.ComStart_Click = localSite.ComStart_Click = check;
    siteOpen.txtFileName_Click = localSite.txtFileName_Click = showDocument;
    siteOpen.ShowReportForm = localSite.ShowReportForm = showLog;
    siteOpen.UnloadReportForm = localSite.UnloadReportForm = unloadLog;
    siteOpen.OpenLocalWebSite = [this] { localSite.OpenLocalWebSite(); };
    selection.Command1_Click = [this] { siteOpen.Command1_Click(); };
    window.Command1.Click = window.MenuFileOpenSite.Click = [this] { siteOpen.Command1_Click(); };
}

void Program::House::ShowEmailForm() {
    EmailForm form({windows, services.files, session, mail, addressBook, flags, mailSender, services.loop});
    windows.ShowModal(form);
}

bool Program::House::ShowReportOptions() {
    frmform form({windows, services.files, session, settings});
    windows.ShowModal(form);
    return form.Okay();
}

void Program::House::ShowReportManager(std::int16_t logs) {
    session.ManagerShowsLogs = logs;
    ReportManagerForm form({windows, services.files, session, flags, reportFiles});
    windows.ShowModal(form);
}

void Program::House::ShowReportViewer() {
    ReportSelectForm form({windows, services.files, session, settings, flags, reportFiles});
    windows.ShowModal(form);
}

void Program::House::ConnectReports() {
    checkRun.CreateReports = [this](std::string& errorText) { reportCreation.CreateReports(settings.ReportFolder, 1, errorText); };
    reportCreation.ShowDialog = [this] { return ShowReportOptions(); };
    reportCreation.ShowViewer = [this] { ShowReportViewer(); };
    reportCreation.SendReportsMail = [this](std::int16_t& noRecipient, std::string& errorText) {
        mailSender.SendReportsMail(noRecipient, errorText);
    };
    reportFiles.ShowEmailForm = [this] { ShowEmailForm(); };
    reportForm.ShowDocumentReports = [this] {
        session.ViewerFolderChoice = 0;
        ShowReportViewer();
    };
    window.MenuReportsCopy.Click = window.ToolCopyReports.Click = [this] { reportSaver.MenuReportsCopy_Click(); };
    window.MenuReportsSave.Click = window.ToolSave.Click = [this] { reportCreation.MenuReportsSave_Click(); };
    window.MenuReportsManage.Click = [this] { ShowReportManager(0); };
    window.MenuReportsLogs.Click = [this] { ShowReportManager(1); };
}

void Program::House::ConnectWindow() {
    window.MenuFile.Click = [this] { rules.MenuFile_Click(); };
    window.MenuEdit.Click = [this] { rules.MenuEdit_Click(); };
    window.MenuView.Click = [this] { rules.MenuView_Click(); };
    window.MenuLink.Click = [this] { rules.MenuLink_Click(); };
    window.MenuReports.Click = [this] { rules.MenuReports_Click(); };
    window.MenuSearch.Click = [this] { rules.MenuSearch_Click(); };
    window.txtFileName.Click = [this] { selection.txtFileName_Click(); };
    window.txtFileName.KeyPress = [this](Key key) {
        if (key == Key::Enter) selection.txtFileName_Enter();
    };
    window.txtFileName.MouseDown = [this](MouseButton button) {
        if (button == MouseButton::Right) selection.txtFileName_RightClick();
    };
    window.List1.MouseDown = [this](MouseButton button) {
        if (button == MouseButton::Right)
            selection.List1_RightClick();
        else
            marks.List1_MouseDown();
    };
    window.List1.KeyUp = [this](Key key) {
        if (key == Key::Space) marks.List1_KeyUp();
    };
    window.List1.MouseMove = [this] { marks.List1_MouseMove(); };
    window.SpinLeft.MouseDown = [this] { spin.SpinLeft_MouseDown(); };
    window.SpinRight.MouseDown = [this] { spin.SpinRight_MouseDown(); };
    window.SpinLeft.MouseUp = window.SpinRight.MouseUp = [this] { spin.Release(); };
    window.Timer1.Tick = [this] { steps.Timer1_Timer(); };
    window.Timer2.Tick = [this] { spin.Timer2_Timer(); };
    rules.ShowToolTips();
}

// A command that this version doesn't have says so, in the status bar.
void Program::House::ConnectUnbuilt() {
    const auto say = [this] { window.StatusBar1.SetText("This command isn't in this version."); };
    for (Control* control : window.Controls()) {
        if (auto* tool = dynamic_cast<ToolButton*>(control); tool != nullptr && !tool->Click) tool->Click = say;
        auto* menu = dynamic_cast<Menu*>(control);
        if (menu != nullptr && menu->ParentMenu() != nullptr && menu->Entries().empty() && !menu->Click) menu->Click = say;
    }
}

Program::Program(const ProgramServices& services) : house_(std::make_unique<House>(services)) { house_->ConnectStart(*this); }

Program::~Program() = default;

void Program::Start() { house_->windows.Show(house_->initialForm); }

WindowSystem& Program::Windows() { return house_->windows; }
CheckForm& Program::MainWindow() { return house_->window; }
Session& Program::SharedSession() { return house_->session; }
Settings& Program::SharedSettings() { return house_->settings; }
LinkCheckRun& Program::CheckRun() { return house_->checkRun; }

void Program::StartQuietly(bool restore) {
    House& h = *house_;
    h.session.AppPath = h.services.places.appPath;
    h.session.WindowsFolder = h.services.places.windowsFolder;
    h.startUp.LoadSettings();
    h.settings.ProgramMode = kInternetMode;
    h.session.MainWindowShown = kSet;
    h.services.http.NetworkReady = true;
    h.services.ftp.NetworkReady = true;
    h.services.ipInfo.NetworkReady = true;
    h.window.SetVisible(true);
    if (!restore)
        h.sessionCommands.MenuFileNew_Click();
    else if (h.store.HasCounter())
        h.startUp.RestoreSession();
}

void Program::OpenDocument(const QuietEntry& entry) {
    house_->quietEntry = entry;
    house_->documentOpen.ComOpen_Click();
}

void Program::OpenSite(const QuietEntry& entry) {
    house_->quietEntry = entry;
    house_->TakeEntry(entry);
    house_->siteOpen.Command1_Click();
}

Program::ReportPaths Program::CreateReports(const std::string& folder) {
    House& h = *house_;
    std::string mailError;
    h.reportCreation.CreateReports(folder, 0, mailError);
    ReportPaths paths;
    paths.failed = h.reportCreation.NotWritten();
    for (const auto& path : h.session.AttachmentPaths)
        if (std::find(paths.failed.begin(), paths.failed.end(), path) == paths.failed.end()) paths.written.push_back(path);
    return paths;
}

void Program::EndQuietly(bool keepSession) {
    if (keepSession) house_->store.SaveRunState(house_->window.txtFileName);
    house_->startUp.WriteProgramSettings();
}

}  // namespace qv
