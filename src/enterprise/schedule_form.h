// The dialog that puts one weekly check into the system's scheduler, and takes it out again.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "enterprise/schedule.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/job_scheduler.h"

namespace qv {

// At the program's start: schedcfg.zdt, where it is there.
void ReadSchedule(const Files& files, const std::string& appPath, Schedule& schedule);

class ScheduleForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        JobScheduler& scheduler;
        const Clock& clock;
        const std::string& appPath;
        Schedule& schedule;
    };
    explicit ScheduleForm(Parts parts);

    Label Label4{*this, "Label4",
                 "You can use this window to schedule simple Enterprise Checks on a weekly basis. For more scheduling options use "
                 "your Windows Task Scheduler, which is located under Start/Programs/Accessories/System Tools."};
    Label Label1{*this, "Label1", "Your Computer Name:"};
    TextBox Text1{*this, "Text1"};
    Frame Frame1{*this, "Frame1", "Weekly Schedule:"};
    Label Label3{*this, "Label3", "Days to Check:", &Frame1};
    std::array<std::unique_ptr<CheckBox>, 7> CheckDay = MakeDays();
    Label Label5{*this, "Label5", "Start Time:", &Frame1};
    TextBox TextHour{*this, "TextHour", &Frame1};
    ScrollBar ScrollLabelTop{*this, "ScrollLabelTop", &Frame1};
    TextBox TextMinute{*this, "TextMinute", &Frame1};
    ScrollBar ScrollLabelLeft{*this, "ScrollLabelLeft", &Frame1};
    ComboBox ComboAMPM{*this, "ComboAMPM", &Frame1};
    Label LabelStatus{*this, "LabelStatus"};
    CommandButton Command3{*this, "Command3", "Delete Currently Scheduled Check"};
    CommandButton Command2{*this, "Command2", "&Schedule"};
    CommandButton Command1{*this, "Command1", "&Cancel"};

   private:
    std::array<std::unique_ptr<CheckBox>, 7> MakeDays();
    void Form_Load();
    void ShowDays();
    void ShowTime();
    void GetCurrentJob(std::int16_t& found);
    void Schedule_Click();
    void Delete_Click();
    void Close_Click();
    void EnableInputs(bool enabled);
    void Follow(TextBox& text, ScrollBar& bar);
    void TakeInputs();
    void WriteFile();

    Parts p_;
    bool following_ = false;  // a bar takes the value that was typed
};

}  // namespace qv
