// Enter in the windows that have no default button.
#pragma once

class QDialog;

/// Lets Enter click the button of `window` that has the focus, as Space does. Everywhere else the
/// key stays what it was: no button becomes the default one, which the toolkit's own way would do.
void LetEnterPressButtons(QDialog* window);
