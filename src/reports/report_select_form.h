// The viewer behind the creation of reports: lists the files just written.
#pragma once

#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "reports/report_files.h"

namespace qv {

class ReportSelectForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        Session& session;
        const Settings& settings;
        RunFlags& flags;
        ReportFiles& reports;
    };
    explicit ReportSelectForm(Parts parts);

    Label Label1{*this, "Label1", "Select A Report To View:"};
    ListBox List1{*this, "List1", ListBox::SelectionKind::Multiple};
    Frame Frame1{*this, "Frame1", "Show:"};
    OptionButton TextReports{*this, "ComReports", "Text Reports", &Frame1, 0};
    OptionButton AsciiReports{*this, "ComReports", "Ascii Reports", &Frame1, 1};
    OptionButton HtmlReports{*this, "ComReports", "HTML Reports", &Frame1, 2};
    CommandButton ComShow{*this, "ComShow", "Sh&ow Report"};
    CommandButton Command1{*this, "Command1", "&Email Report"};
    CommandButton ComClose{*this, "ComClose", "&Close"};

   private:
    void Form_Load();
    void ComReports_Click(std::int16_t kind);
    void ComShow_Click();
    void Email_Click();
    const std::string& Folder() const;

    Parts p_;
};

}  // namespace qv
