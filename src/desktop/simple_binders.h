// Binders of the controls whose state is a caption, a number or a short text.
#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QScrollBar>
#include <QTabBar>

#include "controls/simple_controls.h"
#include "desktop/binder.h"
#include "desktop/widgets.h"

namespace qv {

class LabelBinder : public Binder {
   public:
    LabelBinder(Label& label, TextLabel* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
    void MousePressed() override;

   private:
    TextLabel* label_;
};

// Command buttons and tool buttons.
template <class Button>
class ButtonBinder : public Binder {
   public:
    ButtonBinder(Button& button, QAbstractButton* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;

   private:
    QAbstractButton* button_;
};

extern template class ButtonBinder<CommandButton>;
extern template class ButtonBinder<ToolButton>;

// A frame is a titled box, or nothing to be seen but a place for its controls.
class FrameBinder : public Binder {
   public:
    FrameBinder(Frame& frame, QWidget* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
};

class PictureBinder : public Binder {
   public:
    PictureBinder(Picture& picture, PictureView* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
    void MousePressed() override;
};

// Check boxes and option buttons.
class TickBinder : public Binder {
   public:
    TickBinder(Captioned& box, QAbstractButton* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;

   private:
    bool Value() const;
    void KeepTabStop();
    QAbstractButton* button_;
};

class ProgressBinder : public Binder {
   public:
    ProgressBinder(ProgressBar& bar, QProgressBar* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;

   private:
    QProgressBar* bar_;
};

// Values of an upright bar grow upwards, as its upper arrow says.
class ScrollBarBinder : public Binder {
   public:
    ScrollBarBinder(ScrollBar& bar, QScrollBar* widget);
    static int Turned(const QScrollBar& bar, int value);  // from the bar's value to the control's, and back

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;

   private:
    QScrollBar* bar_;
};

class StatusBinder : public Binder {
   public:
    StatusBinder(StatusBar& bar, TextLabel* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;

   private:
    TextLabel* label_;
};

class TabBinder : public Binder {
   public:
    TabBinder(TabStrip& strip, TabBar* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;

   private:
    TabBar* bar_;
};

}  // namespace qv
