// What the walks through a site on the Internet and in a folder have in common: how they begin and how they end.
#pragma once

#include <functional>
#include <string>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/http1.h"
#include "retrieve/http_session.h"
#include "session/document_store.h"
#include "session/partial_site.h"
#include "session/session.h"

namespace qv {

class SiteWalk {
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

    std::function<void()> ShowWizard;  // modally; the session's WizardCancelled tells how it was left
    std::function<void()> MenuFileNew_Click;
    std::function<void()> ComStart_Click;
    std::function<void()> txtFileName_Click;
    std::function<void()> UnloadReportForm;
    std::function<void()> ShowReportForm;

   protected:
    explicit SiteWalk(Parts parts) : p_(parts) {}
    ~SiteWalk() = default;

    static constexpr const char* kCaptionCancelSite = "Cancel &Web Site";

    enum class Answer { Resume, Anew, Cancel };
    // `hasAddress`: whether the address box holds one. Anew also when there is nothing to ask about.
    Answer AskToResume(const std::string& question, bool hasAddress);
    bool TakeEntryFromWizard();  // into the address box; false when the wizard was cancelled
    void StopHiding();
    bool IsIgnored(const std::string& url) const;

    // Shows the first document, keeps what a stopped walk needs to be gone on with or deletes what an earlier one has left, and
    // brings the window back to working order. True when the walk was stopped and something was kept.
    bool EndWalk(AddressList& work, AddressList& pending, const AddressList& visited, const char* stoppedTitle);
    void CheckAutomatically(const char* complete, const char* starting);
    void Log(const std::string& text);
    void SetWaiting(bool waiting);

    Parts p_;
};

}  // namespace qv
