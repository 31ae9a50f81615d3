// OpenLocalWebSite: opens the documents of a folder that mirrors a site, along their links or all of them. The same button
// stops, and a walk that was stopped can be gone on with.
#pragma once

#include <functional>
#include <string>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "retrieve/http_session.h"
#include "session/document_store.h"
#include "session/partial_site.h"
#include "session/session.h"

namespace qv {

class LocalSiteOpen {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        HTTP1& http;
        HttpSession& steps;
        EventLoop& loop;
        Files& files;
    };
    explicit LocalSiteOpen(Parts parts) : p_(parts) {}

    void OpenLocalWebSite();

    std::function<void()> ShowWizard;  // modally; the session's WizardCancelled tells how it was left
    std::function<void()> MenuFileNew_Click;
    std::function<void(const std::string& path, const std::string& url)> OpenLocalDocument;
    std::function<void()> ComStart_Click;
    std::function<void()> txtFileName_Click;
    std::function<void()> UnloadReportForm;
    std::function<void()> ShowReportForm;

   private:
    struct Walk {
        bool resuming = false;
        bool stoppedForResume = false;
        std::string firstPath;
        AddressList Pending, Work, Opened;
    };
    bool Begin(Walk& walk);
    bool AskToResume(Walk& walk);
    void TakePartialSite(Walk& walk);
    void OpenSite(Walk& walk);
    bool Prepare(Walk& walk, std::string& url, std::string& path);
    void TakeLinks(Walk& walk, bool first);
    void RunPasses(Walk& walk);
    void ScanFolders(Walk& walk);
    bool OpenEntry(Walk& walk, std::size_t entry);
    bool LinkedOnly() const;
    void EndWalk(Walk& walk);
    void Press();
    void Finish(bool stoppedForResume);
    void CheckAutomatically();
    bool IsIgnored(const std::string& url) const;
    void Log(const std::string& text);
    void SetWaiting(bool waiting);

    Parts p_;
};

}  // namespace qv
