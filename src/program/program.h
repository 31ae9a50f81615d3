// The whole program: all shared variables, forms and handlers, made once and wired together.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/window_system.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ftp1.h"
#include "platform/http1.h"
#include "platform/ip_info1.h"
#include "platform/job_scheduler.h"
#include "platform/mime1.h"
#include "platform/net_code1.h"
#include "platform/other_windows.h"
#include "platform/programs.h"
#include "platform/settings_store.h"
#include "platform/smtp1.h"
#include "session/session.h"

namespace qv {

class CheckForm;
class LinkCheckRun;
class TimerService;

// What the program needs of the world. All of it outlives the program.
struct ProgramServices {
    EventLoop& loop;
    Clock& clock;
    Files& files;
    HTTP1& http;
    FTP1& ftp;
    IPInfo1& ipInfo;
    SMTP1& smtp;
    MIME1& mime;
    NetCode1& code;
    SettingsStore& store;
    Programs& programs;
    OtherWindows& others;
    JobScheduler& scheduler;
    TimerService& timers;
    RunFlags& flags;  // the clients leave their failures here
    Places places;
    std::string commandLine;  // the arguments, joined by one blank
};

class Program {
   public:
    explicit Program(const ProgramServices& services);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Shows the start window and goes on to the main window. Returns when the start is over, its dialogs included.
    void Start();

    // Called when the program ends by itself, from inside the handler that ends it; doesn't come back into the program.
    std::function<void(int code)> OnEnd;

    WindowSystem& Windows();

    // For a front end without windows.
    CheckForm& MainWindow();
    Session& SharedSession();
    Settings& SharedSettings();
    LinkCheckRun& CheckRun();
    void StartQuietly(bool restore);    // the start without its windows; the last session is restored, or cleared
    void EndQuietly(bool keepSession);  // writes the session's files, or not; asks nothing

    // What is opened instead of an entry that a user picks in the wizard. The settings in force are those of SharedSettings.
    struct QuietEntry {
        std::string siteUrl;   // up to and including the last "/"
        std::string fileName;  // behind it; may be empty on the Internet
        std::string folder;    // of a mirror, in the backslash form with a backslash at its end; empty on the Internet
    };
    void OpenDocument(const QuietEntry& entry);  // both block until the documents are listed or refused
    void OpenSite(const QuietEntry& entry);      // a walk that was stopped is gone on with, if the message box says so

    // Writes the reports that the settings' Save flags choose, into a folder that ends in a backslash.
    struct ReportPaths {
        std::vector<std::string> written;
        std::vector<std::string> failed;
    };
    ReportPaths CreateReports(const std::string& folder);

   private:
    struct House;
    std::unique_ptr<House> house_;
};

}  // namespace qv
