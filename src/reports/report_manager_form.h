// The manager of finished reports, and of logs: lists what lies in a folder, shows, mails and deletes it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "reports/report_files.h"

namespace qv {

class ReportManagerForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        Session& session;
        RunFlags& flags;
        ReportFiles& reports;
    };
    explicit ReportManagerForm(Parts parts);  // of logs when the session's ManagerShowsLogs says so

    Label Label1{*this, "Label1", "Current Reports Folder:"};
    Label LabelPath{*this, "LabelPath"};
    Label Label2{*this, "Label2", "Reports:"};
    ListBox List1{*this, "List1", ListBox::SelectionKind::Multiple};
    Frame Frame1{*this, "Frame1", "Show: "};
    OptionButton TextReports{*this, "ComReports", "Text Reports", &Frame1, 0};
    OptionButton AsciiReports{*this, "ComReports", "Ascii Reports", &Frame1, 1};
    OptionButton HtmlReports{*this, "ComReports", "HTML Reports", &Frame1, 2};
    OptionButton AllReports{*this, "ComReports", "~All Reports~", &Frame1, 3};
    CommandButton ComShow{*this, "ComShow", "Sh&ow Report"};
    CommandButton ComEmail{*this, "ComEmail", "&Email Report(s)"};
    CommandButton Command1{*this, "Command1", "&Delete Report(s)"};
    CommandButton ComBrowse{*this, "ComBrowse", "C&hange Folder..."};
    CommandButton ComClose{*this, "ComClose", "&Close"};
    CommandButton ComHelp{*this, "ComHelp", "&Help"};

   private:
    void Form_Load();
    void GetReportFiles();
    void TakeFiles(const char* mask, std::vector<std::string>& names);
    void ComReports_Click(std::int16_t kind);
    void ShowAllReports();
    void ShowButtons();
    void ComShow_Click();
    void ComEmail_Click();
    void Delete_Click();
    void ComBrowse_Click();
    bool Logs() const { return p_.session.ManagerShowsLogs != 0; }
    std::string FileOf(int row) const;  // the path of a row's file

    Parts p_;
    std::array<std::vector<std::string>, 4> realNames_;  // of the four lists: the names as the folder has them
};

}  // namespace qv
