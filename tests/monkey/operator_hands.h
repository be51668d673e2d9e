// Does an action at the window in front, by the events that a keyboard, a mouse and a desktop send.
#pragma once

#include <functional>

#include "monkey/action.h"

/// False where there is nothing that it could be done at: another window is in front, the control
/// is gone, or a file dialog is open, at which only names are entered. `typed` is called after each
/// letter of a text.
bool Perform(const Action& action, const std::function<void()>& typed);

/// Brings the window in front to the keyboard, as a desktop does when another one has closed.
void ActivateFront();

/// Presses a key and releases it; `keys` as in "Ctrl+Shift+Home".
void PressKeys(const QString& keys);
