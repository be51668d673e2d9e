// Alt and a letter press a button, whose caption stays as it is: its tool tip shows the letter, and
// screen readers tell it.
#pragma once

class QWidget;

/// Gives each push button, check box and option button of `window` a letter of its caption, as
/// ChooseLetters() does it, whenever the window is shown or a caption changes. Letters that the
/// window uses otherwise are left out. Alt and the letter do what a click does, the focus included;
/// they do nothing where the button is hidden or disabled. Called at the end of the window's
/// construction.
void GiveButtonsLetters(QWidget* window);
