// The main window with documents in a cache in memory, and what writes reports of them.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_loop.h"
#include "fakes/fake_programs.h"
#include "fakes/fake_windows.h"
#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "reports/frmform.h"
#include "reports/report_creation.h"
#include "reports/report_files.h"
#include "reports/report_manager_form.h"
#include "reports/report_options.h"
#include "reports/report_select_form.h"
#include "reports/save_reports.h"
#include "session/document_store.h"

namespace qv {

struct ReportWorld : testing::Test, WindowListener {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    FakePrograms programs;
    RunFlags flags;
    Session session;
    Settings settings;
    MailSettings mail;
    WindowSystem windows{[this] { Waited(); }};
    CheckForm window{windows};
    DocumentStore store{files, session};
    WindowRules rules{window, session, settings, programs, store};
    FakeWindows others;
    Browser browser{{windows, settings, programs, others, loop, clock}};
    ReportSaver saver{{window, session, settings, store, files, loop, clock}};
    ReportCreation creation{{window, rules, session, settings, mail, saver}};
    ReportFiles reports{{windows, files, session, settings, mail, programs, browser}};

    std::vector<std::string> messages;
    std::vector<std::string> answers;          // to the message boxes, in order; then the default
    std::optional<std::string> chosenFolder;   // what a file dialog gives
    FileDialogRequest dialog;                  // the last one
    std::function<void(Form&)> shown;          // what a user does at a modal form

    ReportWorld() {
        session.AppPath = "\\home\\";
        session.SiteUrl = "http://www.h.test/site/";
        session.SiteFileName = "index.htm";
        settings.ReportFolder = "\\home\\Reports\\";
        settings.LogFolder = "\\home\\Logs\\";
        settings.SourceViewerPath = "\\bin\\viewer";
        files.folders = {"\\home", "\\home\\Reports", "\\home\\Logs"};
        window.SetVisible(true);
        windows.Listen(this);
    }
    void Waited() {
        if (windows.Forms().empty()) return;
        if (shown) shown(*windows.Forms().front());
    }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        std::string answer = request.defaultButton;
        if (!answers.empty()) {
            answer = answers.front();
            answers.erase(answers.begin());
        }
        windows.Answer(answer);
    }
    void DialogShown(const FileDialogRequest& request) override {
        dialog = request;
        windows.Answer(chosenFolder);
    }
    void Beeped() override {}

    // A document of the session in the cache: text, address and status of each link.
    using Row = std::array<std::string, 3>;
    void Document(const std::string& address, std::int32_t number, const std::vector<Row>& rows, bool header = true) {
        if (number > 0) {
            std::string links;
            for (const auto& [text, url, status] : rows)
                links.append(text).append("\r\n").append(url).append("\r\n\r\n").append(status).append("\r\n\r\n");
            const std::string name = "\\home\\cache\\xlf0000" + std::to_string(number);
            files.files[name + ".lks"] = links;
            if (header) files.files[name + ".qvn"] = "s\r\nf\r\n\r\n" + address + "\r\n\r\n\r\n\r\n0\r\n";
        }
        window.txtFileName.AddItem(address, number);
        window.txtFileName.SetListIndex(0);
    }
    std::string Written(const std::string& name) const {
        const auto found = files.files.find("\\home\\Reports\\" + name);
        return found == files.files.end() ? "(none)" : found->second;
    }
};

}  // namespace qv
