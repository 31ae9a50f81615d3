// The forms that are loaded, in their order on the screen, with the message boxes, file dialogs and the clipboard.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Form;
class Menu;

inline constexpr const char* kProgramTitle = "Zephon Quorvantis";

struct MessageRequest {
    std::string text;
    std::string title = kProgramTitle;
    std::vector<std::string> buttons = {"OK"};
    std::string defaultButton = "OK";
    bool question = false;  // shown with a question mark
};

struct FileDialogRequest {
    bool save = false;
    std::string title;
    std::string filter;   // "Name|mask|Name|mask"; masks of one name are parted by ";"
    int filterIndex = 1;  // which of them is chosen at first, from 1
    std::string name;     // the file name at first; "*." makes a folder picker
    std::string folder;   // where the dialog starts, in the backslash form
};

// Learns what appears and goes. Calls come after the fact; a prompt may be answered from inside its call.
class WindowListener {
   public:
    virtual ~WindowListener() = default;
    virtual void FormShown(Form& form) = 0;  // Modal() tells how
    virtual void FormClosed(const Form& form) = 0;
    virtual void MessageShown(const MessageRequest& request) = 0;
    virtual void DialogShown(const FileDialogRequest& request) = 0;
    virtual void PromptClosed() {}
    virtual void Beeped() = 0;
    virtual void FormActivated(Form&) {}
    virtual void MenuPoppedUp(Menu&) {}
};

class WindowSystem {
   public:
    // `wait` turns the event loop once, sleeping until there is something to handle.
    explicit WindowSystem(std::function<void()> wait) : wait_(std::move(wait)) {}

    void Listen(WindowListener* listener) { listeners_.push_back(listener); }

    // Loads the form (its Load event), unless it is loaded already, shows it on top and activates it.
    void Show(Form& form);
    // The same, and returns when the form has been unloaded. Forms below it can't be used meanwhile.
    void ShowModal(Form& form);
    // Fires Unload and takes the form away. False if the form refused; true also for a form that wasn't loaded.
    bool Unload(Form& form);
    void Activate(Form& form);  // brings it to the top of the forms beside it, and fires Activate
    void Hide(Form& form);      // stays loaded

    // The loaded forms, the topmost first.
    std::vector<Form*> Forms() const;
    Form* FindForm(std::string_view name) const;  // null if none of that name is loaded
    // What stands in front of a form so that it can't be used: the name of a modal form or "MessageBox"; else empty.
    std::string BlockedBy(const Form& form) const;

    // Shows a message box and waits; gives the name of the button.
    std::string ShowMessage(const MessageRequest& request);
    void ShowMessage(const std::string& text) { ShowMessage(MessageRequest{.text = text}); }
    // Asked before a message box with a single button is shown: true takes its text over, and there is no box.
    std::function<bool(const std::string& text)> TakeNotice;
    // Shows a file dialog and waits; gives the chosen path in the backslash form, or nothing when it was cancelled.
    std::optional<std::string> ShowFileDialog(const FileDialogRequest& request);

    enum class AnswerResult { Done, NothingToAnswer, NoSuchButton };
    // Answers the message box or dialog on top: a button's name or a path; nothing is a dialog's Cancel.
    AnswerResult Answer(const std::optional<std::string>& value);
    AnswerResult CanAnswer(const std::optional<std::string>& value) const;  // what Answer would give, without answering
    const MessageRequest* TopMessage() const;  // the prompt on top, if it is a message box

    const std::string& Clipboard() const { return clipboard_; }
    void SetClipboard(std::string text);
    std::function<void(const std::string&)> ClipboardChanged;  // for a view that shares it with the system

    void Beep();
    void MenuPoppedUp(Menu& menu);                                                           // tells the listeners
    void SetScreen(int width, int height) { screenWidth_ = width, screenHeight_ = height; }  // pixels
    int ScreenWidth() const { return screenWidth_; }
    int ScreenHeight() const { return screenHeight_; }

   private:
    friend class Form;
    struct Prompt {
        const MessageRequest* message = nullptr;
        const FileDialogRequest* dialog = nullptr;
        std::optional<std::string> answer;
        bool answered = false;
    };
    bool LoadForm(Form& form, bool modal);
    void Announce(Form& form);  // it is on the screen now
    void Forget(Form& form);  // a form's life ends
    void WaitFor(Prompt& prompt);

    std::function<void()> wait_;
    std::vector<WindowListener*> listeners_;
    std::vector<Form*> forms_;  // the topmost last
    std::vector<Prompt*> prompts_;
    std::string clipboard_;
    int screenWidth_ = 1280;
    int screenHeight_ = 800;
};

}  // namespace qv
