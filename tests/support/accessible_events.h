// What screen readers are told of the rows in the editors. The toolkit tells nobody anything unless
// a reader is connected to the desktop; this stands in for one.
#pragma once

#include <string>

#include <QAccessible>
#include <QString>
#include <QStringList>

/// Takes down what is told as long as it lives; there is one at a time.
class AccessibleEvents {
 public:
  AccessibleEvents();
  ~AccessibleEvents();

  AccessibleEvents(const AccessibleEvents&) = delete;
  AccessibleEvents& operator=(const AccessibleEvents&) = delete;

  /// What was told since this was last asked, as in
  /// "Row 1: insert 2 'abc', cursor 5; Row 1: cursor 4; Row 1: description".
  std::string TakeAll();

  /// The toolkit's own functions: whether a reader is connected, and what hands it an event.
  friend bool QAccessible::isActive();
  friend void QAccessible::updateAccessibility(QAccessibleEvent* event);

 private:
  void Record(QAccessibleEvent& event);

  static inline AccessibleEvents* current_ = nullptr;
  QStringList told_;
};

/// The text that a screen reader finds in a widget; a failure where it finds none.
QString AccessibleText(QWidget* widget);
