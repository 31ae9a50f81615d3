// Which handler is behind which control, and what the handlers need of one another.
#include "program/house.h"

namespace qv {

Program::House::House(const ProgramServices& s) : services(s), flags(s.flags) {
    window.Timer1.Use(&services.timers);
    window.Timer2.Use(&services.timers);
    window.Timer2.SetInterval(150);
    ConnectCommands();
    ConnectSites();
    ConnectReports();
    ConnectEdit();
    ConnectWeb();
    ConnectBookmarks();
    ConnectEnterprise();
    ConnectWindow();
}

void Program::House::ConnectStart(Program& program) {
    initialForm.Load = [this] { startUp.InitialForm_Load(); };
    initialForm.Activate = [this] { startUp.InitialForm_Activate(); };
    window.Load = [this] { startUp.CheckForm_Load(); };
    window.Activate = [this] { startUp.CheckForm_Activate(); };
    window.Unload = [this](bool& refused) { startUp.CheckForm_Unload(refused); };
    startUp.MenuFileNew_Click = [this] { sessionCommands.MenuFileNew_Click(); };
    startUp.MenuFileLocalMode_Click = [this] { modes.MenuFileLocalMode_Click(); };
    startUp.ReadEnterpriseSettings = [this] {
        ReadSchedule(services.files, session.AppPath, schedule);
        qv::ReadEnterpriseSettings(services.files, session.AppPath, settings);
    };
    startUp.ShowConfigForm = [this] { ShowConfigForm(); };
    startUp.ShowTipForm = [this] { ShowTipForm(); };
    startUp.AutomaticStart = [this] { return enterprise.AutomaticStart(); };
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
    spin.FindQuestionableDocument = [this](std::int16_t direction) { return marks.FindQuestionableDocument(direction); };

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

// Which links are checked, and where a text stands in them.
void Program::House::ConnectEdit() {
    const auto showDocument = [this] { selection.txtFileName_Click(); };
    linkCommands.txtFileName_Click = showDocument;
    linkCommands.ShowSearchForm = [this] { ShowSearchForm(search.SearchMode); };
    const auto find = [this, showDocument](std::int16_t searchMode) {
        ShowAllLinks(window, flags);
        showDocument();
        ShowSearchForm(searchMode);
    };
    window.MenuEditSettings.Click = [this] { ShowDefaultForm(); };
    window.MenuEditCopy.Click = window.ToolCopyURL.Click = [this] { linkCommands.MenuEditCopy_Click(); };
    window.MenuEditCopyLink.Click = [this] { linkCommands.MenuEditCopyLink_Click(); };
    window.MenuEditPaste.Click = [this] { linkCommands.MenuEditPaste_Click(); };
    window.MenuEditSelectAll.Click = [this] { linkCommands.MenuEditSelectAll_Click(); };
    window.MenuEditSelectNone.Click = [this] { linkCommands.MenuEditSelectNone_Click(); };
    window.MenuEditContain.Click = [this] { linkCommands.MenuEditContain_Click(); };
    window.MenuEditDontContain.Click = [this] { linkCommands.MenuEditDontContain_Click(); };
    window.MenuEditAbove.Click = [this] { linkCommands.MenuEditAbove_Click(); };
    window.MenuEditBelow.Click = [this] { linkCommands.MenuEditBelow_Click(); };
    window.MenuEditReset.Click = [this] { linkCommands.MenuEditReset_Click(); };
    window.MenuSearchURL.Click = [find] { find(kSearchUrls); };
    window.MenuSearchText.Click = [find] { find(kSearchTexts); };
    window.MenuLinkView.Click = window.ToolLinkView.Click = [this] {
        if (settings.ProgramMode == kBookmarksMode)
            bookmarks.MenuLinkView_Click();
        else
            ShowEditForm();
    };
}

void Program::House::ConnectWeb() {
    window.MenuViewBrowser.Click = window.ToolDocBrowser.Click = [this] { webCommands.MenuViewBrowser_Click(); };
    window.MenuViewEditor.Click = window.ToolDocEditor.Click = [this] { webCommands.MenuViewEditor_Click(); };
    window.MenuLinkBrowser.Click = window.ToolLinkBrowser.Click = [this] { webCommands.MenuLinkBrowser_Click(); };
    const std::pair<Menu*, void (WebCommands::*)()> commands[] = {{&window.MenuViewWhois, &WebCommands::MenuViewWhois_Click},
                                                                  {&window.MenuViewAlta, &WebCommands::MenuViewAlta_Click},
                                                                  {&window.MenuViewExcite, &WebCommands::MenuViewExcite_Click},
                                                                  {&window.MenuViewInfo, &WebCommands::MenuViewInfo_Click},
                                                                  {&window.MenuLinkWhois, &WebCommands::MenuLinkWhois_Click},
                                                                  {&window.MenuLinkSearch1, &WebCommands::MenuLinkSearch1_Click},
                                                                  {&window.MenuLinkSearch2, &WebCommands::MenuLinkSearch2_Click},
                                                                  {&window.MenuLinkSearch3, &WebCommands::MenuLinkSearch3_Click},
                                                                  {&window.MenuLinkURL1, &WebCommands::MenuLinkURL1_Click},
                                                                  {&window.MenuLinkURL2, &WebCommands::MenuLinkURL2_Click},
                                                                  {&window.MenuLinkURL3, &WebCommands::MenuLinkURL3_Click},
                                                                  {&window.MenuHelpHome, &WebCommands::MenuHelpHome_Click}};
    for (const auto& [entry, command] : commands) entry->Click = [this, run = command] { (webCommands.*run)(); };
    window.MenuHelpLocal.Click = [this] { help.Show(HelpTopic::Contents); };
}

void Program::House::ConnectBookmarks() {
    bookmarks.txtFileName_Click = [this] { selection.txtFileName_Click(); };
    bookmarks.ShowEditForm = [this] { return ShowEditForm(); };
    modes.SaveBookmarks = [this] { bookmarks.UpdateBookmarks(); };
    checkRun.CompanionRunning = [this] { return bookmarks.CompanionRunning(); };
    window.MenuFileZephonMode.Click = window.ToolZephonMode.Click = [this] { bookmarks.MenuFileZephonMode_Click(); };
    window.MenuZephonSave.Click = [this] { bookmarks.UpdateBookmarks(); };
    window.MenuLinkDelete.Click = [this] { bookmarks.MenuLinkDelete_Click(); };
}

// The run is the same handlers that a user drives. What they have to say meanwhile goes into the log: nobody need be there to read
// it. A dialog that the user has opened speaks to the user.
void Program::House::ConnectEnterprise() {
    enterprise.MenuFileNew_Click = [this] { sessionCommands.MenuFileNew_Click(); };
    enterprise.MenuFileLocalMode_Click = [this] { modes.MenuFileLocalMode_Click(); };
    enterprise.MenuFileNormalMode_Click = [this] { modes.MenuFileNormalMode_Click(); };
    enterprise.OpenLocalWebSite = [this] { localSite.OpenLocalWebSite(); };
    enterprise.Command1_Click = [this] { siteOpen.Command1_Click(); };
    enterprise.ComOpen_Click = [this] { documentOpen.ComOpen_Click(); };
    enterprise.ComStart_Click = [this] { checkRun.ComStart_Click(); };
    enterprise.ShowReportForm = [this] { windows.Show(reportForm); };
    enterprise.UnloadReportForm = [this] { windows.Unload(reportForm); };
    enterprise.UnloadScheduleForm = [this] {
        if (Form* form = windows.FindForm("ScheduleForm")) windows.Unload(*form);
    };
    enterprise.ShowBatchForm = [this] { return ShowBatchForm(); };
    enterprise.SendReportsMail = [this](std::int16_t& noRecipient, std::string& errorText) {
        mailSender.SendReportsMail(noRecipient, errorText);
    };
    enterprise.SendMail = [this](std::string& errorText) { mailSender.SendMail(1, errorText); };
    windows.TakeNotice = [this](const std::string& text) {
        if (flags.EnterpriseRunning == 0 || !windows.BlockedBy(window).empty()) return false;
        session.LogText += text + session.LineBreak + session.LineBreak;
        return true;
    };
    window.MenuFileEnterprise.Click = window.ToolEnter.Click = [this] { enterprise.MenuFileEnterprise_Click(); };
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

}  // namespace qv
