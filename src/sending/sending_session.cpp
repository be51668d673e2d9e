#include "sending/sending_session.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QScopeGuard>

#include "language/further_texts.h"
#include "language/module_language.h"
#include "widgets/ignore_wheel.h"

using namespace Qt::StringLiterals;

using Brivon1::SendMode;

void FillPanelList(QComboBox* list, QByteArray (*line)(int id, const Brivon1::PanelEntry& entry)) {
  list->clear();
  const QList<QByteArray> entries = Brivon1::PanelListLines(Brivon1::Store(), line);
  const QStringList shown = ModuleLanguage::ShownPanelLines(entries);
  for (qsizetype i = 0; i < entries.size(); ++i) list->addItem(shown[i], entries[i]);
  list->setCurrentIndex(-1);
  IgnoreWheel(list);
}

std::optional<Brivon1::PanelListEntry> SelectedPanel(const QComboBox* list) {
  if (list->currentIndex() < 0) return std::nullopt;
  return Brivon1::ReadPanelListLine(list->currentData().toByteArray());
}

SendingSession::SendingSession(QDialog* window, QList<QWidget*> locked_controls)
    : QObject(window),
      window_(window),
      locked_controls_(std::move(locked_controls)),
      connection_(this) {
  window->installEventFilter(this);
}

void SendingSession::Run(const std::function<void()>& body) {
  if (is_sending_) return;
  Lock();
  const auto unlock = qScopeGuard([this] {
    connection_.Close();
    Unlock();
  });
  body();
}

void SendingSession::Transmit(const Brivon1::TcpEndpoint& endpoint,
                              const Brivon1::StatusLabel& status, MessageBoxStyle failure_style,
                              const std::function<void(Brivon1::Transmission&)>& send) {
  TransmitOver(Brivon1::Store().Mode(), endpoint, status, std::move(failure_style), send);
}

void SendingSession::TransmitOverSerial(const Brivon1::StatusLabel& status,
                                        MessageBoxStyle failure_style,
                                        const std::function<void(Brivon1::Transmission&)>& send) {
  TransmitOver(SendMode::kSerial, {}, status, std::move(failure_style), send);
}

void SendingSession::TransmitOver(SendMode mode, const Brivon1::TcpEndpoint& endpoint,
                                  const Brivon1::StatusLabel& status, MessageBoxStyle failure_style,
                                  const std::function<void(Brivon1::Transmission&)>& send) {
  const Brivon1::Configuration& configuration = Brivon1::Store();
  if (mode == SendMode::kNone) return;
  if (!connection_.Open(mode, configuration, endpoint)) {
    failure_style.informative = connection_.FailureReason();
    ShowMessage(window_,
                ModuleLanguage::TranslateMessage(mode == SendMode::kSerial
                                                     ? u"Fail to initialize communication port!"_s
                                                     : u"Cannot create TCP link!"_s),
                failure_style);
    return;
  }
  Brivon1::Transmission transmission{connection_.Link(), connection_.Timer(), connection_.Clock(),
                                     configuration, status};
  send(transmission);
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
