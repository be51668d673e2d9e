// The keys that all windows have in common.
#pragma once

class QWidget;

/// Gives `window` the letters of its buttons (GiveButtonsLetters()) and F1 (LetF1OpenManual());
/// called at the end of the window's construction, by LoadCaptions() where that is called.
void GiveWindowKeys(QWidget* window);
