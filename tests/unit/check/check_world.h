// The main window with its handlers over fakes: for tests of the retrieval steps, the document open and the check run.
#pragma once

#include <gtest/gtest.h>

#include "check/http_probe.h"
#include "check/link_check_run.h"
#include "check/link_recheck.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_ftp1.h"
#include "fakes/fake_http1.h"
#include "fakes/fake_ip_info1.h"
#include "fakes/fake_loop.h"
#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "retrieve/document_open.h"
#include "retrieve/http_session.h"
#include "session/document_store.h"
#include "session/link_rows.h"

namespace qv {

class NoPrograms : public Programs {
   public:
    bool Exists(const std::string&) const override { return false; }
    bool Start(const std::string& path, const std::vector<std::string>& arguments) override {
        started.push_back(path + " " + arguments.at(0));
        return true;
    }
    bool OpenWithDesktop(const std::string&) override { return false; }
    std::vector<std::string> started;
};

class LoopTimers : public TimerService {
   public:
    explicit LoopTimers(FakeLoop& loop) : loop_(loop) {}
    void TimerGone(Timer& timer) override {
        loop_.StopTimer(ids_[&timer]);
        ids_.erase(&timer);
    }
    void TimerChanged(Timer& timer) override {
        TimerGone(timer);
        if (timer.Running() && timer.Interval() > 0)
            ids_[&timer] = loop_.StartTimer(std::chrono::milliseconds{timer.Interval()}, true, [&timer] { timer.Tick(); });
    }

   private:
    FakeLoop& loop_;
    std::map<Timer*, EventLoop::TimerId> ids_;
};

struct CheckWorld : testing::Test, WindowListener {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    LoopTimers timers{loop};
    NoPrograms programs;
    RunFlags flags;
    FakeHttp1 http{flags};
    FakeIpInfo1 ipInfo;
    Session session;
    Settings settings;
    WindowSystem windows{[this] { loop.WaitFor(1); }};
    CheckForm window{windows};
    DocumentStore store{files, session};
    WindowRules rules{window, session, settings, programs, store};
    LinkRows rows{window.List1, window.FontNamePicture, session, settings, flags};
    HyperlinkImporter importer{files, loop,    clock,
                               http,  session, settings,
                               flags, windows, {window.ProgressBar1, window.Picture1, window.ComHide, window.List1}};
    HttpSession steps{{window, session, settings, flags, http, ipInfo, loop, clock, files}};
    DocumentOpen documentOpen{
        {window, rules, session, settings, flags, store, rows, http, steps, importer, loop, files, programs}};
    HttpProbe httpProbe{window, settings, flags, http, steps, loop};
    FakeFtp1 ftp{flags};
    FtpProbe ftpProbe{settings, flags, http, ftp, steps};
    FileProbe fileProbe{settings, flags, http, steps, files};
    RowStatus rowStatus{window, session, store, rows};
    LinkCheckRun run{
        {window, rules, session, settings, flags, store, http, steps, httpProbe, ftpProbe, fileProbe, rowStatus, loop}};
    LinkRecheck recheck{
        {window, rules, session, settings, flags, http, steps, httpProbe, ftpProbe, fileProbe, rowStatus, loop}};
    std::vector<std::string> messages;
    std::string answer;  // to each message; empty: the default button

    CheckWorld() {
        session.AppPath = "\\home\\";
        clock.pauses = false;
        window.Timer1.Use(&timers);
        window.Timer1.Tick = [this] { steps.Timer1_Timer(); };
        window.SetVisible(true);
        windows.Listen(this);
        run.txtFileName_Click = [] {};
        window.ComStop.Click = [this] { run.ComStop_Click(); };
        window.ComSkip.Click = [this] { run.ComSkip_Click(); };
        window.ComOpen.Click = [this] { documentOpen.ComOpen_Click(); };
    }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        windows.Answer(answer.empty() ? request.defaultButton : answer);
    }
    void DialogShown(const FileDialogRequest&) override { windows.Answer(std::nullopt); }
    void Beeped() override {}

    // A document with these links, shown and selected.
    void Document(const std::vector<std::string>& urls) {
        for (const auto& url : urls) session.Links.Add("a link", url, {}, "");
        session.CurrentDocumentUrl = "http://1.1.1.1/doc.htm";
        window.txtFileName.AddItem(session.CurrentDocumentUrl, 1);
        window.txtFileName.SetListIndex(0);
        rows.AddAllRows();
    }
    std::vector<std::string> Check() {
        run.ComStart_Click();
        std::vector<std::string> statuses;
        for (std::size_t i = 1; i < session.Links.LinkFlags.size(); ++i)
            statuses.emplace_back(session.Links.LinkFlags[i].TrimmedStatus());
        return statuses;
    }
    std::string Bytes(const std::string& name) { return files.files["\\home\\" + name]; }
};

}  // namespace qv
