// The dialogs, made anew each time that they are shown.
#include "program/house.h"

namespace qv {

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
    ConnectHelp(wizard.ComHelp, HelpTopic::Wizard);
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

void Program::House::ShowEmailForm() {
    EmailForm form({windows, services.files, session, mail, addressBook, flags, mailSender, services.loop});
    ConnectHelp(form.ComHelp, HelpTopic::Emailer);
    windows.ShowModal(form);
}

bool Program::House::ShowReportOptions() {
    frmform form({windows, services.files, session, settings});
    ConnectHelp(form.ComHelp, HelpTopic::Reports);
    windows.ShowModal(form);
    return form.Okay();
}

void Program::House::ShowReportManager(std::int16_t logs) {
    session.ManagerShowsLogs = logs;
    ReportManagerForm form({windows, services.files, session, flags, reportFiles});
    ConnectHelp(form.ComHelp, HelpTopic::Manager);
    windows.ShowModal(form);
}

void Program::House::ShowReportViewer() {
    ReportSelectForm form({windows, services.files, session, settings, flags, reportFiles});
    windows.ShowModal(form);
}

void Program::House::ShowDefaultForm() {
    DefaultForm form({windows, services.files, services.programs, session, settings, flags, mail, preferences, window,
                      window.txtFileName});
    form.SettingsChanged = [this] { rules.ShowToolTips(); };
    ConnectHelp(form.ComHelp, HelpTopic::Preferences);
    windows.ShowModal(form);
}

bool Program::House::ShowEditForm() {
    EditForm form({window, session, rows});
    windows.ShowModal(form);
    return form.Okay();
}

bool Program::House::ShowBatchForm() {
    BatchForm form({windows, services.files, session, settings, mail, sites});
    form.ShowSelectForm = [this] { return ShowSelectForm(); };
    form.ShowScheduleForm = [this] { ShowScheduleForm(); };
    form.ShowLogManager = [this] { ShowReportManager(1); };
    form.Label2.Click = [this] { help.Show(HelpTopic::Scheduling); };
    ConnectHelp(form.ComHelp, HelpTopic::Enterprise);
    windows.ShowModal(form);
    return form.BeginEnterpriseNow();
}

bool Program::House::ShowSelectForm() {
    SelectForm form({windows, sites, settings.EnterpriseList});
    windows.ShowModal(form);
    return !form.SelectCancelled();
}

void Program::House::ShowScheduleForm() {
    ScheduleForm form({windows, services.files, services.scheduler, services.clock, session.AppPath, schedule});
    windows.ShowModal(form);
}

// A form that is open is shown anew.
void Program::House::ShowSearchForm(std::int16_t searchMode) {
    windows.Unload(searchForm);
    search.SearchMode = searchMode;
    if (searchMode >= kSelectContaining)
        windows.ShowModal(searchForm);
    else
        windows.Show(searchForm);
}

void Program::House::ConnectHelp(CommandButton& button, HelpTopic topic) {
    button.Click = [this, topic] { help.Show(topic); };
}

}  // namespace qv
