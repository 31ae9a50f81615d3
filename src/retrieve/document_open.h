// ComOpen_Click: fetches a Web document, hands it to the importer and lists it. The same button cancels.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "extract/hyperlink_importer.h"
#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "retrieve/http_session.h"
#include "session/document_store.h"
#include "session/link_rows.h"
#include "session/session.h"

namespace qv {

class DocumentOpen {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        LinkRows& rows;
        HTTP1& http;
        HttpSession& steps;
        HyperlinkImporter& importer;
        EventLoop& loop;
        Files& files;
        Programs& programs;
    };
    explicit DocumentOpen(Parts parts) : p_(parts) {}

    void ComOpen_Click();

    std::function<void()> ShowWizard;  // modally; the session's WizardCancelled tells how it was left
    std::function<void()> MenuFileNew_Click;
    std::function<void(const std::string& path, const std::string& url)> OpenLocalDocument;

    // Lists the document that the importer has read, under the session's CurrentDocumentUrl: its entry, its files, its rows.
    void ListDocument(const HeaderLines& header);

   private:
    struct Retrieval {
        std::string openedUrl;
        std::string redirectUrl;
        bool redirectPending = false;
        int retryCount = 0;
        int passCount = 0;
        double deadline = 0;
        HttpSession::Lookup lookup;
    };

    bool HasWizard() const;
    bool AskAboutPartialSite();
    bool TakeEntryFromWizard();
    void OpenInLocalMode();
    bool Validate();
    void SetUp(Retrieval& r);
    void Retrieve(Retrieval& r);
    void PreparePass(Retrieval& r);
    void Exchange(Retrieval& r);
    void WaitForReply(const Retrieval& r);
    bool AnotherPass(Retrieval& r);
    void Judge(Retrieval& r);
    void EndStopped(const Retrieval& r);
    void EndFailed(const Retrieval& r);
    void EndTimedOut(const Retrieval& r);
    void EndImported(const Retrieval& r);
    bool Import(const Retrieval& r);
    void Refused(const std::string& reason, const std::string& url);
    void Close();
    void Cancel();
    void ResetBar();
    void Log(const std::string& text);
    void SetWaiting(bool waiting);

    Parts p_;
    bool retrieving_ = false;
};

}  // namespace qv
