#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <nlohmann/json.hpp>

#include "controls/window_system.h"
#include "desktop/desktop.h"
#include "desktop/list_binder.h"
#include "desktop/mouse.h"
#include "desktop/qt_driver.h"
#include "desktop/qt_loop.h"

namespace qv {
namespace {

// A form with one of each kind, in a real window.
struct Windows : testing::Test {
    QtLoop loop;
    WindowSystem windows{[this] { loop.WaitFor(1); }};
    Form form{windows, "F", "A && form"};
    Frame frame{form, "Frame1", "Box"};
    Label label{form, "Label1", "&Name:", &frame};
    TextBox box{form, "Text1", &frame};
    CheckBox check{form, "Check1", "&On"};
    OptionButton first{form, "Option1", "First"};
    OptionButton second{form, "Option2", "Second"};
    ComboBox combo{form, "Combo1"};
    ListBox single{form, "List1", ListBox::SelectionKind::Single};
    ListBox several{form, "List2", ListBox::SelectionKind::Multiple};
    CommandButton button{form, "Com1", "&Press"};
    ProgressBar progress{form, "Progress1"};
    TabStrip tabs{form, "Tabs1", {"One", "Two"}};
    StatusBar status{form, "Status1"};
    Desktop desktop{windows, false};
    QtDriver driver{desktop, false};
    std::vector<std::string> log;

    void SetUp() override {
        form.SetSize(500, 700);
        for (const char* row : {"a", "b", "c"}) {
            single.AddItem(row);
            several.AddItem(row);
        }
    }
    void TearDown() override { windows.Unload(form); }
    FormWindow& Show() {
        windows.Show(form);
        loop.Yield();
        return *desktop.WindowOf(form);
    }
    template <class Widget>
    Widget* WidgetOf(const Control& control) {
        return dynamic_cast<Widget*>(desktop.WindowOf(form)->BinderOf(control)->Widget());
    }
    std::function<void()> Note(const std::string& text) {
        return [this, text] { log.push_back(text); };
    }
};

TEST_F(Windows, WhatTheControlsAreIsSeen) {
    box.SetText("text");
    check.SetValue(1);
    second.SetValue(true);
    combo.AddItem("one");
    combo.AddItem("two");
    combo.SetListIndex(1);
    progress.SetRange(0, 10);
    progress.SetValue(4);
    status.SetText("Done.");
    button.SetEnabled(false);
    label.SetVisible(false);
    FormWindow& window = Show();
    EXPECT_EQ(window.windowTitle(), "A && form");
    EXPECT_EQ(WidgetOf<QLineEdit>(box)->text(), "text");
    EXPECT_TRUE(WidgetOf<QCheckBox>(check)->isChecked());
    EXPECT_TRUE(WidgetOf<QRadioButton>(second)->isChecked());
    EXPECT_EQ(WidgetOf<QComboBox>(combo)->currentText(), "two");
    EXPECT_EQ(WidgetOf<QProgressBar>(progress)->value(), 4);
    EXPECT_FALSE(WidgetOf<QPushButton>(button)->isEnabled());
    EXPECT_TRUE(WidgetOf<QWidget>(label)->isHidden());
    EXPECT_EQ(driver.State(status)["text"], "Done.");
    EXPECT_EQ(driver.State(frame)["caption"], "Box");
}

TEST_F(Windows, WhatChangesLaterIsSeenToo) {
    Show();
    box.SetText("later");
    check.SetValue(1);
    first.SetValue(true);
    second.SetValue(true);
    combo.AddItem("one");
    combo.SetText("free");
    button.SetCaption("&Other");
    button.SetTip("what it does");
    frame.SetEnabled(false);
    EXPECT_EQ(WidgetOf<QLineEdit>(box)->text(), "later");
    EXPECT_TRUE(WidgetOf<QCheckBox>(check)->isChecked());
    EXPECT_FALSE(WidgetOf<QRadioButton>(first)->isChecked());
    EXPECT_EQ(WidgetOf<QComboBox>(combo)->currentText(), "free");
    EXPECT_EQ(WidgetOf<QComboBox>(combo)->currentIndex(), -1);
    EXPECT_EQ(WidgetOf<QPushButton>(button)->text(), "&Other");
    EXPECT_EQ(WidgetOf<QPushButton>(button)->toolTip(), "what it does");
    EXPECT_FALSE(WidgetOf<QLineEdit>(box)->isEnabled());
    EXPECT_EQ(driver.State(box)["enabled"], true);
    EXPECT_EQ(driver.State(box)["usable"], false);
}

TEST_F(Windows, TheUsersDoingsReachTheControls) {
    check.Click = Note("check");
    button.MouseDown = Note("down");
    button.MouseUp = Note("up");
    button.Click = Note("click");
    box.Change = Note("change");
    Show();
    mouse::Click(*WidgetOf<QCheckBox>(check));
    mouse::Click(*WidgetOf<QPushButton>(button));
    WidgetOf<QLineEdit>(box)->setFocus();
    mouse::PressKey(*WidgetOf<QLineEdit>(box), Qt::Key_X, "x");
    EXPECT_EQ(log, (std::vector<std::string>{"check", "down", "up", "click", "change"}));
    EXPECT_EQ(check.Value(), 1);
    EXPECT_EQ(box.Text(), "x");
    EXPECT_TRUE(box.HasFocus());
}

TEST_F(Windows, AHandlerMayCloseTheWindowOfItsControl) {
    button.Click = [this] { form.Close(); };
    Show();
    mouse::Click(*WidgetOf<QPushButton>(button));
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(desktop.WindowOf(form), nullptr);
    loop.Yield();
}

TEST_F(Windows, AFormCanBeShownAgain) {
    Show();
    windows.Unload(form);
    box.SetText("between");
    Show();
    EXPECT_EQ(WidgetOf<QLineEdit>(box)->text(), "between");
}

TEST_F(Windows, TheCloseBoxMayBeRefused) {
    bool refuse = true;
    form.Unload = [&](bool& refused) { refused = refuse; };
    FormWindow& window = Show();
    window.close();
    EXPECT_TRUE(form.Loaded());
    EXPECT_TRUE(window.isVisible());
    refuse = false;
    window.close();
    EXPECT_FALSE(form.Loaded());
}

TEST_F(Windows, AWindowIsNotLargerThanTheScreen) {
    form.SetSize(5000, 4000);
    const FormWindow& window = Show();
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
    EXPECT_GT(window.height(), window.screen()->availableGeometry().height() / 2);
}

TEST_F(Windows, APlaceThatTheUserGaveIsKept) {
    form.KeepPlace({30, 40, 2000, 900});
    const FormWindow& window = Show();
    EXPECT_EQ(window.size(), QSize(2000, 900));
    EXPECT_EQ(form.Place().left, 30);
    EXPECT_EQ(form.Place().top, 40);
}

TEST_F(Windows, APlaceThatIsOnNoScreenIsNotKept) {
    form.KeepPlace({30000, 20000, 300, 200});
    const FormWindow& window = Show();
    EXPECT_TRUE(window.screen()->availableGeometry().intersects(window.geometry()));
}

TEST_F(Windows, AButtonIsPressedAlsoBeforeItHasItsPlace) {
    button.Click = Note("pressed");
    Show();
    auto* widget = WidgetOf<QPushButton>(button);
    widget->resize(79, 0);
    mouse::Click(*widget);
    EXPECT_EQ(log, std::vector<std::string>{"pressed"});
    button.SetEnabled(false);
    mouse::Click(*widget);
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(Windows, AListTogglesWhereItIsClicked) {
    several.MouseDown = [&](MouseButton) { log.push_back("down"); };
    several.Click = Note("click");
    Show();
    auto* view = WidgetOf<ListView>(several);
    mouse::Press(*view->viewport(), view->RowRect(1).center());
    EXPECT_EQ(log, (std::vector<std::string>{"down", "click"}));
    EXPECT_TRUE(several.Selected(1));
    mouse::Press(*view->viewport(), view->RowRect(1).center());
    EXPECT_FALSE(several.Selected(1));
    EXPECT_EQ(several.ListIndex(), 1);
    mouse::Press(*view->viewport(), QPoint(5, view->RowRect(2).bottom() + 2));  // below the last row
    EXPECT_EQ(log.size(), 4U);
}

TEST_F(Windows, KeysMoveTheCurrentRowOfAList) {
    Show();
    auto* view = WidgetOf<ListView>(several);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down}) mouse::PressKey(*view, key, "");
    EXPECT_EQ(several.ListIndex(), 1);
    mouse::PressKey(*view, Qt::Key_End, "");
    EXPECT_EQ(several.ListIndex(), 2);
    mouse::PressKey(*view, Qt::Key_Down, "");
    EXPECT_EQ(several.ListIndex(), 2);
    mouse::PressKey(*view, Qt::Key_Space, " ");
    EXPECT_TRUE(several.Selected(2));
    mouse::PressKey(*view, Qt::Key_Home, "");
    EXPECT_EQ(several.ListIndex(), 0);
    EXPECT_EQ(several.SelectedCount(), 1);
}

TEST_F(Windows, AListOfAHundredThousandRowsScrollsToItsCurrentRow) {
    for (int i = 0; i < 100'000; ++i) several.AddItem("row " + std::to_string(i));
    Show();
    auto* view = WidgetOf<ListView>(several);
    several.SetListIndex(99'999);
    loop.Yield();
    EXPECT_TRUE(view->viewport()->rect().contains(view->RowRect(99'999)));
    several.Clear();
    loop.Yield();
    EXPECT_EQ(view->verticalScrollBar()->maximum(), 0);
}

TEST_F(Windows, ADoubleClickOnAListThatKnowsNoneIsASecondClick) {
    Show();
    auto* view = WidgetOf<ListView>(several);
    mouse::Press(*view->viewport(), view->RowRect(0).center());
    mouse::DoubleClick(*view->viewport(), view->RowRect(0).center());
    EXPECT_FALSE(several.Selected(0));
    single.DblClick = Note("double");
    driver.DoubleClickRow(single, 2);
    EXPECT_EQ(log, std::vector<std::string>{"double"});
    EXPECT_EQ(single.ListIndex(), 2);
}

TEST_F(Windows, ATabChangesOnlyWhenItMay) {
    bool refuse = true;
    tabs.BeforeClick = [&](bool& refused) { refused = refuse; };
    Show();
    driver.SetValue(tabs, 2);
    EXPECT_EQ(WidgetOf<TabBar>(tabs)->currentIndex(), 0);
    refuse = false;
    driver.SetValue(tabs, 2);
    EXPECT_EQ(WidgetOf<TabBar>(tabs)->currentIndex(), 1);
    EXPECT_EQ(tabs.Value(), 2);
}

TEST_F(Windows, TypingInADropDownListKeepsThePlaceInTheText) {
    combo.AddItem("http://one/");
    combo.SetListIndex(0);
    Show();
    QLineEdit* line = WidgetOf<QComboBox>(combo)->lineEdit();
    line->setCursorPosition(7);
    line->insert("x");
    EXPECT_EQ(combo.Text(), "http://xone/");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(line->cursorPosition(), 8);
    driver.ClickRow(combo, 0);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(line->text(), "http://one/");
}

TEST_F(Windows, APressInABoxThatCannotBeTypedInOpensItsList) {
    combo.AddItem("AM");
    combo.AddItem("PM");
    Show();
    auto* widget = WidgetOf<QComboBox>(combo);
    const auto press = [&] {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget->lineEdit(), &event);
    };
    press();
    EXPECT_FALSE(widget->view()->isVisible());
    widget->lineEdit()->setReadOnly(true);
    press();
    EXPECT_TRUE(widget->view()->isVisible());
    widget->hidePopup();
}

TEST_F(Windows, TabLeadsToTheChosenOneOfAGroup) {
    second.SetValue(true);
    Show();
    const auto takesTab = [&](const Control& control) { return (WidgetOf<QRadioButton>(control)->focusPolicy() & Qt::TabFocus) != 0; };
    EXPECT_TRUE(takesTab(second) && !takesTab(first));
    first.SetValue(true);
    EXPECT_TRUE(takesTab(first) && !takesTab(second));
}

TEST_F(Windows, ATypedTextThatEqualsAnItemPicksNothing) {
    combo.AddItem("http://one/");
    combo.AddItem("http://two/");
    combo.SetListIndex(0);
    int picked = 0;
    combo.Click = [&] { ++picked; };
    Show();
    QLineEdit* line = WidgetOf<QComboBox>(combo)->lineEdit();
    line->setFocus();
    line->selectAll();
    line->insert("http://two/");
    EXPECT_EQ(combo.ListIndex(), -1);
    box.SetFocus();
    Q_EMIT line->editingFinished();
    EXPECT_EQ(picked, 0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "http://two/");
}

TEST_F(Windows, TheFocusOfAControlThatGoesMovesOnAsTheFormSays) {
    Show();
    box.SetFocus();
    EXPECT_EQ(desktop.WindowOf(form)->focusWidget(), WidgetOf<QLineEdit>(box));
    frame.SetVisible(false);
    EXPECT_TRUE(check.HasFocus());
    EXPECT_EQ(desktop.WindowOf(form)->focusWidget(), WidgetOf<QCheckBox>(check));
}

TEST_F(Windows, ABarWithoutARangeStandsAtItsBeginning) {
    progress.SetRange(0, 0);
    Show();
    EXPECT_EQ(WidgetOf<QProgressBar>(progress)->value(), 0);
    EXPECT_NE(WidgetOf<QProgressBar>(progress)->maximum(), 0);
    progress.SetRange(0, 10'000'000'000);
    progress.SetValue(5'000'000'000);
    const auto* bar = WidgetOf<QProgressBar>(progress);
    EXPECT_NEAR(static_cast<double>(bar->value()) / bar->maximum(), 0.5, 0.01);
}

TEST_F(Windows, AMessageIsAnsweredByItsButtons) {
    Show();
    loop.Post([&] { driver.Answer(windows, "No"); });
    EXPECT_EQ(windows.ShowMessage({.text = "?", .buttons = {"Yes", "No"}, .defaultButton = "Yes"}), "No");
}

TEST_F(Windows, TheCloseBoxOfAMessageActsAsEscape) {
    Show();
    const auto closed = [&](const std::vector<std::string>& buttons) {
        loop.Post([] { QApplication::activeModalWidget()->close(); });
        return windows.ShowMessage({.text = "?", .buttons = buttons, .defaultButton = buttons[0]});
    };
    EXPECT_EQ(closed({"OK"}), "OK");
    EXPECT_EQ(closed({"Yes", "No", "Cancel"}), "Cancel");
}

TEST_F(Windows, AQuestionOfYesAndNoIsAnsweredByItsButtonsAlone) {
    Show();
    loop.Post([&] {
        QWidget* prompt = QApplication::activeModalWidget();
        prompt->close();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(prompt, &escape);
        EXPECT_TRUE(prompt->isVisible());
        driver.Answer(windows, "Yes");
    });
    EXPECT_EQ(windows.ShowMessage({.text = "?", .buttons = {"Yes", "No"}, .defaultButton = "Yes"}), "Yes");
}

TEST_F(Windows, ABackslashTypedIntoAFileDialogIsASlash) {
    Show();
    loop.Post([&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->testOption(QFileDialog::ReadOnly));  // it renames and deletes nothing
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr);
        name->selectAll();
        name->insert("\\tmp\\x/out");
        EXPECT_EQ(name->text(), "/tmp/x/out");
        name->setCursorPosition(4);
        name->insert("\\a");
        EXPECT_EQ(name->text(), "/tmp/a/x/out");
        EXPECT_EQ(name->cursorPosition(), 6);
        driver.Answer(windows, std::nullopt);
    });
    EXPECT_EQ(windows.ShowFileDialog({.save = true, .name = "x", .folder = "\\tmp\\"}), std::nullopt);
}

TEST_F(Windows, AKeyThatIsHeldPressesNothingAgain) {
    form.SetDefaultButton(&button);
    button.Click = Note("pressed");
    Show();
    auto* widget = WidgetOf<QPushButton>(button);
    for (const bool again : {false, true, true}) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", again);
        QCoreApplication::sendEvent(widget, &enter);
    }
    EXPECT_EQ(log, std::vector<std::string>{"pressed"});
}

TEST_F(Windows, ARowIsTakenAtThePressOfTheSpaceKey) {
    several.KeyUp = [&](Key key) {
        if (key == Key::Space) log.push_back(std::to_string(several.ListIndex()) + (several.Selected(several.ListIndex()) ? "on" : "off"));
    };
    several.SetListIndex(0);
    Show();
    auto* view = WidgetOf<ListView>(several);
    const auto key = [&](QEvent::Type type, Qt::Key code) {
        QKeyEvent event(type, code, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &event);
    };
    key(QEvent::KeyPress, Qt::Key_Space);
    key(QEvent::KeyPress, Qt::Key_Down);
    key(QEvent::KeyRelease, Qt::Key_Space);
    key(QEvent::KeyRelease, Qt::Key_Down);
    key(QEvent::KeyPress, Qt::Key_Space);
    key(QEvent::KeyRelease, Qt::Key_Space);
    EXPECT_EQ(log, (std::vector<std::string>{"0on", "1on"}));
}

TEST_F(Windows, EnterPressesTheDefaultButtonFromATextBox) {
    form.SetDefaultButton(&button);
    button.Click = Note("default");
    Show();
    driver.Press(box, Key::Enter);
    EXPECT_EQ(log, std::vector<std::string>{"default"});
}

TEST_F(Windows, AssistiveToolsSeeTheRowsOfAList) {
    several.SetSelected(1, true);
    several.SetListIndex(2);
    Show();
    auto* view = WidgetOf<ListView>(several);
    view->setAccessibleName("Links");
    const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(view);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), "Links");
    ASSERT_EQ(list->childCount(), 3);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "b");
    EXPECT_TRUE(list->child(1)->state().checked);
    EXPECT_FALSE(list->child(0)->state().checked);
    EXPECT_EQ(list->child(3), nullptr);
    const QRect place = list->child(2)->rect();
    EXPECT_EQ(list->indexOfChild(list->childAt(place.center().x(), place.center().y())), 2);
    several.RemoveItem(0);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "c");
}

TEST_F(Windows, AWindowThatTheUserComesBackToIsTheFrontOneAndIsActivatedOnce) {
    int activated = 0;
    Form other(windows, "G", "Other");
    form.Activate = [&] { ++activated; };
    FormWindow& window = Show();
    windows.Show(other);
    for (int turns = 0; turns < 20; ++turns) loop.Yield();
    EXPECT_EQ(windows.Forms().front(), &other);
    activated = 0;
    window.activateWindow();
    for (int turns = 0; turns < 50; ++turns) loop.Yield();
    EXPECT_EQ(windows.Forms().front(), &form);
    EXPECT_EQ(activated, 1);
    windows.Unload(other);
}

TEST_F(Windows, AWindowStaysOpenWhenTheOneBehindItCloses) {
    Form other(windows, "G", "Other");
    Show();
    windows.Show(other);
    windows.Unload(form);
    loop.Yield();
    ASSERT_NE(desktop.WindowOf(other), nullptr);
    EXPECT_TRUE(desktop.WindowOf(other)->isVisible());
    EXPECT_TRUE(other.Visible());
    windows.Unload(other);
}

TEST_F(Windows, PasswordsAreMasked) {
    box.SetMasked(true);
    Show();
    EXPECT_EQ(WidgetOf<QLineEdit>(box)->echoMode(), QLineEdit::Password);
}

TEST_F(Windows, APageOfTextKeepsItsLineEnds) {
    TextBox page(form, "Text2");
    page.SetMultiLine(true);
    page.SetText("one\r\ntwo");
    Show();
    EXPECT_EQ(WidgetOf<QPlainTextEdit>(page)->toPlainText(), "one\ntwo");
    EXPECT_EQ(driver.State(page)["text"], "one\r\ntwo");
    driver.EnterText(page, "a\nb");
    EXPECT_EQ(page.Text(), "a\r\nb");
    windows.Unload(form);
}

}  // namespace
}  // namespace qv
