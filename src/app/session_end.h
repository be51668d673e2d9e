// The end of the desktop's session: at log-out and shutdown the desktop asks its programs first. An
// end of the program that nobody has asked about is asked about alike.
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

  /// The answer, once the operator has been asked if need be. `may_ask` is called where there is
  /// something to ask, and says whether the desktop lets the program do so.
  bool MayEnd(const std::function<bool()>& may_ask);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Answer(QSessionManager& session);
  bool MayLeave(const std::function<bool()>& may_ask) const;

  std::function<QWidget*()> open_window_;
  bool may_end_ = false;
};
