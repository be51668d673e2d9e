// Clicks into the launcher while a task window is open.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QWidget>

/// While it lives, a press of a mouse button over `launcher` brings `task` back to the front, where
/// it was minimised or is covered, and a window that is open over it too. The toolkit delivers no
/// event of such a press, as `task` is modal; but it notes the buttons that are down.
class BlockedClicks : public QObject {
  Q_OBJECT

 public:
  BlockedClicks(const QWidget* launcher, QDialog* task);

 private:
  void LookAtButtons();
  bool IsPointerOverLauncher() const;
  void BringBack() const;

  const QWidget* launcher_;
  QPointer<QDialog> task_;
  bool was_down_;
};
