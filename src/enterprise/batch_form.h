// The dialog in which an Enterprise check is put together: what is checked, which logs it leaves, and whether it starts by itself.
#pragma once

#include <functional>

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "platform/files.h"
#include "session/session.h"
#include "sitedb/site_database.h"

namespace qv {

class BatchForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        const Session& session;
        Settings& settings;
        const MailSettings& mail;
        SiteDatabase& sites;
    };
    explicit BatchForm(Parts parts);

    Frame Frame1{*this, "Frame1", "STEP 1: Select Documents && Web Sites to Check"};
    ListBox List1{*this, "List1", ListBox::SelectionKind::Single, &Frame1};
    CommandButton Command1{*this, "Command1", "&Add / Remove", &Frame1};
    Frame Frame2{*this, "Frame2", "STEP 2: Enterprise Check Log Setup"};
    CheckBox Check1{*this, "Check1", "Create Event Log", &Frame2};
    CheckBox Check6{*this, "Check6", "Create an HTML Enterprise Log and Save All Reports in it", &Frame2};
    CheckBox Check7{*this, "Check7", "When Complete, Email Log to Me", &Frame2};
    Label Label1{*this, "Label1", "Folder for Log Files:", &Frame2};
    TextBox Text1{*this, "Text1", &Frame2};
    CommandButton Command6{*this, "Command6", "&Browse", &Frame2};
    CommandButton Command7{*this, "Command7", "&Log Manager", &Frame2};
    Frame Frame3{*this, "Frame3", "STEP 3: Automatic Link Checking with Windows Task Scheduler"};
    CheckBox Check5{*this, "Check5", "Auto-Check is O&ff", &Frame3};
    Label Label4{*this, "Label4",
                 "Auto-Check causes Quorvantis to automatically check your Enterprise when Quorvantis is started by Windows Task "
                 "Scheduler.",
                 &Frame3};
    OptionButton Option1{*this, "Option1", "Show Log When Check is Complete", &Frame3};
    OptionButton Option2{*this, "Option2", "Exit Quorvantis When Complete", &Frame3};
    CommandButton Command5{*this, "Command5", "&Schedule", &Frame3};
    Label Label2{*this, "Label2", "Help with Scheduling Auto-Check", &Frame3};
    Label Label3{*this, "Label3", "STEP 4: "};
    CommandButton Command2{*this, "Command2", "&Begin Enterprise Check Now"};
    CommandButton Command4{*this, "Command4", "&Save Settings && Close"};
    CommandButton Command3{*this, "Command3", "&Cancel"};
    CommandButton ComHelp{*this, "ComHelp", "&Help"};

    bool BeginEnterpriseNow() const { return begin_; }  // how it was closed

    std::function<bool()> ShowSelectForm;  // modally; true: the list was chosen anew
    std::function<void()> ShowScheduleForm;
    std::function<void()> ShowLogManager;

   private:
    void Form_Load();
    void FillList();
    void EnableMailBox();
    void Check5_Click();
    void Check7_Click();
    void Command1_Click();
    void Command5_Click();
    void Command6_Click();
    void SaveAndClose(bool begin);
    void EnableAutoCheck();

    Parts p_;
    bool loading_ = false;
    bool begin_ = false;
};

}  // namespace qv
