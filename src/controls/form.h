// A window: a container of named controls with a caption, a place on the screen, a focus and a pointer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/event.h"

namespace qv {

class CommandButton;
class Menu;
class WindowSystem;

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };
enum class Pointer { Default, Wait };

struct Geometry {  // pixels
    int left = 0, top = 0, width = 0, height = 0;
};

class Form : public Control {
   public:
    Form(WindowSystem& windows, std::string name, std::string caption);
    ~Form() override;

    WindowSystem& Windows() const { return windows_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    WindowState State() const { return state_; }
    void SetState(WindowState state);
    const Geometry& Place() const { return place_; }
    void SetPlace(const Geometry& place);
    // The place is one that the user gave the form: a view applies it as it stands, as long as it is on the screen.
    void KeepPlace(const Geometry& place) {
        placeIsKept_ = true;
        SetPlace(place);
    }
    bool PlaceIsKept() const { return placeIsKept_; }
    void SetSize(int width, int height) { SetPlace({place_.left, place_.top, width, height}); }
    void Centre();       // on the screen, with the form's own size
    void FitOnScreen();  // smaller, if it and a frame around it don't fit the screen

    qv::Pointer Pointer() const { return pointer_; }
    void SetPointer(qv::Pointer pointer);

    Control* Focus() const { return focus_; }
    void MoveFocus(Control* to);  // fires LostFocus and GotFocus; `to` is usable, of this form, or null
    void FocusFirst();            // the first usable control that takes the focus, in the order of the controls
    void KeepFocusUsable();       // moves the focus on when its control can't have it any more

    // All controls, menus too, in the order in which they were made: the tab order.
    const std::vector<Control*>& Controls() const { return controls_; }
    Control* Find(std::string_view addressName) const;          // "List1", "Frame1(0)"; null if there is none
    const std::vector<Menu*>& Menus() const { return menus_; }  // the menu bar

    CommandButton* DefaultButton() const { return defaultButton_; }  // pressed by Enter
    CommandButton* CancelButton() const { return cancelButton_; }    // pressed by Escape
    void SetDefaultButton(CommandButton* button) { defaultButton_ = button; }
    void SetCancelButton(CommandButton* button) { cancelButton_ = button; }

    bool Topmost() const { return topmost_; }  // stays above the windows of other programs too; told while it loads
    void SetTopmost(bool topmost) { topmost_ = topmost; }

    bool Loaded() const { return loaded_; }
    bool Modal() const { return modal_; }
    void PopUp(Menu& menu);  // opens a menu at the pointer: its opening rule runs
    void Close();            // unloads the form, unless its Unload event refuses

    EventOf<Key> KeyDown;  // a key goes down, wherever the focus is: ahead of the control that has it

    // Load comes before the form is shown, and may close it; Unload may refuse by setting its argument.
    Event Load, Activate, Resize;
    EventOf<bool&> Unload;

   private:
    friend class Control;
    friend class Menu;
    friend class WindowSystem;

    WindowSystem& windows_;
    std::string caption_;
    std::vector<Control*> controls_;
    std::vector<Menu*> menus_;
    Control* focus_ = nullptr;
    CommandButton* defaultButton_ = nullptr;
    CommandButton* cancelButton_ = nullptr;
    Geometry place_;
    WindowState state_ = WindowState::Normal;
    qv::Pointer pointer_ = qv::Pointer::Default;
    bool topmost_ = false;
    bool loaded_ = false;
    bool announced_ = false;  // the listeners know of it
    bool modal_ = false;
    bool placeIsKept_ = false;
};

}  // namespace qv
