#include "app/session_end.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QWidget>

#include "sending/sending_session.h"
#include "widgets/unsaved_work.h"

SessionEnd::SessionEnd(std::function<QWidget*()> open_window, QObject* parent)
    : QObject(parent), open_window_(std::move(open_window)) {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::Answer,
          Qt::DirectConnection);
  qGuiApp->installEventFilter(this);
}

void SessionEnd::Answer(QSessionManager& session) {
  if (MayEnd([&session] { return session.allowsInteraction(); })) {
    session.release();
  } else {
    session.cancel();
  }
}

bool SessionEnd::MayEnd(const std::function<bool()>& may_ask) {
  may_end_ = MayLeave(may_ask);
  return may_end_;
}

bool SessionEnd::MayLeave(const std::function<bool()>& may_ask) const {
  QWidget* window = open_window_();
  if (window == nullptr) return true;
  const QList<SendingSession*> links = window->findChildren<SendingSession*>();
  if (std::any_of(links.begin(), links.end(), [](auto* link) { return link->IsSending(); })) {
    return false;
  }
  auto* work = dynamic_cast<UnsavedWork*>(window);
  if (work == nullptr || !work->IsModified()) return true;
  return may_ask() && work->MayLeave();
}

bool SessionEnd::eventFilter(QObject* object, QEvent* event) {
  // Other programs may still be asking, and the operator goes on here meanwhile.
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress ||
      event->type() == QEvent::InputMethod || event->type() == QEvent::Drop) {
    may_end_ = false;
  }
  // Windows that have been asked already are not asked again. The toolkit would pass over one that
  // is being closed, though its question is still open.
  if (event->type() == QEvent::Quit) {
    if (may_end_ || MayEnd([] { return true; })) {
      QCoreApplication::exit();
    } else {
      event->ignore();
    }
    return true;
  }
  return QObject::eventFilter(object, event);
}
