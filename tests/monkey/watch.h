// What must be true of the program whatever is done to it. Looks between two actions, and at what
// the windows show meanwhile; judges by what stands in the windows and on the disk.
#pragma once

#include <functional>

#include <QByteArray>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "monkey/works.h"
#include "support/panel_bench.h"

class Watch : public QObject {
 public:
  /// `fail` is told, in a sentence, what is not as it must be.
  Watch(const VirtualBench& bench, const QString& folder,
        std::function<void(const QString& what)> fail);
  ~Watch() override;

  /// Looks at everything; between two actions.
  void Look();

  /// The program ends from outside: what is not saved is lost without a question.
  void Forgive() { forgives_ = true; }

  /// The desktop asks whether its session may end, and whether the program may ask its user; and
  /// what the program has answered.
  void SessionIsToEnd(bool may_ask);
  void SessionMayEnd(bool may_end);

  /// The program has let itself be ended by the desktop.
  void ProgramEnds();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Follow(QWidget* window);
  void FollowBox(QMessageBox* box);
  void FollowEditor(QWidget* editor);
  void AllowFile(const QString& path) { allowed_.append(path); }

  void LookAtFolder();
  void LookAtEditor();
  void LookAtControls() const;
  void LookAtSender(const QWidget& window) const;
  void ExpectEnabled(const QWidget& window, const QStringList& names) const;

  /// The work of the editor goes, or is about to: it must be on the disk or given up.
  void ExpectNothingLost(const QByteArray& work, const QString& why);

  bool IsSafe(const QByteArray& work) const { return IsBlank(work) || folder_.Holds(work); }

  const VirtualBench& bench_;
  Folder folder_;
  std::function<void(const QString& what)> fail_;
  QPointer<QWidget> editor_;
  QByteArray given_up_;     // the work that the operator has given up, until another action is done
  QByteArray asked_about_;  // the work that "Yes" saves, until then too
  QByteArray before_new_;   // the work when "New" was pressed
  QByteArray of_session_;   // the work for which the session may end
  bool must_end_ = false;   // the session, as nothing is against it
  bool may_ask_ = true;
  int looks_since_answer_ = 0;
  QStringList allowed_;  // files that may change before the next look
  QStringList allowed_before_;
  bool forgives_ = false;
};
