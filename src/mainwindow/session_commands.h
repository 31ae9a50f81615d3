// The commands that clear the session, and that save and load the list of its documents.
#pragma once

#include <functional>
#include <string>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/files.h"
#include "platform/ftp1.h"
#include "platform/http1.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class SiteDatabase;
class SiteRecordLoader;

class SessionCommands {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        Files& files;
        HTTP1& http;
        FTP1& ftp;
        SiteDatabase& sites;
        SiteRecordLoader& loader;
    };
    explicit SessionCommands(Parts parts) : p_(parts) {}

    void MenuFileNew_Click();  // clears documents, links and cache, without a question
    void MenuFileSaveList_Click();
    void MenuFileLoadList_Click();

    // What loading a list needs of others.
    std::function<void()> ComOpen_Click;
    std::function<void(const std::string& path, const std::string& url)> OpenLocalDocument;
    std::function<void()> MenuFileNormalMode_Click;
    std::function<void()> MenuFileLocalMode_Click;

   private:
    void EndWhatRuns();
    void DeleteCacheFiles();
    void ForgetDocuments();
    void TakeListMode(std::int16_t listMode);
    void ReopenDocument(const HeaderLines& lines);
    std::int16_t FindRecord(const std::string& siteUrl) const;

    Parts p_;
};

}  // namespace qv
