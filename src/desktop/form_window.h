// The window of a form. It holds a binder for each control that is shown, and is itself what the form is to the user: caption,
// place, state, pointer, focus, close box, and the keys that belong to the whole window.
#pragma once

#include <QBoxLayout>
#include <QWidget>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <unordered_map>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "desktop/binder.h"
#include "desktop/menus.h"
#include "desktop/widgets.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QToolButton;

namespace qv {

class ListView;

class FormWindow : public QWidget, public ControlObserver {
   public:
    FormWindow(Form& form, QWidget* parent, Qt::WindowFlags flags);
    ~FormWindow() override;

    // Called once the view has laid everything out: sets the tab order and the size, and opens the window.
    void Open();
    // The form is gone, or about to go: the window does nothing any more.
    void Release();
    const Form* Bound() const { return form_; }
    void BringUp();  // in front of the windows beside it, and active

    // Makes the widget of a control, as the control is at this moment, without a place: the view gives it one.
    TextLabel* Make(Label& label, TextLabel::Style style = TextLabel::Style::Line);
    QPushButton* Make(CommandButton& button);
    QToolButton* Make(ToolButton& button);
    QGroupBox* MakeBox(Frame& frame);
    QWidget* MakePage(Frame& frame);  // a frame that isn't seen
    TitledPage* MakeTitledPage(Frame& frame);
    PictureView* Make(Picture& picture);
    QCheckBox* Make(CheckBox& box);
    QRadioButton* Make(OptionButton& option);
    QLineEdit* Make(TextBox& box);
    QPlainTextEdit* MakeText(TextBox& box);
    QComboBox* Make(ComboBox& combo);
    ListView* Make(ListBox& list);
    QProgressBar* Make(ProgressBar& bar);
    QScrollBar* Make(ScrollBar& bar, Qt::Orientation orientation = Qt::Horizontal);
    TextLabel* Make(StatusBar& bar);
    TabBar* Make(TabStrip& strip);
    QMenuBar* MakeMenuBar();

    // A label that names a control: its access key leads there.
    TextLabel* MakeFor(Label& label, QWidget* named, TextLabel::Style style = TextLabel::Style::Line);

    Binder* BinderOf(const Control& control) const;  // null for a control that isn't shown
    Menus* MenuSet() const { return menus_.get(); }
    void AddState(nlohmann::json& state) const;  // of the form itself

    void ControlChanged(Control& control, Aspect aspect) override;
    void RowsAdded(ListBox& list, int first, int count) override;
    void RowRemoved(ListBox& list, int row) override;
    void RowChanged(ListBox& list, int row) override;

   protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

   private:
    template <class BinderType, class ControlType, class WidgetType>
    WidgetType* Bind(ControlType& control, WidgetType* widget);
    QWidget* ParentFor(const Control& control);
    void ShowForm(Aspect aspect);
    void ShowPlace();
    void ShowFocus();
    void ShowDefaultButton();
    void TakePlace();
    void TakeActivation();
    void FitPlace();
    void TellOfMissingWidgets() const;
    void SetTabOrder();
    void YieldAccessKeysToMenus();
    void AddTabKeys();
    void NextTab(int step);

    Form* form_;
    std::unordered_map<const Control*, std::unique_ptr<Binder>> binders_;
    std::unique_ptr<Menus> menus_;
    TabBar* tabs_ = nullptr;
    bool showing_ = false;  // a change is being shown: what the toolkit does about it isn't the user's doing
    bool open_ = false;
};

}  // namespace qv
