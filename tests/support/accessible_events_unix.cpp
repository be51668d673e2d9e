#include "support/accessible_events.h"

AccessibleEvents::AccessibleEvents() { current_ = this; }

AccessibleEvents::~AccessibleEvents() { current_ = nullptr; }

// The linker takes these in place of the toolkit's, also for what the toolkit itself tells.
bool QAccessible::isActive() { return AccessibleEvents::current_ != nullptr; }

void QAccessible::updateAccessibility(QAccessibleEvent* event) {
  if (AccessibleEvents::current_ != nullptr) AccessibleEvents::current_->Record(*event);
}
