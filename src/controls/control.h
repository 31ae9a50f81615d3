// What every control has: a name, a place in a form, its own two flags, a tool tip, the common events and its viewers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/event.h"

namespace qv {

class Control;
class Form;
class ListBox;

enum class ControlKind {
    Form,
    Label,
    CommandButton,
    ToolButton,
    Frame,
    Picture,
    Menu,
    TextBox,
    CheckBox,
    OptionButton,
    ListBox,
    ComboBox,
    ProgressBar,
    ScrollBar,
    StatusBar,
    TabStrip,
    Timer
};

// The name of a kind as scripts and assistive tools see it ("CommandButton").
std::string_view KindName(ControlKind kind);

enum class Key { Space, Enter, Delete, Escape, Character };
enum class MouseButton { Left, Right };

// What of a control changed.
enum class Aspect {
    Enabled,
    Visible,
    Tip,
    Caption,
    Value,
    Text,
    Index,
    Items,
    Range,
    Selection,
    Focus,
    Pointer,
    Geometry,
    Extent
};

// Watches controls, for whoever shows them. All calls come after the change.
class ControlObserver {
   public:
    virtual ~ControlObserver() = default;
    virtual void ControlChanged(Control& control, Aspect aspect) = 0;
    // Rows of a list. A Clear comes as Aspect::Items.
    virtual void RowsAdded(ListBox&, int /*first*/, int /*count*/) {}
    virtual void RowRemoved(ListBox&, int /*row*/) {}
    virtual void RowChanged(ListBox&, int /*row*/) {}
};

class Control {
   public:
    // A control of `form`, inside `container` (null: directly on the form). `index` is the element number in a control
    // array, -1 for a single control. The name is that of the array then.
    Control(Form& form, std::string name, ControlKind kind, Control* container = nullptr, int index = -1);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    std::string AddressName() const;  // the name, with "(n)" for an element of an array
    int Index() const { return index_; }
    ControlKind Kind() const { return kind_; }
    Form& ParentForm() const { return *form_; }
    Control* Container() const { return container_; }

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const std::string& Tip() const { return tip_; }
    void SetTip(std::string tip);

    bool Usable() const;   // it, all its containers and its form are enabled and visible
    bool Showing() const;  // it, all its containers and its form are visible
    virtual bool CanFocus() const { return false; }
    void SetFocus();  // gives it the focus of its form; nothing happens when it isn't usable or takes no focus
    bool HasFocus() const;

    Event MouseMove, GotFocus, LostFocus;
    EventOf<Key> KeyPress, KeyUp;

    void Observe(ControlObserver* observer) { observer_ = observer; }

   protected:
    struct FormTag {};
    Control(FormTag, Form* self, std::string name);  // for Form alone
    void Changed(Aspect aspect);
    ControlObserver* Observer() const { return observer_; }

   private:
    Form* form_;
    Control* container_ = nullptr;
    std::string name_;
    std::string tip_;
    ControlObserver* observer_ = nullptr;
    ControlKind kind_;
    int index_ = -1;
    bool enabled_ = true;
    bool visible_ = true;
};

}  // namespace qv
