// What the program is made of, and how its parts are wired together.
#pragma once

#include <optional>

#include "bookmarks/bookmark_mode.h"
#include "check/code_form.h"
#include "check/http_probe.h"
#include "check/link_check_run.h"
#include "check/link_recheck.h"
#include "enterprise/batch_form.h"
#include "enterprise/enterprise_files.h"
#include "enterprise/enterprise_run.h"
#include "enterprise/schedule_form.h"
#include "enterprise/select_form.h"
#include "extract/hyperlink_importer.h"
#include "localmode/local_document_open.h"
#include "localmode/local_site_open.h"
#include "mail/address_book.h"
#include "mail/config_form.h"
#include "mail/email_form.h"
#include "mail/mail_sender.h"
#include "mainwindow/browser.h"
#include "mainwindow/check_form.h"
#include "mainwindow/document_commands.h"
#include "mainwindow/document_selection.h"
#include "mainwindow/edit_form.h"
#include "mainwindow/help.h"
#include "mainwindow/initial_form.h"
#include "mainwindow/link_commands.h"
#include "mainwindow/link_marks.h"
#include "mainwindow/mode_commands.h"
#include "mainwindow/search_form.h"
#include "mainwindow/session_commands.h"
#include "mainwindow/spin_buttons.h"
#include "mainwindow/tip_form.h"
#include "mainwindow/web_commands.h"
#include "mainwindow/window_rules.h"
#include "program/program.h"
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
#include "session/mail_settings_file.h"
#include "sitedb/default_form.h"
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
    void ShowDefaultForm();
    bool ShowEditForm();
    void ShowSearchForm(std::int16_t searchMode);
    void ConnectEdit();
    void ConnectWeb();
    void ConnectBookmarks();
    void ConnectEnterprise();
    bool ShowBatchForm();
    bool ShowSelectForm();
    void ShowScheduleForm();
    void ConnectHelp(CommandButton& button, HelpTopic topic);

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
    SearchState search;
    SearchForm searchForm{{window, session, search, services.loop}};
    Help help{services.files, services.programs, services.places};
    Browser browser{{windows, settings, services.programs, services.others, services.loop, services.clock}};
    LinkCommands linkCommands{{window, rules, session, settings, flags, store, search, browser, services.loop}};
    WebCommands webCommands{{window, session, settings, flags, services.programs, browser}};
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
        {window, rules, session, settings, flags, store, services.files, services.http, services.ftp, sites, loader}};
    LinkMarks marks{{window, rules, session, settings, flags, store, rows}};
    DocumentCommands documentCommands{{window, rules, session, settings, flags, store, services.programs}};
    ModeCommands modes{window, rules, session, settings};
    BookmarkMode bookmarks{{window, rules, modes, session, settings, flags, store, rows, services.files, services.others,
                            services.loop}};
    EnterpriseRun enterprise{{window, rules, session, settings, mail, flags, store, loader, reportSaver, services.files,
                              services.loop, services.clock}};
    Schedule schedule;
    std::optional<QuietEntry> quietEntry;  // takes the place of the wizard
    SpinButtons spin{window, flags, services.loop};
    StartUp startUp{{windows, window, initialForm, rules, session, settings, mail, flags, store, preferences, sites,
                     services.files, services.http, services.ftp, services.ipInfo, services.loop, services.clock, services.places,
                     services.commandLine}};
};

}  // namespace qv
