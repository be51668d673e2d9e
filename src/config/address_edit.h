// The box for the IP address of a panel.
#pragma once

#include <QLineEdit>

/// Is checked when the keyboard leaves it for another control of its window: leading zeros go, and
/// a text that is no address gives way, after a message, to the one of a panel that has none.
class AddressEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit AddressEdit(QWidget* parent = nullptr);

  /// Who goes from the box to `button` gives the address up: it is not checked.
  void GiveUpAt(const QWidget* button) { way_out_ = button; }

  /// Shows an address as it is stored. Nobody typed it, so that it passes the check whatever it is.
  void ShowStored(const QString& address);

  /// The check: whether the box holds an address, or the stored one still. Refuses anything else.
  bool Check();

  /// Says that what the box holds is no address, and clears it.
  void Refuse();

 protected:
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void OnLeft();

  const QWidget* way_out_ = nullptr;
  QString stored_;
  bool is_refusing_ = false;  // its message is on screen
};
