// Commands that act on the selected document or the current link, and change no status.
#pragma once

#include <functional>
#include <string>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/programs.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class DocumentCommands {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        const Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        Programs& programs;
    };
    explicit DocumentCommands(Parts parts) : p_(parts) {}

    void MenuViewReload_Click();  // opens the document anew
    void MenuViewSource_Click();
    void MenuViewDelete_Click();  // takes it out of the session
    void MenuLinkOpen_Click();    // the current link as a new document

    std::function<void()> ComOpen_Click;
    std::function<void()> txtFileName_Click;
    std::function<void(const std::string& path, const std::string& url)> OpenLocalDocument;

   private:
    Parts p_;
};

}  // namespace qv
