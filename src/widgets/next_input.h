// What runs in a window until the next key or click: that one ends it and does nothing else.
#pragma once

#include <functional>

#include <QObject>

class QKeyEvent;
class QWidget;

class NextInput : public QObject {
 public:
  /// `taken` is called when the awaited key or click into `window`, which owns this, has come.
  NextInput(QWidget* window, std::function<void()> taken);

  /// Awaits the next key or click; Shift, Ctrl or Alt alone is none. With its release, its
  /// repetitions and the second click of a double click it is kept from the window's controls and
  /// shortcuts.
  void Await();

  /// Awaits none any more.
  void Cancel() { awaits_ = false; }

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool IsOfWindow(const QObject* object) const;
  bool TakesKey(const QKeyEvent& event);
  bool TakesClick();
  void Take();

  QWidget& window_;
  std::function<void()> taken_;
  bool awaits_ = false;
  int held_key_ = 0;              // the key that was taken, until it is released
  bool click_was_taken_ = false;  // the last one
};
