// The shared variables of the session. They are made once, live as long as the program, and are handed out by reference.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/last_error.h"
#include "platform/programs.h"
#include "session/flags.h"
#include "session/link_table.h"
#include "session/settings.h"

namespace qv {

// Where the selected document stands, as its header file tells.
struct DocumentHeader {
    std::string SiteUrl;
    std::string SiteFileName;
    std::string SiteFolder;
    std::string CurrentDocumentUrl;
    std::string DocumentPath;
    std::int16_t SiteRecordNumber = 0;
};

// Reports and logs by their bare names, as they were written or found last, and the files of the next mail.
struct ReportLists {
    std::vector<std::string> TextReportNames;
    std::vector<std::string> AsciiReportNames;
    std::vector<std::string> HtmlReportNames;
    std::vector<std::string> AllReportNames;
    std::vector<std::string> AttachmentPaths;
    std::vector<std::string> AttachmentNames;
    std::int16_t ReportListKind = 0;      // the list on show: 0 text, 1 ascii, 2 html, 3 all
    std::int16_t ManagerShowsLogs = 0;    // 1: the manager lists logs
    std::int16_t ViewerFolderChoice = 0;  // 1: the viewer looks in ReportFolder, else in LogFolder

    void ClearNames() {
        for (auto* names : {&TextReportNames, &AsciiReportNames, &HtmlReportNames, &AllReportNames}) names->clear();
    }
    void ClearAttachments() {
        AttachmentPaths.clear();
        AttachmentNames.clear();
    }
    void Attach(const std::string& folder, const std::string& name) {
        AttachmentPaths.push_back(folder + name);
        AttachmentNames.push_back(name);
    }
};

struct Session : DocumentHeader, ReportLists {
    std::string AppPath;  // with a backslash at its end
    std::string WindowsFolder;
    std::string LineBreak = "\r\n";
    Flag FirstStart = kClear;
    Flag MainWindowShown = kClear;

    std::string SiteRoot;         // of the site being opened
    std::string SiteHost;         // lower-case server name of the selected document
    std::string SiteHostAddress;  // its address, empty while not known

    std::string ImportFilePath;  // what the importer reads
    LinkTable Links;
    GoodLinkList Good;

    // Between the wizard and who shows it.
    Flag WizardCancelled = kClear;
    Flag WizardFromList = kClear;
    int WizardListIndex = -1;

    std::string LogText;  // the log of the operation; its entries end in two line breaks
    std::string LogTitle;
    Flag ReportFormOpen = kClear;  // the window that shows it is loaded
};

// Flags and values of the operation that runs.
struct RunFlags : LastError {
    std::int16_t RetrievalMode = 0;  // 0 link probe, -1 document, 1 body sample
    Flag TransferDone = kClear;
    std::string HeaderBuffer;  // "Field: value" lines of the reply
    Flag StopRequested = kClear;
    Flag SkipRequested = kClear;
    Flag WatchdogExpired = kClear;
    Flag FtpProbeActive = kClear;
    Flag BodySeen = kClear;  // set by the first body byte of the program's life
    Flag CheckRunning = kClear;
    Flag SiteOpenRunning = kClear;
    Flag SiteOpenHalted = kClear;
    Flag EnterpriseRunning = kClear;
    Flag EnterpriseAbort = kClear;
    Flag OpenWithoutWizard = kClear;
    Flag ReopenFromList = kClear;  // acts like OpenWithoutWizard
    Flag OpenInSourceViewer = kClear;
    Flag IgnoreControlEvents = kClear;
    Flag HideGoodLinks = kClear;

    bool Alone() const { return SiteOpenRunning == 0 && EnterpriseRunning == 0; }  // a user waits for this one document
};

}  // namespace qv
