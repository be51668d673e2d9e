// F1 in every window.
#pragma once

class QWidget;

/// Lets F1 open the manual's chapter about `window` in the browser. Where the manual is missing or
/// nothing opens it, a message box says where it should be or is; a transmission goes on meanwhile.
void LetF1OpenManual(QWidget* window);
