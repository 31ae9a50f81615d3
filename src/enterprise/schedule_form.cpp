#include "enterprise/schedule_form.h"

#include <tuple>
#include <utility>
#include <vector>

#include "controls/window_system.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kFile = "schedcfg.zdt";
constexpr const char* kCaptionClose = "&Close";
constexpr const char* kBadComputer = "Invalid computer name, please re-enter.";
constexpr const char* kBadTime = "Invalid time, please re-enter.";
constexpr const char* kNotScheduled =
    "An error occurred that prevented scheduling your Enterprise Check. Is the Computer Name you entered correct? If the failure "
    "persists you will have to schedule Quorvantis manually from Windows Task Scheduler. See the Help File.";
constexpr std::array<const char*, 7> kDayNames = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};

std::string TaskName(std::uint32_t id) { return "AT" + std::to_string(id); }

}  // namespace

void ReadSchedule(const Files& files, const std::string& appPath, Schedule& schedule) {
    std::string bytes;
    if (files.Read(appPath + kFile, bytes)) ParseSchedule(bytes, schedule);
}

std::array<std::unique_ptr<CheckBox>, 7> ScheduleForm::MakeDays() {
    std::array<std::unique_ptr<CheckBox>, 7> days;
    for (std::size_t day = 0; day < days.size(); ++day)
        days[day] = std::make_unique<CheckBox>(*this, "CheckDay", kDayNames[day], &Frame1, static_cast<int>(day));
    return days;
}

ScheduleForm::ScheduleForm(Parts parts) : Form(parts.windows, "ScheduleForm", "Schedule Enterprise Check"), p_(parts) {
    SetSize(520, 420);
    SetDefaultButton(&Command2);
    SetCancelButton(&Command1);
    ScrollLabelTop.SetRange(1, 12);
    ScrollLabelLeft.SetRange(0, 59);
    ComboAMPM.AddItem("AM");
    ComboAMPM.AddItem("PM");
    Load = [this] { Form_Load(); };
    for (const auto& [text, bar] : {std::pair{&TextHour, &ScrollLabelTop}, std::pair{&TextMinute, &ScrollLabelLeft}}) {
        bar->Change = [this, text = text, bar = bar] {
            if (!following_) text->SetText(TwoDigits(bar->Value()));
        };
        text->Change = [this, text = text, bar = bar] { Follow(*text, *bar); };
    }
    Command2.Click = [this] { Schedule_Click(); };
    Command3.Click = [this] { Delete_Click(); };
    Command1.Click = [this] { Close_Click(); };
}

// The next step of a bar goes on from what was typed.
void ScheduleForm::Follow(TextBox& text, ScrollBar& bar) {
    const auto value = LeadingInt32(text.Text());
    if (!value || *value < bar.Min() || *value > bar.Max()) return;
    following_ = true;
    bar.SetValue(*value);
    following_ = false;
}

void ScheduleForm::Form_Load() {
    Schedule& s = p_.schedule;
    Centre();
    ReadSchedule(p_.files, p_.appPath, s);
    if (s.ScheduleComputer.empty()) s.ScheduleComputer = p_.scheduler.ComputerName();
    Text1.SetText(s.ScheduleComputer);
    ShowDays();
    ShowTime();
    std::int16_t found = 0;
    GetCurrentJob(found);
    if (found == 0) {
        Command3.SetEnabled(false);
        return;
    }
    EnableInputs(false);
    LabelStatus.SetCaption("Click the button at right to delete the currently scheduled Enterprise Check '" + s.ScheduleTaskName +
                           "'.");
}

void ScheduleForm::ShowDays() {
    auto& days = p_.schedule.ScheduleDays;
    bool any = false;
    for (const auto& code : days) any = any || !code.empty();
    if (!any) days[0] = kDayCodes[0];
    for (std::size_t day = 0; day < days.size(); ++day) CheckDay[day]->SetValue(days[day].empty() ? 0 : 1);
}

void ScheduleForm::ShowTime() {
    Schedule& s = p_.schedule;
    if (s.ScheduleHour.empty()) {
        const std::tm now = p_.clock.LocalTime();
        SetTime(s, now.tm_hour, now.tm_min);
    }
    for (const auto& [text, bar, value] : {std::tuple{&TextHour, &ScrollLabelTop, &s.ScheduleHour},
                                           {&TextMinute, &ScrollLabelLeft, &s.ScheduleMinute}}) {
        text->SetText(*value);
        if (LeadingInt32(*value) == bar->Value()) text->SetText(TwoDigits(bar->Value()));  // as the bar writes what it stands at
    }
    ComboAMPM.SetListIndex(s.ScheduleAmPm == "AM" ? 0 : 1);
}

void ScheduleForm::GetCurrentJob(std::int16_t& found) {
    found = 0;
    std::uint32_t resume = 0;
    JobScheduler::Status status = JobScheduler::kMoreData;
    while (status == JobScheduler::kMoreData) {
        std::vector<std::uint32_t> ids;
        status = p_.scheduler.Enumerate(p_.schedule.ScheduleComputer, ids, resume);
        if (status != JobScheduler::kSuccess && status != JobScheduler::kMoreData) return;
        for (const auto id : ids)
            if (TaskName(id) == p_.schedule.ScheduleTaskName) found = -1;
    }
}

void ScheduleForm::EnableInputs(bool enabled) {
    for (Control* control : std::initializer_list<Control*>{&Label1, &Label3, &Label5, &Text1, &TextHour, &TextMinute, &ScrollLabelTop,
                                                            &ScrollLabelLeft, &ComboAMPM})
        control->SetEnabled(enabled);
    for (const auto& day : CheckDay) day->SetEnabled(enabled);
}

void ScheduleForm::TakeInputs() {
    Schedule& s = p_.schedule;
    s.ScheduleComputer = std::string(Trim(Text1.Text()));
    s.ScheduleHour = TextHour.Text();
    s.ScheduleMinute = TextMinute.Text();
    s.ScheduleAmPm = ComboAMPM.ListIndex() == 0 ? "AM" : "PM";
    for (std::size_t day = 0; day < kDayCodes.size(); ++day) s.ScheduleDays[day] = CheckDay[day]->Checked() ? kDayCodes[day] : "";
}

void ScheduleForm::Schedule_Click() {
    Schedule& s = p_.schedule;
    if (Trim(Text1.Text()).empty()) {
        Windows().ShowMessage(kBadComputer);
        Text1.SetFocus();
        return;
    }
    if (!HasValidTime({.ScheduleHour = TextHour.Text(), .ScheduleMinute = TextMinute.Text()})) {
        Windows().ShowMessage(kBadTime);
        (HasValidTime({.ScheduleHour = TextHour.Text(), .ScheduleMinute = "0"}) ? TextMinute : TextHour).SetFocus();
        return;
    }
    TakeInputs();
    std::uint32_t id = 0;
    const auto status = p_.scheduler.Add(s.ScheduleComputer, MakeJob(s, p_.appPath), id);
    const bool added = status == JobScheduler::kSuccess && id > 0;
    Windows().ShowMessage(added ? "Your Enterprise Check has been scheduled as Task '" + TaskName(id) + "' in Windows Task Scheduler."
                                : kNotScheduled);
    s.ScheduleTaskName = added ? TaskName(id) : "";
    WriteFile();
    Close();
}

// Of the task's name the last character alone tells the job.
void ScheduleForm::Delete_Click() {
    Schedule& s = p_.schedule;
    const std::string& name = s.ScheduleTaskName;
    const auto id = static_cast<std::uint32_t>(LeadingNumber(name.empty() ? "" : name.substr(name.size() - 1)));
    const std::string answer =
        Windows().ShowMessage({.text = "Are you sure you want to delete the scheduled Enterprise Check named '" + name +
                                       "' from Task Scheduler?",
                               .buttons = {"Yes", "No"},
                               .defaultButton = "No",
                               .question = true});
    if (answer != "Yes") return;
    p_.scheduler.Delete(s.ScheduleComputer, id, id);
    EnableInputs(true);
    LabelStatus.SetCaption("\r\nThe scheduled Enterprise Check was deleted.");
    Command3.SetEnabled(false);
    Command1.SetCaption(kCaptionClose);
    s.ScheduleTaskName.clear();
}

void ScheduleForm::Close_Click() {
    if (Command1.Caption() == kCaptionClose) WriteFile();
    Close();
}

void ScheduleForm::WriteFile() { p_.files.Write(p_.appPath + kFile, ComposeSchedule(p_.schedule)); }

}  // namespace qv
