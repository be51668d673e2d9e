#include "support/accessible_events.h"

#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>

namespace {

void ConnectReader(bool connected) {
  QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(connected);
}

}  // namespace

// A DLL's functions cannot be replaced, but what they tell can be had from them.
AccessibleEvents::AccessibleEvents() {
  current_ = this;
  QAccessible::installUpdateHandler([](QAccessibleEvent* event) { current_->Record(*event); });
  ConnectReader(true);
}

AccessibleEvents::~AccessibleEvents() {
  ConnectReader(false);
  QAccessible::installUpdateHandler(nullptr);
  current_ = nullptr;
}
