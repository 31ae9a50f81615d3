#include <gtest/gtest.h>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/menu.h"
#include "controls/text_box.h"
#include "controls/user_actions.h"
#include "controls/window_system.h"

namespace qv {
namespace {

struct Controls : testing::Test {
    std::vector<std::string> log;
    int waits = 0;
    std::function<void()> onWait;
    WindowSystem windows{[this] {
        ASSERT_LT(++waits, 100);
        if (onWait) onWait();
    }};
    Form form{windows, "F", "Form"};
    std::function<void()> Note(const std::string& text) {
        return [this, text] { log.push_back(text); };
    }
};

TEST_F(Controls, AListWithMultipleSelectionTogglesTheRowThatIsClicked) {
    ListBox list(form, "L", ListBox::SelectionKind::Multiple);
    windows.Show(form);
    list.AddItem("a", 1);
    list.AddItem("b", 2);
    list.MouseDown = [&](MouseButton) { log.push_back("down " + std::to_string(list.Selected(1))); };
    list.Click = Note("click");
    list.ClickRow(1);
    EXPECT_EQ(log, (std::vector<std::string>{"down 1", "click"}));
    EXPECT_EQ(list.ListIndex(), 1);
    list.ClickRow(1);
    EXPECT_FALSE(list.Selected(1));
    EXPECT_EQ(list.SelectedCount(), 0);
    list.SetListIndex(0);
    EXPECT_FALSE(list.Selected(0));
}

TEST_F(Controls, AListWithSingleSelectionSelectsItsCurrentRow) {
    ListBox list(form, "L", ListBox::SelectionKind::Single);
    list.AddItem("a");
    list.AddItem("b");
    list.Click = Note("click");
    list.SetListIndex(1);
    list.SetListIndex(1);
    EXPECT_EQ(log.size(), 1U);
    list.ClickRow(1);
    EXPECT_EQ(log.size(), 2U);
    list.SetListIndex(0);
    EXPECT_TRUE(list.Selected(0));
    EXPECT_FALSE(list.Selected(1));
    list.SetListIndex(7);
    EXPECT_EQ(list.ListIndex(), 0);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(Controls, TheSpaceKeyTogglesTheCurrentRow) {
    ListBox list(form, "L", ListBox::SelectionKind::Multiple);
    windows.Show(form);
    list.AddItem("a");
    list.SetListIndex(0);
    list.KeyUp = [&](Key) { log.push_back(list.Selected(0) ? "selected" : "not"); };
    user::Press(list, Key::Space);
    EXPECT_EQ(log, std::vector<std::string>{"selected"});
}

TEST_F(Controls, KeysInATextBoxActOnTheSelectedPart) {
    TextBox text(form, "T");
    windows.Show(form);
    text.KeyUp = [&](Key) { log.push_back(text.Text()); };
    text.SetText("abcd");
    text.Select(1, 2);
    user::Press(text, Key::Space);
    text.Select(0, 1);
    user::Press(text, Key::Delete);
    user::Press(text, Key::Delete);  // nothing is selected
    user::Press(text, Key::Space);
    text.SelectAll();
    user::Press(text, Key::Delete);
    EXPECT_EQ(log, (std::vector<std::string>{"a d", " d", " d", " d ", ""}));
    text.SetText("kept");
    text.SetReadOnly(true);
    text.SelectAll();
    user::Press(text, Key::Delete);
    user::Press(text, Key::Space);
    EXPECT_EQ(text.Text(), "kept");
}

TEST_F(Controls, SettingFromCodeFiresAsTheRulesSay) {
    CheckBox box(form, "C", "");
    TextBox text(form, "T");
    ComboBox combo(form, "B");
    box.Click = Note("box");
    text.Change = Note("text");
    combo.Change = Note("change");
    combo.Click = Note("pick");
    box.SetValue(1);
    box.SetValue(-1);
    text.SetText("a");
    text.SetText("a");
    combo.AddItem("one", 5);
    combo.SetText("x");
    combo.SetListIndex(0);
    EXPECT_EQ(log, (std::vector<std::string>{"box", "text", "change", "pick"}));
    EXPECT_EQ(combo.Text(), "one");
    combo.SetText("one");
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(Controls, OneOptionOfAContainerIsChosen) {
    Frame frame(form, "Frame");
    OptionButton one(form, "1", "", &frame);
    OptionButton two(form, "2", "", &frame);
    OptionButton other(form, "3", "");
    other.SetValue(true);
    one.SetValue(true);
    two.SetValue(true);
    EXPECT_FALSE(one.Value());
    EXPECT_TRUE(other.Value());
}

TEST_F(Controls, UsabilityFollowsTheContainers) {
    Frame frame(form, "Frame");
    CommandButton button(form, "B", "", &frame);
    EXPECT_FALSE(button.Usable());
    windows.Show(form);
    EXPECT_TRUE(button.Usable());
    frame.SetEnabled(false);
    EXPECT_FALSE(button.Usable());
    EXPECT_TRUE(button.Showing());
    EXPECT_TRUE(button.Enabled());
}

TEST_F(Controls, TheFocusMovesOnFromAControlThatGoes) {
    CommandButton one(form, "1", "");
    CommandButton two(form, "2", "");
    windows.Show(form);
    EXPECT_EQ(form.Focus(), &one);
    one.LostFocus = Note("lost");
    two.GotFocus = Note("got");
    one.SetEnabled(false);
    EXPECT_EQ(form.Focus(), &two);
    EXPECT_EQ(log, (std::vector<std::string>{"lost", "got"}));
    one.SetFocus();
    EXPECT_EQ(form.Focus(), &two);
    two.SetVisible(false);
    EXPECT_EQ(form.Focus(), nullptr);
}

TEST_F(Controls, EnterAndEscapePressTheFormsButtons) {
    TextBox text(form, "T");
    CommandButton okay(form, "O", "");
    CommandButton cancel(form, "C", "");
    form.SetDefaultButton(&okay);
    form.SetCancelButton(&cancel);
    okay.Click = Note("okay");
    cancel.Click = Note("cancel");
    windows.Show(form);
    user::Press(text, Key::Enter);
    user::Press(text, Key::Escape);
    user::Press(cancel, Key::Enter);
    EXPECT_EQ(log, (std::vector<std::string>{"okay", "cancel", "cancel"}));
}

TEST_F(Controls, EnterInAPageOfTextIsALineEnd) {
    TextBox page(form, "T");
    page.SetMultiLine(true);
    CommandButton okay(form, "O", "");
    form.SetDefaultButton(&okay);
    okay.Click = Note("okay");
    windows.Show(form);
    user::Press(page, Key::Enter);
    EXPECT_TRUE(log.empty());
}

TEST_F(Controls, AFormHearsOfAKeyAheadOfItsControls) {
    TextBox text(form, "T");
    windows.Show(form);
    form.KeyDown = [&](Key key) { Note(key == Key::Delete ? "form, delete" : "form")(); };
    text.KeyPress = [&](Key) { Note("text")(); };
    user::Press(text, Key::Delete);
    EXPECT_EQ(log, (std::vector<std::string>{"form, delete", "text"}));
}

TEST_F(Controls, AModalFormBlocksUntilItIsClosed) {
    Form modal(windows, "M", "");
    windows.Show(form);
    onWait = [&] {
        EXPECT_EQ(windows.BlockedBy(form), "M");
        EXPECT_EQ(windows.BlockedBy(modal), "");
        modal.Close();
    };
    windows.ShowModal(modal);
    EXPECT_EQ(waits, 1);
    EXPECT_EQ(windows.BlockedBy(form), "");
}

TEST_F(Controls, AFormThatClosesItselfWhileItLoadsIsNotShown) {
    Form modal(windows, "M", "");
    modal.Load = [&] { modal.Close(); };
    windows.ShowModal(modal);
    EXPECT_EQ(waits, 0);
}

TEST_F(Controls, AFormLargerThanTheScreenIsFittedOnIt) {
    windows.SetScreen(800, 600);
    form.SetSize(860, 620);
    form.FitOnScreen();
    form.Centre();
    EXPECT_EQ(form.Place().width, 792);
    EXPECT_EQ(form.Place().height, 560);
    EXPECT_EQ(form.Place().left, 4);
    EXPECT_EQ(form.Place().top, 20);
    form.SetSize(400, 300);
    form.FitOnScreen();
    EXPECT_EQ(form.Place().width, 400);
    EXPECT_EQ(form.Place().height, 300);
}

TEST_F(Controls, AnUnloadCanBeRefused) {
    windows.Show(form);
    form.Unload = [](bool& refused) { refused = true; };
    form.Close();
    EXPECT_TRUE(form.Loaded());
}

TEST_F(Controls, PromptsAreAnsweredFromTheTop) {
    std::string inner;
    onWait = [&] {
        if (waits == 1) {
            inner = windows.ShowMessage({.text = "second", .buttons = {"Yes", "No"}});
        } else if (waits == 2) {
            EXPECT_EQ(windows.TopMessage()->text, "second");
            EXPECT_EQ(windows.Answer("Maybe"), WindowSystem::AnswerResult::NoSuchButton);
            EXPECT_EQ(windows.Answer("No"), WindowSystem::AnswerResult::Done);
        } else {
            windows.Answer("OK");
        }
    };
    EXPECT_EQ(windows.ShowMessage(MessageRequest{.text = "first"}), "OK");
    EXPECT_EQ(inner, "No");
    EXPECT_EQ(windows.Answer("OK"), WindowSystem::AnswerResult::NothingToAnswer);
}

TEST_F(Controls, AChosenPathComesInTheBackslashForm) {
    onWait = [&] { windows.Answer("/home/me\\x.htm"); };
    EXPECT_EQ(windows.ShowFileDialog({}), "\\home\\me\\x.htm");
    onWait = [&] { windows.Answer(std::nullopt); };
    EXPECT_EQ(windows.ShowFileDialog({}), std::nullopt);
}

TEST_F(Controls, ATabCanBeRefused) {
    TabStrip tabs(form, "T", {"a", "b"});
    tabs.BeforeClick = [](bool& refused) { refused = true; };
    tabs.Click = Note("click");
    tabs.ClickTab(2);
    EXPECT_EQ(tabs.Value(), 1);
    tabs.BeforeClick = nullptr;
    tabs.ClickTab(2);
    tabs.ClickTab(3);
    EXPECT_EQ(tabs.Value(), 2);
    EXPECT_EQ(log.size(), 1U);
}

TEST_F(Controls, BarsHoldTheirValueInRange) {
    ProgressBar bar(form, "P");
    bar.SetRange(0, 5);
    bar.SetValue(9);
    EXPECT_EQ(bar.Value(), 5);
    bar.SetRange(0, 3);
    EXPECT_EQ(bar.Value(), 3);
    bar.SetRange(0, 0);
    bar.SetValue(1);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(Controls, ElementsOfAnArrayAreFoundByTheirNumber) {
    Frame zero(form, "Frame1", "", nullptr, 0);
    Frame one(form, "Frame1", "", nullptr, 1);
    EXPECT_EQ(form.Find("Frame1(1)"), &one);
    EXPECT_EQ(form.Find("Frame1"), nullptr);
}

}  // namespace
}  // namespace qv
