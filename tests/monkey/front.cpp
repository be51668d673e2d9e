#include "monkey/front.h"

#include <algorithm>

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

#include "sending/sending_session.h"

using namespace Qt::StringLiterals;

namespace {

QString NameOf(const QWidget* control) {
  return control->objectName().isEmpty() ? QString::fromLatin1(control->metaObject()->className())
                                         : control->objectName();
}

// The controls of `window` that bear this name, or are of this class without one.
QList<QWidget*> Named(const QWidget* window, const QString& name) {
  QList<QWidget*> controls = window->findChildren<QWidget*>();
  controls.removeIf([&](const QWidget* control) {
    return NameOf(control) != name || control->window() != window;
  });
  return controls;
}

}  // namespace

QWidget* Front() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() == Qt::Window) return window;
  }
  return nullptr;
}

QWidget* FileDialogInFront() {
  if (qobject_cast<QMessageBox*>(Front()) != nullptr) return nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QFileDialog*>(window) != nullptr) return window;
  }
  return nullptr;
}

bool IsSending() {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    const auto* session = window->findChild<SendingSession*>(QString(), Qt::FindDirectChildrenOnly);
    if (session != nullptr && session->IsSending()) return true;
  }
  return false;
}

QString PathOf(const QWidget* control) {
  const QWidget* window = control->window();
  QString path = NameOf(window) + u'/';
  if (control == window) return path;
  const QString name = NameOf(control);
  const QList<QWidget*> same = Named(window, name);
  path += name;
  if (same.size() > 1) path += u'#' + QString::number(same.indexOf(control));
  return path;
}

QWidget* ControlAt(const QString& path) {
  QWidget* window = Front();
  if (window == nullptr || path.section(u'/', 0, 0) != NameOf(window)) return nullptr;
  const QString name = path.section(u'/', 1);
  if (name.isEmpty()) return window;
  return Named(window, name.section(u'#', 0, 0)).value(name.section(u'#', 1).toInt());
}

QList<QWidget*> ControlsInFront() {
  const QWidget* window = Front();
  if (window == nullptr) return {};
  QList<QWidget*> controls = window->findChildren<QWidget*>();
  controls.removeIf([&](const QWidget* control) {
    return control->window() != window || !control->isVisible() || control->size().isEmpty();
  });
  return controls;
}
