// What the launcher says about the program itself: its version, its folder, what it is made with.
#pragma once

class QWidget;

/// Names the program folder in the tool tip of `launcher`, and gives it a menu with "About", which
/// the right mouse button opens and the menu key.
void TellAboutProgram(QWidget* launcher);
