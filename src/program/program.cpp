#include "program/program.h"

#include <algorithm>

#include "program/house.h"

namespace qv {

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
