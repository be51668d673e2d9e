// The end of the desktop's session: at log-out and shutdown the desktop asks its programs first.
#pragma once

#include <functional>

#include <QObject>

class QSessionManager;
class QWidget;

/// Answers that request. Unsaved work is asked about as the close box asks; "Cancel", a save that
/// fails and a window that is sending keep the session from ending, and so does unsaved work that
/// the desktop does not let the program ask about.
class SessionEnd : public QObject {
  Q_OBJECT

 public:
  /// `open_window` gives the window that the operator works in, with its dialogs; null for none.
  SessionEnd(std::function<QWidget*()> open_window, QObject* parent);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Answer(QSessionManager& session);
  bool MayEnd(QSessionManager& session) const;

  std::function<QWidget*()> open_window_;
  bool may_end_ = false;
};
