// The weekly job: its record, its file, and the dialog over a scheduler in memory.
#include "enterprise/schedule_form.h"
#include "fakes/fake_scheduler.h"
#include "reports/report_world.h"
#include "text/basic_text.h"

namespace qv {
namespace {

Schedule At(const char* hour, const char* minute, const char* half) {
    return {.ScheduleHour = hour, .ScheduleMinute = minute, .ScheduleAmPm = half};
}

TEST(MakeJob, TurnsTheTimeIntoMillisecondsBehindMidnight) {
    EXPECT_EQ(MakeJob(At("12", "00", "AM"), "").JobTime, 0U);
    EXPECT_EQ(MakeJob(At("12", "00", "PM"), "").JobTime, 43200000U);
    EXPECT_EQ(MakeJob(At("11", "59", "PM"), "").JobTime, 86340000U);
    EXPECT_EQ(MakeJob(At("1", "5", "AM"), "").JobTime, 3900000U);
    EXPECT_EQ(MakeJob(At(" 09", "30 ", "PM"), "").JobTime, 77400000U);
}

TEST(MakeJob, HasABitForEachDay) {
    Schedule schedule = At("1", "0", "AM");
    EXPECT_EQ(MakeJob(schedule, "").DaysOfWeek, 0);
    const int bits[] = {1, 2, 4, 8, 16, 32, 64};
    for (std::size_t day = 0; day < 7; ++day) {
        schedule.ScheduleDays = {};
        schedule.ScheduleDays[0] = kDayCodes[day];  // the code tells the day, not its place
        EXPECT_EQ(MakeJob(schedule, "").DaysOfWeek, bits[day]) << day;
    }
    schedule.ScheduleDays = {"M", "T", "W", "TH", "F", "S", "SU"};
    EXPECT_EQ(MakeJob(schedule, "").DaysOfWeek, 127);
    schedule.ScheduleDays = {"x", "m"};
    EXPECT_EQ(MakeJob(schedule, "").DaysOfWeek, 0);
}

TEST(MakeJob, NamesTheStarterInQuotationMarks) {
    const Job job = MakeJob(At("1", "0", "AM"), "\\home of mine\\");
    EXPECT_EQ(job.Command, "\"\\home of mine\\autocheck.exe\"");
    EXPECT_EQ(job.DaysOfMonth, 0U);
    EXPECT_EQ(job.Flags, 1);
}

TEST(HasValidTime, KnowsAClockOfTwelveHours) {
    for (const auto& [hour, minute] : {std::pair{"1", "0"}, {"12", "59"}, {"01", "00"}, {"9x", "5"}, {"9", ""}})
        EXPECT_TRUE(HasValidTime(At(hour, minute, "AM"))) << hour << ":" << minute;
    for (const auto& [hour, minute] : {std::pair{"0", "0"}, {"13", "0"}, {"", "0"}, {"ab", "0"}, {"9", "60"}, {"9", "-1"}, {"-9", "1"}, {"12.5", "1"}})
        EXPECT_FALSE(HasValidTime(At(hour, minute, "AM"))) << hour << ":" << minute;
}

TEST(SetTime, ShowsMidnightAndNoonAsTwelve) {
    const auto text = [](int hour, int minute) {
        Schedule s;
        SetTime(s, hour, minute);
        return s.ScheduleHour + ":" + s.ScheduleMinute + s.ScheduleAmPm;
    };
    EXPECT_EQ(text(0, 5), "12:05AM");
    EXPECT_EQ(text(11, 59), "11:59AM");
    EXPECT_EQ(text(12, 0), "12:00PM");
    EXPECT_EQ(text(13, 7), "01:07PM");
    EXPECT_EQ(text(23, 59), "11:59PM");
}

constexpr const char* kFile = "host\r\n9\r\n05\r\nPM\r\nM\r\n\r\n\r\nTH\r\n\r\n\r\nSU\r\nAT7\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";

TEST(ScheduleFile, HasTwelveValuesAndNineEmptyLines) {
    Schedule schedule;
    ParseSchedule(kFile, schedule);
    EXPECT_EQ(schedule.ScheduleComputer, "host");
    EXPECT_EQ(schedule.ScheduleHour, "9");
    EXPECT_EQ(schedule.ScheduleMinute, "05");
    EXPECT_EQ(schedule.ScheduleAmPm, "PM");
    EXPECT_EQ(schedule.ScheduleDays, (std::array<std::string, 7>{"M", "", "", "TH", "", "", "SU"}));
    EXPECT_EQ(schedule.ScheduleTaskName, "AT7");
    EXPECT_EQ(ComposeSchedule(schedule), kFile);
}

TEST(ScheduleFile, ThatIsCutShortKeepsWhatItDoesntTell) {
    Schedule schedule = At("1", "2", "AM");
    ParseSchedule("host\r\n9", schedule);
    EXPECT_EQ(schedule.ScheduleComputer, "host");
    EXPECT_EQ(schedule.ScheduleHour, "9");
    EXPECT_EQ(schedule.ScheduleMinute, "2");
}

struct ScheduleFormTest : ReportWorld {
    FakeScheduler scheduler;
    Schedule schedule;
    std::unique_ptr<ScheduleForm> form;
    static constexpr const char* kPath = "\\home\\schedcfg.zdt";

    void Open() {
        form = std::make_unique<ScheduleForm>(
            ScheduleForm::Parts{windows, files, scheduler, clock, session.AppPath, schedule});
        windows.Show(*form);
    }
    void OpenWithJob() {
        files.files[kPath] = kFile;
        scheduler.ids = {3, 7, 12};
        Open();
    }
    std::vector<std::string> Disabled() const {
        std::vector<std::string> names;
        for (const Control* control : form->Controls())
            if (!control->Enabled()) names.push_back(control->AddressName());
        return names;
    }
    std::string Days() const {
        std::string days;
        for (const auto& day : form->CheckDay) days += day->Checked() ? '1' : '0';
        return days;
    }
};

TEST_F(ScheduleFormTest, FirstLoadHasMondayThePresentTimeAndThisComputer) {
    clock.local.tm_hour = 15;
    clock.local.tm_min = 8;
    Open();
    EXPECT_EQ(form->Text1.Text(), "this-computer");
    EXPECT_EQ(Days(), "1000000");
    EXPECT_EQ(schedule.ScheduleDays[0], "M");
    EXPECT_EQ(form->TextHour.Text() + ":" + form->TextMinute.Text() + form->ComboAMPM.Text(), "03:08PM");
    EXPECT_EQ(form->ScrollLabelTop.Value(), 3);
    EXPECT_EQ(form->ScrollLabelLeft.Value(), 8);
    EXPECT_EQ(Disabled(), std::vector<std::string>{"Command3"});
    EXPECT_EQ(form->LabelStatus.Caption(), "");
}

TEST_F(ScheduleFormTest, ShowsWhatWasStoredAndTheTimeAsItsBarsWriteIt) {
    files.files[kPath] = kFile;
    Open();
    EXPECT_EQ(form->Text1.Text(), "host");
    EXPECT_EQ(form->TextHour.Text(), "09");
    EXPECT_EQ(form->ScrollLabelTop.Value(), 9);
    EXPECT_EQ(form->ComboAMPM.ListIndex(), 1);
    EXPECT_EQ(Days(), "1001001");
}

TEST_F(ScheduleFormTest, ABarWritesTwoDigitsAndGoesOnFromWhatWasTyped) {
    files.files[kPath] = kFile;
    Open();
    form->ScrollLabelTop.SetValue(8);
    EXPECT_EQ(form->TextHour.Text(), "08");
    form->TextMinute.EnterText("7");
    EXPECT_EQ(form->TextMinute.Text(), "7");
    EXPECT_EQ(form->ScrollLabelLeft.Value(), 7);
    form->ScrollLabelLeft.SetValue(59);
    EXPECT_EQ(form->TextMinute.Text(), "59");
    form->TextMinute.EnterText("77");
    EXPECT_EQ(form->ScrollLabelLeft.Value(), 59);
    EXPECT_EQ(form->ScrollLabelTop.Min(), 1);
    EXPECT_EQ(form->ScrollLabelTop.Max(), 12);
    EXPECT_EQ(form->ScrollLabelLeft.Max(), 59);
}

TEST_F(ScheduleFormTest, AKnownJobOffersItsDeletion) {
    OpenWithJob();
    EXPECT_EQ(Disabled(), (std::vector<std::string>{"Label1", "Text1", "Label3", "CheckDay(0)", "CheckDay(1)", "CheckDay(2)",
                                                    "CheckDay(3)", "CheckDay(4)", "CheckDay(5)", "CheckDay(6)", "Label5", "TextHour",
                                                    "ScrollLabelTop", "TextMinute", "ScrollLabelLeft", "ComboAMPM"}));
    EXPECT_EQ(form->LabelStatus.Caption(),
              "Click the button at right to delete the currently scheduled Enterprise Check 'AT7'.");
    EXPECT_EQ(scheduler.asked, (std::vector<std::string>{"enumerate host 0", "enumerate host 1", "enumerate host 2"}));
}

TEST_F(ScheduleFormTest, AJobThatTheSchedulerDoesntKnowIsNone) {
    scheduler.ids = {1, 77};
    files.files[kPath] = kFile;
    Open();
    EXPECT_EQ(Disabled(), std::vector<std::string>{"Command3"});
}

TEST_F(ScheduleFormTest, AFailingEnumerationIsNoJob) {
    scheduler.enumerateStatus = 5;
    OpenWithJob();
    EXPECT_EQ(Disabled(), std::vector<std::string>{"Command3"});
    EXPECT_TRUE(messages.empty());
}

TEST_F(ScheduleFormTest, WrongInputsAreRefusedAndTheFormStays) {
    Open();
    form->TextHour.EnterText("13");
    form->Text1.EnterText("  ");
    form->Command2.Click();
    EXPECT_TRUE(form->Text1.HasFocus());
    form->Text1.EnterText("host");
    form->Command2.SetFocus();
    form->Command2.Click();
    form->TextHour.EnterText("0");
    form->Command2.SetFocus();
    form->Command2.Click();
    EXPECT_TRUE(form->TextHour.HasFocus());
    form->TextHour.EnterText("1");
    form->TextMinute.EnterText("60");
    form->Command2.SetFocus();
    form->Command2.Click();
    EXPECT_TRUE(form->TextMinute.HasFocus());
    EXPECT_EQ(messages, (std::vector<std::string>{"Invalid computer name, please re-enter.", "Invalid time, please re-enter.",
                                                  "Invalid time, please re-enter.", "Invalid time, please re-enter."}));
    EXPECT_TRUE(form->Loaded());
    EXPECT_FALSE(files.FileExists(kPath));
    EXPECT_TRUE(scheduler.added.empty());
}

TEST_F(ScheduleFormTest, ScheduleAddsAJobAndRemembersIt) {
    Open();
    form->Text1.EnterText(" host ");
    form->TextHour.EnterText("9");
    form->TextMinute.EnterText("05");
    form->ComboAMPM.ClickItem(1);
    form->CheckDay[3]->SetValue(1);
    form->CheckDay[6]->SetValue(1);
    scheduler.nextId = 7;
    form->Command2.Click();
    EXPECT_EQ(messages.back(), "Your Enterprise Check has been scheduled as Task 'AT7' in Windows Task Scheduler.");
    EXPECT_EQ(scheduler.asked.back(), "add host");
    EXPECT_EQ(scheduler.added[0].JobTime, 75900000U);
    EXPECT_EQ(scheduler.added[0].DaysOfWeek, 1 + 8 + 64);
    EXPECT_EQ(scheduler.added[0].Command, "\"\\home\\autocheck.exe\"");
    EXPECT_EQ(files.files[kPath], kFile);
    EXPECT_FALSE(form->Loaded());
}

TEST_F(ScheduleFormTest, AJobWithoutADayIsAddedAllTheSame) {
    Open();
    form->CheckDay[0]->SetValue(0);
    form->Command2.Click();
    ASSERT_EQ(scheduler.added.size(), 1U);
    EXPECT_EQ(scheduler.added[0].DaysOfWeek, 0);
}

TEST_F(ScheduleFormTest, AFailureIsToldAndForgetsTheTask) {
    constexpr const char* told =
        "An error occurred that prevented scheduling your Enterprise Check. Is the Computer Name you entered correct? If the failure "
        "persists you will have to schedule Quorvantis manually from Windows Task Scheduler. See the Help File.";
    for (const auto& [status, id] : {std::pair<JobScheduler::Status, std::uint32_t>{5, 1}, {0, 0}}) {
        files.files[kPath] = kFile;
        scheduler.status = status;
        scheduler.nextId = id;
        Open();
        form->Command2.Click();
        EXPECT_EQ(messages.back(), told);
        EXPECT_EQ(files.files[kPath], ReplaceAll(ReplaceAll(kFile, "AT7", ""), "\r\n9\r\n", "\r\n09\r\n"));
        EXPECT_FALSE(form->Loaded());
    }
}

TEST_F(ScheduleFormTest, DeleteAsksAndGivesTheInputsBack) {
    OpenWithJob();
    answers = {"No"};
    form->Command3.Click();
    EXPECT_EQ(messages.back(), "Are you sure you want to delete the scheduled Enterprise Check named 'AT7' from Task Scheduler?");
    EXPECT_NE(scheduler.asked.back(), "delete host 7 7");
    answers = {"Yes"};
    form->Command3.Click();
    EXPECT_EQ(scheduler.asked.back(), "delete host 7 7");
    EXPECT_EQ(Disabled(), std::vector<std::string>{"Command3"});
    EXPECT_EQ(form->LabelStatus.Caption(), "\r\nThe scheduled Enterprise Check was deleted.");
    EXPECT_EQ(form->Command1.Caption(), "&Close");
    EXPECT_EQ(files.files[kPath], kFile);
    form->Command1.Click();
    EXPECT_EQ(files.files[kPath], ReplaceAll(kFile, "AT7", ""));
    EXPECT_FALSE(form->Loaded());
}

TEST_F(ScheduleFormTest, NoIsTheDefaultOfTheQuestion) {
    OpenWithJob();
    form->Command3.Click();
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(form->Command1.Caption(), "&Cancel");
}

TEST_F(ScheduleFormTest, OfALongTaskNameTheLastDigitAloneCounts) {
    files.files[kPath] = ReplaceAll(kFile, "AT7", "AT12");
    scheduler.ids = {12};
    scheduler.status = 5;  // a failure goes unnoticed
    Open();
    answers = {"Yes"};
    form->Command3.Click();
    EXPECT_EQ(scheduler.asked.back(), "delete host 2 2");
    EXPECT_EQ(form->Command1.Caption(), "&Close");
    EXPECT_EQ(messages.size(), 1U);
}

TEST_F(ScheduleFormTest, CancelWritesNothing) {
    Open();
    form->TextHour.EnterText("4");
    form->Command1.Click();
    EXPECT_FALSE(files.FileExists(kPath));
    EXPECT_FALSE(form->Loaded());
}

TEST_F(ScheduleFormTest, TheFileIsReadAtTheStart) {
    ReadSchedule(files, "\\home\\", schedule);
    EXPECT_EQ(schedule.ScheduleComputer, "");
    files.files[kPath] = kFile;
    ReadSchedule(files, "\\home\\", schedule);
    EXPECT_EQ(schedule.ScheduleTaskName, "AT7");
}

}  // namespace
}  // namespace qv
