// Does an action at the window in front, by the events that a keyboard, a mouse and a desktop send.
#pragma once

#include "monkey/action.h"

/// False where there is nothing that it could be done at: another window is in front, the control
/// is gone, or a file dialog is open, at which only names are entered.
bool Perform(const Action& action);

/// Brings the window in front to the keyboard, as a desktop does when another one has closed.
void ActivateFront();

/// Presses a key and releases it; `keys` as in "Ctrl+Shift+Home".
void PressKeys(const QString& keys);
