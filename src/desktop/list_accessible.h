// What assistive tools see of a list: its rows as children, made when they are asked for.
#pragma once

namespace qv {

// Lets Qt know how lists are told. Called once, before the first window; further calls do nothing.
void TellListsToAssistiveTools();

}  // namespace qv
