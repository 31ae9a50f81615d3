// Opens a file that mirrors a page of a site, as if it had been fetched.
#pragma once

#include <string>

#include "extract/hyperlink_importer.h"
#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "retrieve/document_open.h"
#include "session/session.h"

namespace qv {

class LocalDocumentOpen {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        const Settings& settings;
        RunFlags& flags;
        HTTP1& http;
        HyperlinkImporter& importer;
        DocumentOpen& documents;  // lists what was imported
    };
    explicit LocalDocumentOpen(Parts parts) : p_(parts) {}

    // The path with slashes of either kind; the address that the file has on the site. The document is listed under the text of
    // the window's address box. A document that can't be read isn't listed.
    void OpenLocalDocument(const std::string& Path, const std::string& Url);

   private:
    bool Import(const std::string& path, const std::string& url);
    void Refuse(const std::string& reason, const std::string& path);
    void List(const std::string& path);
    void Log(const std::string& text);
    void ClearProgress();

    Parts p_;
};

}  // namespace qv
