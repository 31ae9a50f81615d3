// The order of everything between the program's start and its first idle moment, and between the closing of the main window
// and the end.
#pragma once

#include <functional>
#include <string>

#include "mainwindow/check_form.h"
#include "mainwindow/initial_form.h"
#include "mainwindow/window_rules.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ftp1.h"
#include "platform/http1.h"
#include "platform/ip_info1.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class Preferences;
class SiteDatabase;

class StartUp {
   public:
    struct Parts {
        WindowSystem& windows;
        CheckForm& window;
        InitialForm& initialForm;
        WindowRules& rules;
        Session& session;
        Settings& settings;
        MailSettings& mail;
        RunFlags& flags;
        DocumentStore& store;
        Preferences& preferences;
        SiteDatabase& sites;
        Files& files;
        HTTP1& http;
        FTP1& ftp;
        IPInfo1& ipInfo;
        EventLoop& loop;
        Clock& clock;
        const Places& places;
        const std::string& commandLine;
    };
    explicit StartUp(Parts parts) : p_(parts) {}

    void InitialForm_Load();
    void InitialForm_Activate();
    void CheckForm_Load();
    void CheckForm_Activate();  // does its work the first time alone
    void CheckForm_Unload(bool& refused);

    void RestoreSession();  // the documents of the last session
    void LoadSettings();    // the part of the load that reads files and makes folders
    void WriteProgramSettings();

    std::function<void()> MenuFileNew_Click;
    std::function<void()> MenuFileLocalMode_Click;
    std::function<void()> ShowConfigForm;  // modally
    std::function<void()> ShowTipForm;
    std::function<void()> ReadEnterpriseSettings;
    std::function<bool()> AutomaticStart;  // the unattended run; true: the program is to end then
    std::function<void()> SaveRunningCheck;
    std::function<void(int)> End;

   private:
    bool Unattended() const;
    void MakeFolders();
    void KeepPasswords();
    void ReadOtherFiles();
    bool AskAboutSession();

    Parts p_;
};

}  // namespace qv
