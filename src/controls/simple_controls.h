// Controls whose state is a caption, a number or a short text.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace qv {

// A control that shows a caption, with "&" in front of its access key.
class Captioned : public Control {
   public:
    using Control::Control;
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

   private:
    std::string caption_;
};

class Label : public Captioned {
   public:
    Label(Form& form, std::string name, std::string caption = "", Control* container = nullptr, int index = -1);
    Event Click;
};

class CommandButton : public Captioned {
   public:
    CommandButton(Form& form, std::string name, std::string caption, Control* container = nullptr, int index = -1);
    bool CanFocus() const override { return true; }
    Event Click, MouseDown, MouseUp;  // down and up of the left button
};

class ToolButton : public Captioned {
   public:
    ToolButton(Form& form, std::string name, Control* container = nullptr);
    Event Click, MouseDown, MouseUp;
};

class Frame : public Captioned {
   public:
    Frame(Form& form, std::string name, std::string caption = "", Control* container = nullptr, int index = -1);
};

// A drawing area or an image. `PixelWidth` is what the view last told, a design width before that.
class Picture : public Captioned {
   public:
    Picture(Form& form, std::string name, Control* container = nullptr);
    int PixelWidth() const { return pixelWidth_; }
    void SetPixelWidth(int pixels);
    // The runner: three boxes, of which the middle one is filled. Left and width in pixels; left may be negative.
    int RunnerLeft() const { return runnerLeft_; }
    int RunnerWidth() const { return runnerWidth_; }
    void DrawRunner(int left, int width);
    // The colour that fills the picture, a number of the sixteen-colour palette (2 green, 10 bright green).
    int Fill() const { return fill_; }
    void SetFill(int colour);
    // Pixels of one character of the fixed-pitch font that texts are measured in on this picture.
    int CharacterWidth() const { return characterWidth_; }
    void SetCharacterWidth(int pixels) { characterWidth_ = pixels; }
    Event Click;

   private:
    int pixelWidth_ = 240;
    int runnerLeft_ = 0;
    int runnerWidth_ = 0;
    int fill_ = 2;
    int characterWidth_ = 8;
};

class CheckBox : public Captioned {
   public:
    CheckBox(Form& form, std::string name, std::string caption, Control* container = nullptr, int index = -1);
    bool CanFocus() const override { return true; }
    int Value() const { return value_; }  // 0 or 1
    bool Checked() const { return value_ != 0; }
    void SetValue(int value);  // fires Click if that changes it
    Event Click;

   private:
    int value_ = 0;
};

// One of the options of its container: choosing it clears the others there.
class OptionButton : public Captioned {
   public:
    OptionButton(Form& form, std::string name, std::string caption, Control* container = nullptr, int index = -1);
    bool CanFocus() const override { return true; }
    bool Value() const { return value_; }
    void SetValue(bool value);  // true fires Click if it wasn't chosen
    Event Click;

   private:
    bool value_ = false;
};

class ProgressBar : public Control {
   public:
    ProgressBar(Form& form, std::string name, Control* container = nullptr);
    long Min() const { return min_; }
    long Max() const { return max_; }
    long Value() const { return value_; }
    void SetRange(long min, long max);  // a maximum not above the minimum is kept as it is given; the value is held in range
    void SetValue(long value);          // held between minimum and maximum

   private:
    long min_ = 0, max_ = 100, value_ = 0;
};

class ScrollBar : public Control {
   public:
    ScrollBar(Form& form, std::string name, Control* container = nullptr);
    bool CanFocus() const override { return true; }
    long Min() const { return min_; }
    long Max() const { return max_; }
    long Value() const { return value_; }
    void SetRange(long min, long max);
    void SetValue(long value);  // fires Change if that changes it
    Event Change;

   private:
    long min_ = 0, max_ = 100, value_ = 0;
};

class StatusBar : public Control {
   public:
    StatusBar(Form& form, std::string name);
    const std::string& Text() const { return text_; }
    void SetText(std::string text);

   private:
    std::string text_;
};

// A row of tabs, numbered from 1.
class TabStrip : public Control {
   public:
    TabStrip(Form& form, std::string name, std::vector<std::string> tabs);
    bool CanFocus() const override { return true; }
    const std::vector<std::string>& Tabs() const { return tabs_; }
    void SetTab(int tab, std::string caption);
    int Value() const { return value_; }
    void SetValue(int tab);  // from code: fires neither event; a number that is no tab is passed over
    void ClickTab(int tab);  // a user's click: BeforeClick may refuse by setting its argument; then the change and Click
    EventOf<bool&> BeforeClick;
    Event Click;

   private:
    std::vector<std::string> tabs_;
    int value_ = 1;
};

// Who makes timers tick. Told of each change of a timer's flag or interval.
class Timer;
class TimerService {
   public:
    virtual ~TimerService() = default;
    virtual void TimerChanged(Timer& timer) = 0;  // start anew, or stop, as the timer's state says
    virtual void TimerGone(Timer& timer) = 0;
};

// Ticks every Interval milliseconds while enabled; an interval of 0 never ticks. It starts disabled.
// Setting the flag or the interval starts the interval anew.
class Timer : public Control {
   public:
    Timer(Form& form, std::string name);
    ~Timer() override;
    long Interval() const { return interval_; }
    void SetInterval(long milliseconds);
    void SetRunning(bool running);  // the Enabled flag, restarting the interval also when it is set already
    bool Running() const { return Enabled(); }
    void Use(TimerService* service);
    Event Tick;

   private:
    TimerService* service_ = nullptr;
    long interval_ = 0;
};

}  // namespace qv
