// Command1_Click: opens a page and, wave by wave, all documents of its site that it leads to. The same button cancels, and a
// walk that was stopped can be gone on with later.
#pragma once

#include <functional>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/files.h"
#include "platform/http1.h"
#include "retrieve/http_session.h"
#include "session/document_store.h"
#include "session/partial_site.h"
#include "session/session.h"

namespace qv {

class SiteOpen {
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
        Files& files;
    };
    explicit SiteOpen(Parts parts) : p_(parts) {}

    void Command1_Click();

    std::function<void()> OpenLocalWebSite;  // takes the command in Local mode
    std::function<void()> ShowWizard;        // modally; the session's WizardCancelled tells how it was left
    std::function<void()> MenuFileNew_Click;
    std::function<void()> ComOpen_Click;  // opens the document of the address box
    std::function<void()> ComStart_Click;
    std::function<void()> txtFileName_Click;
    std::function<void()> UnloadReportForm;
    std::function<void()> ShowReportForm;

   private:
    struct Walk {
        bool resuming = false;
        bool halted = false;
        AddressList Pending, Queue, Visited;
    };
    bool Begin(Walk& walk);
    bool AskToResume(Walk& walk);
    bool Validate();
    void OpenSite(Walk& walk);
    bool Prepare(Walk& walk);
    void OpenFirst(Walk& walk);
    void Harvest(Walk& walk, bool first);
    void RunWaves(Walk& walk);
    bool RunWave(Walk& walk, std::size_t from);
    void ShowCounts(std::size_t possible, bool first);
    void EndWalk(Walk& walk);
    void Cancel();
    void Finish(bool halted);
    void CheckAutomatically();
    void Log(const std::string& text);
    void SetWaiting(bool waiting);

    Parts p_;
};

}  // namespace qv
