// What the manager and the viewer of the reports do with a finished file: show it, and hand it to the mail.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/window_system.h"
#include "mainwindow/browser.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "session/session.h"

namespace qv {

enum ReportListKindValue : std::int16_t { kTextList = 0, kAsciiList = 1, kHtmlList = 2, kAllList = 3 };

class ReportFiles {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        Session& session;
        const Settings& settings;
        const MailSettings& mail;
        Programs& programs;
        Browser& browser;
    };
    explicit ReportFiles(Parts parts) : p_(parts) {}

    // Shows a file in the source viewer or the browser, as the list that it stands in tells; in the list of all, by its name.
    // `folder` ends in a backslash. A name that was lower-cased shows the file that it stands for.
    void Show(std::int16_t listKind, const std::string& folder, const std::string& name) const;

    // Makes the files the attachments of the next mail and shows the dialog that sends it. Without a mail server or a sender, and
    // without a file, a message tells so instead.
    struct Attachment {
        std::string path;
        std::string name;
    };
    void Mail(const std::vector<Attachment>& attachments, const char* nothingSelected);
    bool CanMail() const;  // says what is missing

    std::function<void()> ShowEmailForm;  // modally

   private:
    Parts p_;
};

}  // namespace qv
