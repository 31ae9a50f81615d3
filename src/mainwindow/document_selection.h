// What happens when another document of the list becomes the selected one.
#pragma once

#include <functional>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "platform/http1.h"
#include "session/document_store.h"
#include "session/link_rows.h"
#include "session/session.h"

namespace qv {

class Preferences;
class SiteRecordLoader;

class DocumentSelection {
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
        SiteRecordLoader& loader;
        Preferences& preferences;
    };
    explicit DocumentSelection(Parts parts) : p_(parts) {}

    // Loads the selected document's header, settings and links and shows them. An address that was never opened is opened.
    void txtFileName_Click();

    // Enter in the list: the site wizard for the typed address.
    void txtFileName_Enter();

    // The right mouse button: the menu of the document, or of the link, pops up.
    void txtFileName_RightClick();
    void List1_RightClick();

    std::function<void()> ComOpen_Click;
    std::function<void()> Command1_Click;

   private:
    void ReadHeader(std::int32_t number);
    void ShowLinks();
    void TakeSiteHost();

    Parts p_;
};

}  // namespace qv
