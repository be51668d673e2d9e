#include "config/address_edit.h"

#include <QAbstractButton>
#include <QFocusEvent>
#include <QScopedValueRollback>

#include "config/configuration_draft.h"
#include "language/module_language.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

AddressEdit::AddressEdit(QWidget* parent) : QLineEdit(parent) { ShowStored(Brivon1::kNoAddress); }

void AddressEdit::ShowStored(const QString& address) {
  stored_ = address;
  setText(address);
}

bool AddressEdit::Check() {
  if (const auto address = Brivon1::IpAddress(text())) {
    if (*address != text()) setText(*address);
    return true;
  }
  if (text() == stored_) return true;
  Refuse();
  return false;
}

void AddressEdit::Refuse() {
  if (is_refusing_) return;  // one message for one mistake
  const QScopedValueRollback refusing(is_refusing_, true);
  // A button that is being pressed never sees its release, or sees it when all is over.
  for (auto* button : window()->findChildren<QAbstractButton*>()) button->setDown(false);
  ShowRefusal(window(), {ModuleLanguage::TranslateMessage(u"Invalid IP Address!"_s),
                         Brivon1::AddressRemedy(text())});
  setText(Brivon1::kNoAddress);
}

void AddressEdit::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::MouseFocusReason) {
    // The press that leaves the box reaches its target first: a message box in between would take
    // the release away and leave a button pressed.
    QMetaObject::invokeMethod(this, &AddressEdit::OnLeft, Qt::QueuedConnection);
  } else if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
    OnLeft();
  }
  QLineEdit::focusOutEvent(event);
}

void AddressEdit::OnLeft() {
  if (isVisible() && window()->focusWidget() != way_out_) Check();
}
