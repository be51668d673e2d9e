#include "sending/sending_session.h"

#include <utility>

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

#include "language/module_language.h"
#include "panel_line/window_ports.h"
#include "sending/sending_words.h"

using namespace Qt::StringLiterals;

using Brivon1::ArrivedText;
using Brivon1::OpenLine;
using Brivon1::PanelPorts;
using Brivon1::Progress;
using Brivon1::SendMode;
using Brivon1::StatusLabel;
using Brivon1::TcpEndpoint;
using ModuleLanguage::TranslateMessage;

SendingSession::SendingSession(QDialog* window, QList<QWidget*> locked_controls,
                               const PanelPorts* ports)
    : QObject(window),
      window_(window),
      view_(window->findChild<ProgressView*>()),
      locked_controls_(std::move(locked_controls)),
      connection_(ports != nullptr ? *ports : (new Brivon1::WindowPorts(this))->Ports()) {
  window->installEventFilter(this);
  if (view_ != nullptr) {
    connect(view_, &ProgressView::StopPressed, this, &SendingSession::RequestStop);
  }
  ShowNote(Brivon1::LinkNote(Brivon1::Store()));
  if (auto* send = window->findChild<QPushButton*>(u"butSend"_s)) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      auto* shortcut = new QShortcut(Qt::CTRL | key, window);
      shortcut->setAutoRepeat(false);  // the keys that opened the window may still be held
      connect(shortcut, &QShortcut::activated, send, &QPushButton::click);
    }
  }
}

void SendingSession::ShowNote(const QString& note) {
  if (view_ != nullptr) view_->SetNote(note);
}

bool SendingSession::eventFilter(QObject* object, QEvent* event) {
  // A window must not vanish under the event loop of its own transmission.
  if (is_sending_ && object == window_) {
    const bool is_escape = event->type() == QEvent::KeyPress &&
                           static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (is_escape) RequestStop();
    if (is_escape || event->type() == QEvent::Close) {
      event->ignore();
      return true;
    }
  }
  return QObject::eventFilter(object, event);
}

void SendingSession::RequestStop() {
  if (!is_sending_ || (view_ != nullptr && !view_->CanStop())) return;
  connection_.Timer().stop.made = true;
  if (view_ != nullptr) view_->ShowStopping();
}

void SendingSession::Lock() {
  is_sending_ = true;
  connection_.Timer().stop = {};
  focus_ = window_->focusWidget();
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    if (!control->isWindow() && control->testAttribute(Qt::WA_SetCursor)) {
      own_pointers_.append({control, control->cursor()});
      control->unsetCursor();
    }
  }
  window_->setCursor(Qt::WaitCursor);
  for (QWidget* control : locked_controls_) control->setEnabled(false);
  if (view_ != nullptr) view_->Begin();
}

void SendingSession::ShowLastBytes(qint64 milliseconds_left) {
  if (view_ == nullptr) return;
  view_->Begin();
  view_->Show({.milliseconds_left = milliseconds_left});
}

void SendingSession::Unlock() {
  if (view_ != nullptr) view_->End();
  for (QWidget* control : locked_controls_) control->setEnabled(true);
  window_->unsetCursor();
  for (const auto& [control, cursor] : std::exchange(own_pointers_, {})) {
    if (control != nullptr) control->setCursor(cursor);
  }
  if (focus_ != nullptr) focus_->setFocus();
  is_sending_ = false;
}

Sending::Sending(SendingSession* session) : session_(session->IsSending() ? nullptr : session) {
  if (session_ != nullptr) session_->Lock();
}

Sending::~Sending() {
  if (session_ == nullptr) return;
  session_->connection_.Close(
      [this](qint64 milliseconds_left) { session_->ShowLastBytes(milliseconds_left); });
  session_->Unlock();
}

std::optional<OpenLine> Sending::Open(const TcpEndpoint& endpoint, const StatusLabel& status,
                                      const MessageBoxStyle& failure_style) {
  return Open(Brivon1::Store().Mode(), endpoint, status, failure_style);
}

std::optional<OpenLine> Sending::OpenSerial(const StatusLabel& status) {
  return Open(SendMode::kSerial, {}, status, {});
}

std::optional<OpenLine> Sending::Open(SendMode mode, const TcpEndpoint& endpoint,
                                      const StatusLabel& status, MessageBoxStyle failure_style) {
  if (mode == SendMode::kNone) return std::nullopt;
  Brivon1::PanelConnection& connection = session_->connection_;
  Brivon1::Configuration configuration = Brivon1::Store();
  ProgressView* view = session_->view_;
  if (view != nullptr) view->ShowText(TranslateMessage(u"Connecting to the panel"_s));
  const bool is_open = connection.Open(mode, configuration, endpoint);
  if (connection.Timer().stop.made) {
    ShowAborted(ArrivedText({}, 0), failure_style);
    return std::nullopt;
  }
  if (is_open) {
    if (view != nullptr) view->ShowText({});
    const auto show_progress = [view](const Progress& progress) {
      if (view != nullptr) view->Show(progress);
    };
    return OpenLine{
        connection.Link(), connection.Timer(), connection.Clock(), std::move(configuration), status,
        show_progress};
  }
  failure_style.informative = connection.FailureReason();
  ShowResult(Brivon1::LinkFailureText(mode), failure_style);
  return std::nullopt;
}

void Sending::ShowResult(const QString& text, const MessageBoxStyle& style) {
  if (session_->view_ != nullptr) session_->view_->End();
  ShowMessage(session_->window_, text, style);
}

void Sending::ShowFailure(const OpenLine& line, int id, const QString& text,
                          MessageBoxStyle style) {
  if (line.timer.stop.made) {
    ShowAborted(ArrivedText(line.progress, id), style);
  } else {
    style.informative = Brivon1::WhyNotSent(line, id);
    ShowResult(text, style);
  }
}

void Sending::ShowAborted(const QString& arrived, MessageBoxStyle style) {
  style.informative = arrived;
  ShowResult(TranslateMessage(u"Aborted!"_s), style);
}
