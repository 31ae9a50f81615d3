// The run behind the button ComStart: asks every marked link of the selected document and of those behind it.
#pragma once

#include <functional>
#include <string>

#include "check/file_probe.h"
#include "check/ftp_probe.h"
#include "check/http_probe.h"
#include "check/row_status.h"
#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class LinkCheckRun {
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
        HttpProbe& httpProbe;
        FtpProbe& ftpProbe;
        FileProbe& fileProbe;
        RowStatus& rows;
        EventLoop& loop;
    };
    explicit LinkCheckRun(Parts parts) : p_(parts) {}

    void ComStart_Click();
    void ComStop_Click();
    void ComSkip_Click();

    std::function<void()> txtFileName_Click;                    // shows the selected document's rows anew
    std::function<bool()> CompanionRunning;                     // whether the companion has its window open
    std::function<void(std::string& errorText)> CreateReports;  // the automatic reports at the end
    std::function<void()> RowJudged;                            // after each row, for a progress line

    // Writes the links of the document at hand if a run is on: for an end of the program in its middle.
    void SaveIfRunning();

    long QuestionableCount() const { return QuestionableCount_; }
    long GoodCount() const { return GoodCount_; }
    bool RunStopped() const { return RunStopped_; }

   private:
    void Begin();
    void CheckDocument();
    bool CheckRow(int row);  // false: the run was stopped
    void Settle(int row, const char* status);
    bool Judge(int row, LinkProbe& probe);
    void CheckpointIfDue(int row);
    void SaveDocument();
    void CountProgress();
    void End();
    void CreateAutomaticReports();

    Parts p_;
    long QuestionableCount_ = 0;
    long GoodCount_ = 0;
    bool RunStopped_ = false;
    bool rowsAtHand_ = false;  // the links in memory are those of the selected document, with what the run found
    EventLoop::TimerId lateCheckpoint_ = 0;
};

}  // namespace qv
