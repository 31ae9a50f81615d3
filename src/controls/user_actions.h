// What a user does to controls, as one call each: the events come in the order in which a mouse or a keyboard gives them.
// The caller has made sure that the control can be used.
#pragma once

#include <string>

#include "controls/control.h"
#include "controls/form.h"

namespace qv::user {

void Click(Control& control);           // buttons, menu entries, check boxes, options, labels, pictures; else just the focus
void Press(Control& control, Key key);  // press and release of a key with the focus in the control
// Enter and Escape press a button of the form wherever the focus is; a focused button takes Enter itself. False if there is none
// that can be pressed.
bool PressFormButton(Form& form, Key key);
void MouseDown(Control& button);        // the left button goes down on a command or tool button
void MouseUp(Control& button);
void Hover(Control& control);
void OpenMenu(Control& menu);  // runs the opening rules from the top menu down to this one

}  // namespace qv::user
