#include "sending/sending_session.h"

#include <utility>

#include <QKeyEvent>

#include "language/module_language.h"
#include "panel_line/window_ports.h"

using namespace Qt::StringLiterals;

using Brivon1::OpenLine;
using Brivon1::PanelPorts;
using Brivon1::SendMode;
using Brivon1::StatusLabel;
using Brivon1::TcpEndpoint;

SendingSession::SendingSession(QDialog* window, QList<QWidget*> locked_controls,
                               const PanelPorts* ports)
    : QObject(window),
      window_(window),
      locked_controls_(std::move(locked_controls)),
      connection_(ports != nullptr ? *ports : (new Brivon1::WindowPorts(this))->Ports()) {
  window->installEventFilter(this);
}

bool SendingSession::eventFilter(QObject* object, QEvent* event) {
  // A window must not vanish under the event loop of its own transmission.
  if (is_sending_ && object == window_) {
    const bool is_escape = event->type() == QEvent::KeyPress &&
                           static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (is_escape || event->type() == QEvent::Close) {
      event->ignore();
      return true;
    }
  }
  return QObject::eventFilter(object, event);
}

void SendingSession::Lock() {
  is_sending_ = true;
  focus_ = window_->focusWidget();
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    if (!control->isWindow() && control->testAttribute(Qt::WA_SetCursor)) {
      own_pointers_.append({control, control->cursor()});
      control->unsetCursor();
    }
  }
  window_->setCursor(Qt::WaitCursor);
  for (QWidget* control : locked_controls_) control->setEnabled(false);
}

void SendingSession::Unlock() {
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
  session_->connection_.Close();
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
  const Brivon1::Configuration configuration = Brivon1::Store();
  if (connection.Open(mode, configuration, endpoint)) {
    return OpenLine{connection.Link(), connection.Timer(), connection.Clock(), configuration,
                    status};
  }
  failure_style.informative = connection.FailureReason();
  ShowMessage(session_->window_,
              ModuleLanguage::TranslateMessage(mode == SendMode::kSerial
                                                   ? u"Fail to initialize communication port!"_s
                                                   : u"Cannot create TCP link!"_s),
              failure_style);
  return std::nullopt;
}
