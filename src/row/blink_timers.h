// The clocks of an editor's preview: the cursor blinks, and so do the blinking characters.
#pragma once

#include <QObject>

class QTimer;

class BlinkTimers : public QObject {
  Q_OBJECT

 public:
  /// The characters blink from now on, the cursor once it is shown. The timers are `window`'s.
  explicit BlinkTimers(QObject* window);

  /// The cursor is seen at once wherever it has come to, and blinks from there on.
  void ShowCursor();

 Q_SIGNALS:
  void CursorBlinked(bool shown);
  void CharactersBlinked(bool hidden);

 private:
  void SetCursorShown(bool shown);

  QTimer* cursor_timer_;
  QTimer* character_timer_;
  bool cursor_shown_ = false;
  bool characters_hidden_ = false;
};
