// The dialog that puts a check together, and the choice of entries.
#include "enterprise/batch_form.h"
#include "enterprise/enterprise_world.h"
#include "enterprise/select_form.h"

namespace qv {
namespace {

using Texts = std::vector<std::string>;
using Numbers = std::vector<int>;
constexpr const char* kList = "\\home\\batchlst.zdt";
constexpr const char* kAuto = "\\home\\nwautogo.zdt";
constexpr const char* kNew = "\\home\\newencfg.zdt";

struct BatchFormTest : EnterpriseWorld {
    std::unique_ptr<BatchForm> form;

    BatchFormTest() {
        Entry("http://h/ls/", "i.htm", kLocalMode, true);
        Entry("http://h/ld/", "l.htm", kLocalMode, false);
        Entry("http://h/s/", "", kInternetMode, true);
        Entry("http://h/d/", "d.htm", kInternetMode, false);
    }
    void Open() {
        form = std::make_unique<BatchForm>(BatchForm::Parts{windows, files, session, settings, mail, sites});
        form->ShowSelectForm = [this] { return chosen(); };
        form->ShowScheduleForm = [this] { calls.emplace_back("schedule"); };
        form->ShowLogManager = [this] { calls.emplace_back("logs"); };
        windows.Show(*form);
    }
    void OpenOver(const std::string& list) {
        files.files[kList] = list;
        Open();
    }
    static Texts Rows(const ListBox& list) {
        Texts texts;
        for (int row = 0; row < list.Count(); ++row) texts.push_back(std::to_string(list.ItemData(row)) + " " + list.Text(row));
        return texts;
    }
    std::function<bool()> chosen = [] { return false; };
};

TEST_F(BatchFormTest, ShowsTheListInTheOrderOfTheRun) {
    settings.EnterpriseList = {"77"};
    OpenOver("3\r\n4\r\n1\r\n3\r\n");
    EXPECT_EQ(Rows(form->List1), (Texts{"4 Internet Document: http://h/d/d.htm", "1 Local Site: http://h/ls/", "3 Internet Site: http://h/s/"}));
    EXPECT_EQ(settings.EnterpriseList, (Texts{"4", "1", "3"}));
}

TEST_F(BatchFormTest, ForgetsTheListInMemoryWithoutAFile) {
    settings.EnterpriseList = {"1"};
    Open();
    EXPECT_TRUE(settings.EnterpriseList.empty());
    EXPECT_EQ(form->List1.Count(), 0);
}

TEST_F(BatchFormTest, AnElementBehindTheDatabaseHasALineOfNoEntry) {
    OpenOver("1\r\n9\r\n");
    EXPECT_EQ(Rows(form->List1), Texts{"9 Internet Document: "});
}

TEST_F(BatchFormTest, APressLeavesNoHighlight) {
    OpenOver("2\r\n4\r\n1\r\n");
    form->List1.ClickRow(1);
    EXPECT_EQ(form->List1.ListIndex(), -1);
    EXPECT_FALSE(form->List1.Selected(1));
}

TEST_F(BatchFormTest, ShowsTheSettings) {
    settings.MakeEventLog = kSet;
    settings.ExitWhenComplete = kSet;
    settings.EmailLogs = kSet;
    settings.LogFolder = "\\l";
    Open();
    EXPECT_TRUE(form->Check1.Checked());
    EXPECT_FALSE(form->Check6.Checked());
    EXPECT_TRUE(form->Check7.Checked());
    EXPECT_TRUE(form->Option2.Value());
    EXPECT_FALSE(form->Option1.Value());
    EXPECT_EQ(form->Text1.Text(), "\\home\\Logs\\");
    EXPECT_TRUE(messages.empty()) << "no mail settings, and no click";
}

TEST_F(BatchFormTest, AutoCheckIsOnWithItsFile) {
    Open();
    EXPECT_FALSE(form->Check5.Checked());
    EXPECT_EQ(form->Check5.Caption(), "Auto-Check is O&ff");
    EXPECT_FALSE(form->Command5.Enabled());
    EXPECT_TRUE(form->Option1.Value());
    form->Close();
    files.files[kAuto] = "";
    Open();
    EXPECT_TRUE(form->Check5.Checked());
    EXPECT_EQ(form->Check5.Caption(), "Auto-Check is O&ff") << "until it is first changed";
    for (const Control* control : {static_cast<Control*>(&form->Command5), static_cast<Control*>(&form->Option1)})
        EXPECT_TRUE(control->Enabled());
    EXPECT_TRUE(messages.empty()) << "the list is empty, and nobody clicked";
}

TEST_F(BatchFormTest, AutoCheckChangesItsCaptionAndWhatGoesWithIt) {
    OpenOver("1\r\n1\r\n");
    form->Check5.SetValue(1);
    EXPECT_EQ(form->Check5.Caption(), "Auto-Check is O&N");
    EXPECT_TRUE(form->Command5.Enabled() && form->Option1.Enabled() && form->Option2.Enabled());
    form->Check5.SetValue(0);
    EXPECT_EQ(form->Check5.Caption(), "Auto-Check is O&FF");
    EXPECT_FALSE(form->Command5.Enabled() || form->Option1.Enabled() || form->Option2.Enabled());
}

TEST_F(BatchFormTest, AutoCheckNeedsAList) {
    Open();
    form->Check5.SetValue(1);
    EXPECT_EQ(messages, Texts{"No Documents or Sites Have Been Added Yet."});
    EXPECT_FALSE(form->Check5.Checked());
    EXPECT_FALSE(form->Command5.Enabled());
}

TEST_F(BatchFormTest, TheMailBoxGoesWithTheLogs) {
    Open();
    EXPECT_FALSE(form->Check7.Enabled());
    form->Check1.SetValue(1);
    EXPECT_TRUE(form->Check7.Enabled());
    form->Check6.SetValue(1);
    form->Check1.SetValue(0);
    EXPECT_TRUE(form->Check7.Enabled());
    mail.MailServer = "m";
    mail.MailFromAddress = "a@b";
    form->Check7.SetValue(1);
    form->Check6.SetValue(0);
    EXPECT_FALSE(form->Check7.Enabled());
    EXPECT_TRUE(form->Check7.Checked());
    EXPECT_TRUE(messages.empty());
}

TEST_F(BatchFormTest, TheMailBoxNeedsMailSettings) {
    settings.MakeEventLog = kSet;
    Open();
    const Texts told(2, "Before you select this option, you must enter your Email information in Quorvantis Preferences (Under the "
                        "'Edit' Menu).");
    mail.MailServer = "m";
    form->Check7.SetValue(1);
    EXPECT_FALSE(form->Check7.Checked());
    mail.MailServer = " ";
    mail.MailFromAddress = "a@b";
    form->Check7.SetValue(1);
    EXPECT_FALSE(form->Check7.Checked());
    EXPECT_EQ(messages, told);
}

TEST_F(BatchFormTest, ScheduleNeedsAList) {
    files.files[kAuto] = "";
    Open();
    form->Command5.Click();
    EXPECT_EQ(messages, Texts{"No Documents or Sites Have Been Added In STEP 1 Yet. Add Them and Try Again."});
    EXPECT_TRUE(calls.empty());
    form->Close();
    OpenOver("1\r\n1\r\n");
    form->Command5.Click();
    EXPECT_EQ(calls, Texts{"schedule"});
}

TEST_F(BatchFormTest, BrowseTakesTheFolder) {
    Open();
    form->Command6.Click();
    EXPECT_EQ(form->Text1.Text(), "\\home\\Logs\\");
    EXPECT_EQ(dialog.title, "Locate Folder for Reports...");
    EXPECT_EQ(dialog.filter, "Folders (*.)|*.");
    EXPECT_EQ(dialog.name, "*.");
    EXPECT_EQ(dialog.folder, "\\home\\Logs\\");
    chosenFolder = "\\other\\place\\file.txt";
    form->Command6.Click();
    EXPECT_EQ(form->Text1.Text(), "\\other\\place\\");
}

TEST_F(BatchFormTest, AChoiceIsWrittenAtOnceAndStaysBehindACancel) {
    OpenOver("1\r\n1\r\n");
    form->Command1.Click();
    EXPECT_EQ(files.files[kList], "1\r\n1\r\n");
    chosen = [this] {
        settings.EnterpriseList = {"4", "2"};
        return true;
    };
    form->Command1.Click();
    EXPECT_EQ(Rows(form->List1), (Texts{"4 Internet Document: http://h/d/d.htm", "2 Local Document: http://h/ld/l.htm"}));
    form->Command3.Click();
    EXPECT_EQ(files.files[kList], "2\r\n4\r\n2\r\n");
    EXPECT_FALSE(files.FileExists(kNew));
    EXPECT_FALSE(form->BeginEnterpriseNow());
}

TEST_F(BatchFormTest, NothingIsSavedWithoutAList) {
    Open();
    form->Command2.Click();
    form->Command4.Click();
    EXPECT_EQ(messages, Texts(2, "No Documents or Sites Have Been Added Yet."));
    EXPECT_TRUE(form->Loaded());
    EXPECT_FALSE(files.FileExists(kNew));
}

TEST_F(BatchFormTest, BeginAndSaveWriteTheSameFiles) {
    for (const bool begin : {true, false}) {
        files.files.erase(kAuto);
        OpenOver("1\r\n1\r\n");
        form->Check1.SetValue(1);
        form->Check5.SetValue(1);
        form->Option2.SetValue(true);
        form->Text1.EnterText("  /my logs ");
        (begin ? form->Command2 : form->Command4).Click();
        EXPECT_EQ(files.files[kAuto], "-1\r\n 0\r\n-1\r\n 0\r\n\\my logs\\\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
        EXPECT_EQ(files.files[kNew], "-1\r\n 0\r\n-1\r\n 0\r\n\\my logs\\\r\n\r\n\r\n\r\n\r\n\r\n");
        EXPECT_EQ(settings.LogFolder, "\\my logs\\");
        EXPECT_EQ(settings.MakeEventLog, -1);
        EXPECT_EQ(settings.ExitWhenComplete, -1);
        EXPECT_EQ(form->BeginEnterpriseNow(), begin);
        EXPECT_FALSE(form->Loaded());
        settings.ExitWhenComplete = settings.MakeEventLog = kClear;
    }
}

TEST_F(BatchFormTest, SaveWithAutoCheckOffDropsItsFile) {
    files.files[kAuto] = "x";
    OpenOver("1\r\n1\r\n");
    form->Check5.SetValue(0);
    form->Command4.Click();
    EXPECT_FALSE(files.FileExists(kAuto));
    EXPECT_TRUE(files.FileExists(kNew));
}

TEST_F(BatchFormTest, FailuresOfTheDiskArePassedOver) {
    OpenOver("1\r\n1\r\n");
    files.writesFail = true;
    form->Command2.Click();
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(form->BeginEnterpriseNow());
}

TEST_F(BatchFormTest, TheLogManagerIsAButtonAway) {
    Open();
    form->Command7.Click();
    EXPECT_EQ(calls, Texts{"logs"});
}

struct SelectFormTest : BatchFormTest {
    std::unique_ptr<SelectForm> select;
    Texts list;

    void Choose(Texts before) {
        list = std::move(before);
        select = std::make_unique<SelectForm>(SelectForm::Parts{windows, sites, list});
        windows.Show(*select);
    }
    static Numbers Data(const ListBox& box) {
        Numbers numbers;
        for (int row = 0; row < box.Count(); ++row) numbers.push_back(box.ItemData(row));
        return numbers;
    }
    std::string Buttons() const {
        std::string enabled;
        for (const CommandButton* button : {&select->ComAdd, &select->ComRemove, &select->ComRemoveAll}) enabled += button->Enabled() ? '1' : '0';
        return enabled;
    }
};

TEST_F(SelectFormTest, PartsTheDatabaseInItsOwnOrder) {
    Choose({"4", "2"});
    EXPECT_EQ(Rows(select->List1), (Texts{"1 Local Site: http://h/ls/", "3 Internet Site: http://h/s/"}));
    EXPECT_EQ(Rows(select->List2), (Texts{"2 Local Document: http://h/ld/l.htm", "4 Internet Document: http://h/d/d.htm"}));
    EXPECT_TRUE(select->List1.Selected(0));
    EXPECT_EQ(select->List1.ListIndex(), 0);
    EXPECT_EQ(select->List2.SelectedCount(), 0);
    EXPECT_EQ(Buttons(), "101");
}

TEST_F(SelectFormTest, AnEmptySideHasNoButtons) {
    Choose({});
    EXPECT_EQ(Buttons(), "100");
    select->Close();
    Choose({"1", "2", "3", "4"});
    EXPECT_EQ(Buttons(), "001");
    select->Close();
    files.files.erase("\\home\\sitedata.zdt");
    Choose({"1"});
    EXPECT_EQ(Buttons(), "000");
}

TEST_F(SelectFormTest, AddMovesWhatIsSelectedToTheEnd) {
    Choose({"4"});
    select->List1.ClickRow(2);
    select->ComAdd.Click();
    EXPECT_EQ(Data(select->List1), Numbers{2});
    EXPECT_EQ(Data(select->List2), (Numbers{4, 1, 3}));
    EXPECT_EQ(Buttons(), "101");
    select->ComAdd.Click();
    EXPECT_EQ(Data(select->List1), Numbers{2}) << "nothing is selected";
    select->List1.ClickRow(0);
    select->ComAdd.Click();
    EXPECT_EQ(Buttons(), "001");
}

TEST_F(SelectFormTest, RemoveNeedsAClickEachTime) {
    Choose({"1", "2"});
    select->List2.ClickRow(1);
    EXPECT_EQ(Buttons(), "111");
    select->ComRemove.Click();
    EXPECT_EQ(Data(select->List1), (Numbers{3, 4, 2}));
    EXPECT_EQ(Buttons(), "101");
    select->List2.ClickRow(0);
    select->ComRemove.Click();
    EXPECT_EQ(Buttons(), "100");
}

TEST_F(SelectFormTest, RemoveGivesAddBack) {
    Choose({"1", "2", "3", "4"});
    select->List2.ClickRow(0);
    select->ComRemove.Click();
    EXPECT_EQ(Buttons(), "101");
}

TEST_F(SelectFormTest, RemoveAllMovesEverything) {
    Choose({"1", "4"});
    select->List2.ClickRow(0);
    select->ComRemoveAll.Click();
    EXPECT_EQ(Data(select->List1), (Numbers{2, 3, 1, 4}));
    EXPECT_EQ(Buttons(), "100");
}

TEST_F(SelectFormTest, DoneGivesTheChoiceAndCancelLeavesIt) {
    Choose({"4"});
    select->ComAdd.Click();
    select->ComCancel.Click();
    EXPECT_TRUE(select->SelectCancelled());
    EXPECT_EQ(list, Texts{"4"});
    Choose({"4"});
    select->ComAdd.Click();
    select->ComOkay.Click();
    EXPECT_FALSE(select->SelectCancelled());
    EXPECT_EQ(list, (Texts{"4", "1"}));
    Choose({"4"});
    select->ComRemoveAll.Click();
    select->ComOkay.Click();
    EXPECT_TRUE(list.empty());
}

}  // namespace
}  // namespace qv
