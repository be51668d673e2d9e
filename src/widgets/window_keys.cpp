#include "widgets/window_keys.h"

#include "widgets/button_letters.h"
#include "widgets/help_key.h"

void GiveWindowKeys(QWidget* window) {
  GiveButtonsLetters(window);
  LetF1OpenManual(window);
}
