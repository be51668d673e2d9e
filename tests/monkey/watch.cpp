#include "monkey/watch.h"

#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFileDialog>

#include "language/module_language.h"
#include "monkey/front.h"
#include "sending/sending_session.h"
#include "widgets/unsaved_work.h"

using namespace Qt::StringLiterals;

namespace {

bool IsEditor(const QWidget* window) { return dynamic_cast<const UnsavedWork*>(window) != nullptr; }

// Whether `dialog` asks for a file whose work takes the place of the editor's.
bool OpensWork(const QFileDialog& dialog, const QWidget& editor) {
  if (dialog.acceptMode() != QFileDialog::AcceptOpen) return false;
  return editor.objectName() != "frmSchedule"_L1 ||
         dialog.windowTitle() == ModuleLanguage::TranslateMessage(ModuleLanguage::DialogTitleOpen);
}

}  // namespace

Watch::Watch(const VirtualBench& bench, const QString& folder,
             std::function<void(const QString& what)> fail)
    : bench_(bench), folder_(folder), fail_(std::move(fail)) {
  folder_.Look();
  qApp->installEventFilter(this);
}

Watch::~Watch() { qApp->removeEventFilter(this); }

bool Watch::eventFilter(QObject* object, QEvent* event) {
  auto* window = qobject_cast<QWidget*>(object);
  if (window == nullptr || !window->isWindow()) return false;
  if (event->type() == QEvent::Show && !event->spontaneous()) Follow(window);
  if (event->type() == QEvent::Hide && !event->spontaneous() && window == editor_) {
    ExpectNothingLost(WorkIn(*window), u"the editor has gone"_s);
    editor_ = nullptr;
  }
  return false;
}

void Watch::Follow(QWidget* window) {
  if (IsEditor(window)) FollowEditor(window);
  if (auto* box = qobject_cast<QMessageBox*>(window)) FollowBox(box);
  if (auto* dialog = qobject_cast<QFileDialog*>(window)) {
    dialog->setOption(QFileDialog::ReadOnly);
    if (editor_ != nullptr && dialog->parentWidget() == editor_ && OpensWork(*dialog, *editor_)) {
      ExpectNothingLost(WorkIn(*editor_), u"another file is to be opened"_s);
    }
    if (dialog->acceptMode() == QFileDialog::AcceptSave) {
      connect(dialog, &QDialog::accepted, this,
              [this, dialog] { AllowFile(QDir::cleanPath(dialog->selectedFiles().value(0))); });
    }
  }
  const QString name = window->objectName();
  if (editor_ != nullptr && window->parentWidget() == editor_ &&
      (name == "frmDimension"_L1 || name.startsWith("frmSend"_L1))) {
    ExpectNothingLost(WorkIn(*editor_), name + u" is opened"_s);
  }
  if (name == "frmConfig"_L1) {
    connect(window->findChild<QAbstractButton*>(u"butOK"_s), &QAbstractButton::clicked, this,
            [this] { AllowFile(Brivon1::ConfigurationPath()); });
  }
}

void Watch::FollowEditor(QWidget* editor) {
  if (editor_ == editor) return;
  editor_ = editor;
  given_up_.clear();
  const auto* save = editor->findChild<QAbstractButton*>(u"butSave"_s);
  const auto allow = [this, editor] {
    AllowFile(NameOfFile(*editor));
    asked_about_.clear();
  };
  connect(save, &QAbstractButton::pressed, this, allow);
  connect(save, &QAbstractButton::clicked, this, allow);
  // What is saved under another name now is no longer what a question was about.
  connect(editor->findChild<QAbstractButton*>(u"butSaveAs"_s), &QAbstractButton::pressed, this,
          [this] { asked_about_.clear(); });
  // A new work may take the place of the old one without a dialog.
  const auto* begin = editor->findChild<QAbstractButton*>(u"butNew"_s);
  connect(begin, &QAbstractButton::pressed, this,
          [this, editor] { before_new_ = WorkIn(*editor); });
  connect(begin, &QAbstractButton::clicked, this, [this, editor] {
    if (WorkIn(*editor) != before_new_) ExpectNothingLost(before_new_, u"new work is begun"_s);
  });
}

void Watch::FollowBox(QMessageBox* box) {
  if (box->text().trimmed().isEmpty()) fail_(u"a message box says nothing"_s);
  if (box->icon() != QMessageBox::Question || box->parentWidget() != editor_) return;
  if (!may_ask_) fail_(u"the session ends, and a question is asked that may not be"_s);
  connect(box, &QDialog::finished, this, [this, box] {
    const auto answer = box->standardButton(box->clickedButton());
    if (editor_ == nullptr) return;
    looks_since_answer_ = 0;
    given_up_.clear();
    asked_about_.clear();
    if (answer == QMessageBox::Yes) {
      AllowFile(NameOfFile(*editor_));
      asked_about_ = WorkIn(*editor_);
    }
    if (answer == QMessageBox::No) given_up_ = WorkIn(*editor_);
  });
}

void Watch::Look() {
  LookAtFolder();
  LookAtEditor();
  LookAtControls();
}

void Watch::LookAtFolder() {
  for (const QString& path : folder_.Look()) {
    if (!allowed_.contains(path) && !allowed_before_.contains(path)) {
      fail_(u"a file has changed that nobody saved: "_s + path);
      return;
    }
    if (editor_ == nullptr) continue;
    // After "Yes" the editor may have gone on to other work already.
    const QByteArray work = asked_about_.isEmpty() ? WorkIn(*editor_) : asked_about_;
    if (ComesBack(work) && !folder_.Holds(work)) {
      fail_(u"what was saved is not what stands in the editor: "_s + path + u'\n' +
            QString::fromLatin1(work.toPercentEncoding(" ")));
      return;
    }
    folder_.KnowAs(path, work);
  }
  allowed_before_ = std::exchange(allowed_, {});
}

void Watch::LookAtEditor() {
  if (editor_ == nullptr) return;
  if (Front() == editor_ && ++looks_since_answer_ > 1) {
    given_up_.clear();
    asked_about_.clear();
  }
  if (!dynamic_cast<const UnsavedWork*>(editor_.data())->IsModified() &&
      !IsSafe(WorkIn(*editor_))) {
    fail_(u"work that no file holds counts as saved: "_s +
          QString::fromLatin1(WorkIn(*editor_).toPercentEncoding(" ")));
  }
}

void Watch::ExpectNothingLost(const QByteArray& work, const QString& why) {
  if (forgives_) return;
  LookAtFolder();  // a question that was answered may have saved the work
  if (IsSafe(work) || work == given_up_) return;
  fail_(u"unsaved work is lost without the question: "_s + why);
}

void Watch::SessionIsToEnd(bool may_ask) {
  may_ask_ = may_ask;
  must_end_ = !IsSending() &&
              (editor_ == nullptr || !dynamic_cast<const UnsavedWork&>(*editor_).IsModified());
}

void Watch::SessionMayEnd(bool may_end) {
  may_ask_ = true;
  of_session_.clear();
  if (must_end_ && !may_end) fail_(u"the session is kept from ending for nothing"_s);
  if (!may_end || forgives_) return;
  if (IsSending()) fail_(u"the session may end while a window sends"_s);
  if (editor_ == nullptr) return;
  ExpectNothingLost(WorkIn(*editor_), u"the session may end"_s);
  of_session_ = WorkIn(*editor_);
}

void Watch::ProgramEnds() {
  if (editor_ != nullptr && WorkIn(*editor_) != of_session_) {
    ExpectNothingLost(WorkIn(*editor_), u"the desktop ends the program"_s);
  }
  Forgive();
}

void Watch::LookAtControls() const {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    if (window->findChild<SendingSession*>(QString(), Qt::FindDirectChildrenOnly) != nullptr) {
      LookAtSender(*window);
    } else if (IsEditor(window)) {
      ExpectEnabled(*window, {u"butNew"_s, u"butOpen"_s, u"butExit"_s});
    } else if (window->objectName() == "frmMain"_L1) {
      ExpectEnabled(*window, {u"butMsgEdit"_s, u"butShiftMsg"_s, u"butSchEdit"_s,
                              u"butConfigEdit"_s, u"butCommand"_s, u"butEnd"_s});
    } else if (window->objectName() == "frmConfig"_L1) {
      ExpectEnabled(*window, {u"butOK"_s, u"butCancel"_s});
    }
  }
}

void Watch::LookAtSender(const QWidget& window) const {
  const auto* session = window.findChild<SendingSession*>(QString(), Qt::FindDirectChildrenOnly);
  if (session->IsSending()) {
    const auto* send = window.findChild<QWidget*>(u"butSend"_s);
    if (send->isEnabled()) fail_(u"the window sends, and may be told to send again"_s);
    return;
  }
  ExpectEnabled(window, {u"butSend"_s, u"butDone"_s});
  if (window.cursor().shape() != Qt::ArrowCursor) fail_(u"nothing is sent, the pointer is busy"_s);
  if (!bench_.IsReleased()) fail_(u"nothing is sent, a line is open"_s);
  if (bench_.Timer().IsEnabled()) fail_(u"nothing is sent, the timer runs"_s);
}

void Watch::ExpectEnabled(const QWidget& window, const QStringList& names) const {
  for (const QString& name : names) {
    const auto* control = window.findChild<const QWidget*>(name);
    if (control == nullptr || !control->isEnabled()) {
      fail_(u"%1 cannot be used in %2, though nothing is sent"_s.arg(name, window.objectName()));
    }
  }
}
