// The Enterprise run over a main window in memory. What it drives is played by the test: each handler notes its name.
#pragma once

#include "enterprise/enterprise_files.h"
#include "enterprise/enterprise_run.h"
#include "fakes/fake_http1.h"
#include "reports/report_world.h"
#include "sitedb/load_site_record.h"

namespace qv {

struct EnterpriseWorld : ReportWorld {
    FakeHttp1 http{flags};
    SiteDatabase sites{files, session};
    SiteRecordLoader loader{sites, session, settings, http};
    EnterpriseRun run{{window, rules, session, settings, mail, flags, store, loader, saver, files, loop, clock}};

    std::vector<std::string> calls;
    std::function<void()> opens = [] {};   // what any of the three openers does
    std::function<void()> checks = [] {};  // what the check of a document does
    std::function<void()> mails = [] {};
    std::int16_t noRecipient = 0;
    std::string mailError;
    bool begins = true;  // how the dialog is closed

    EnterpriseWorld() {
        clock.local.tm_year = 126;
        clock.local.tm_mon = 10;
        clock.local.tm_mday = 21;
        clock.local.tm_hour = 9;
        clock.local.tm_min = 5;
        clock.local.tm_sec = 7;
        clock.pauses = false;
        files.folders.insert("\\home\\cache");
        settings.MakeHtmlLog = kClear;
        const auto note = [this](const char* name) { return [this, name] { calls.emplace_back(name); }; };
        run.MenuFileNew_Click = [this] {
            calls.emplace_back("new");
            window.txtFileName.Clear();
            window.TextFileName.SetText("");
        };
        run.MenuFileLocalMode_Click = [this] {
            calls.emplace_back("local mode from " + std::to_string(settings.ProgramMode));
            settings.ProgramMode = kLocalMode;
        };
        run.MenuFileNormalMode_Click = [this] {
            calls.emplace_back("internet mode from " + std::to_string(settings.ProgramMode));
            settings.ProgramMode = kInternetMode;
        };
        run.OpenLocalWebSite = [this] { Opens("local site"); };
        run.Command1_Click = [this] { Opens("site"); };
        run.ComOpen_Click = [this] { Opens("document"); };
        run.ComStart_Click = [this] {
            calls.emplace_back("check");
            checks();
        };
        run.ShowReportForm = note("show log");
        run.UnloadReportForm = note("unload log");
        run.UnloadScheduleForm = note("unload schedule");
        run.ShowBatchForm = [this] {
            calls.emplace_back("dialog");
            return begins;
        };
        run.SendReportsMail = [this](std::int16_t& none, std::string& error) {
            calls.emplace_back("mail reports");
            mails();
            none = noRecipient;
            error = mailError;
        };
        run.SendMail = [this](std::string& error) {
            calls.emplace_back("mail logs");
            mails();
            error = mailError;
        };
    }

    void Opens(const std::string& what) {
        calls.push_back(what + " " + window.TextFileName.Text());
        opens();
    }

    // Adds an entry to the database; gives its number as the list has it.
    std::string Entry(const std::string& url, const std::string& file, std::int16_t mode = kInternetMode, bool isSite = false,
                      const std::function<void(SiteRecord&)>& change = {}) {
        auto records = sites.ReadAll();
        SiteRecord record;
        record.SetText(field::SiteUrl, url);
        record.SetText(field::SiteFileName, file);
        record.SetText(field::ReportFolder, "\\home\\Reports\\");
        record.SetNumber(field::EntryMode, mode);
        record.SetNumber(field::EntryIsSite, isSite ? -1 : 0);
        if (change) change(record);
        records.push_back(record);
        sites.WriteAll(records);
        return std::to_string(records.size());
    }

    std::int16_t Check(std::vector<std::string> list, std::int16_t emode = 0) {
        settings.EnterpriseList = std::move(list);
        std::int16_t cancelled = 7;
        run.EnterpriseCheck(emode, cancelled);
        return cancelled;
    }
    std::string LogOf(const std::vector<std::string>& events) const {
        std::string text = "\r\nZephon Enterprise Check Log: November 21, 2026 - 09:05:07\r\n\r\n" + Rule();
        for (const auto& event : events) text += event == "=" ? Rule() : event + "\r\n\r\n";
        return text;
    }
    static std::string Rule() { return "===================================================\r\n\r\n"; }
    bool Called(const std::string& name) const { return std::find(calls.begin(), calls.end(), name) != calls.end(); }
};

inline constexpr const char* kTextLog = "\\home\\Logs\\Enterprise_Check_21-11-26_09.05.07AM_Log.txt";
inline constexpr const char* kHtmlLog = "\\home\\Logs\\Enterprise_Check_21-11-26_09.05.07AM_Log.htm";

}  // namespace qv
