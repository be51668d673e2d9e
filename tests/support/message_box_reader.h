// Answers the message boxes that a window shows while a test drives it, and keeps what they said.
#pragma once

#include <functional>

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QStringList>

struct SeenMessageBox {
  QString text;
  QString title;
  QMessageBox::Icon icon;
  QString informative;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton default_button;
  QMessageBox::StandardButton escape_button;
  QWidget* parent;
};

/// While it lives, every message box that appears is read and answered: by the queued answers in
/// order, then by its OK, Cancel or other escape button.
class MessageBoxReader : public QObject {
 public:
  MessageBoxReader();
  ~MessageBoxReader() override;

  /// The button for the next box that has none queued yet.
  void Answer(QMessageBox::StandardButton button) { answers_.append(button); }

  const QList<SeenMessageBox>& Seen() const { return seen_; }

  /// The texts of the boxes seen, in order.
  QStringList Texts() const;

  /// What stood below them, in the same order.
  QStringList Remedies() const;

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QList<QMessageBox::StandardButton> answers_;
  QList<SeenMessageBox> seen_;
};

/// While it lives, runs `body` inside every modal window of the given name that is shown, from that
/// window's own event loop.
class ModalWindowDriver : public QObject {
 public:
  /// `object_name` is the window's, such as "frmPage" or "CMDialog1".
  ModalWindowDriver(const QString& object_name, std::function<void(QWidget*)> body);
  ~ModalWindowDriver() override;

  /// How often the window was shown and driven.
  int Count() const { return count_; }

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QString object_name_;
  std::function<void(QWidget*)> body_;
  int count_ = 0;
};

/// What the labels of `window` show: the text without what the toolkit takes for markup in it.
QStringList ShownTexts(const QWidget& window);

/// What a file dialog offered before a name was entered.
struct SeenFileDialog {
  QString title;
  QStringList filters;
  QString filter;  ///< The one in force.
  QString folder;
  QString name;
};

/// Answers every file dialog of the given name that is opened while it lives with `path`, entered
/// in its name box; an empty path cancels it.
class FileChooser : public ModalWindowDriver {
 public:
  explicit FileChooser(const QString& path,
                       const QString& object_name = QStringLiteral("CMDialog1"));

  /// The dialog seen last.
  const SeenFileDialog& Seen() const { return seen_; }

 private:
  SeenFileDialog seen_;
};
