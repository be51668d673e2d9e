#include "support/message_box_reader.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

MessageBoxReader::MessageBoxReader() { qApp->installEventFilter(this); }

MessageBoxReader::~MessageBoxReader() { qApp->removeEventFilter(this); }

QStringList MessageBoxReader::Texts() const {
  QStringList texts;
  for (const SeenMessageBox& box : seen_) texts.append(box.text);
  return texts;
}

QStringList MessageBoxReader::Remedies() const {
  QStringList texts;
  for (const SeenMessageBox& box : seen_) texts.append(box.informative);
  return texts;
}

bool MessageBoxReader::eventFilter(QObject* object, QEvent* event) {
  auto* box = qobject_cast<QMessageBox*>(object);
  if (box != nullptr && event->type() == QEvent::Show) {
    QTimer::singleShot(0, box, [this, box] {
      seen_.append({box->text(), box->windowTitle(), box->icon(), box->informativeText(),
                    box->standardButtons(), box->standardButton(box->defaultButton()),
                    box->standardButton(box->escapeButton()), box->parentWidget()});
      QAbstractButton* button = answers_.isEmpty() ? nullptr : box->button(answers_.takeFirst());
      if (button == nullptr) button = box->button(QMessageBox::Ok);
      if (button == nullptr) button = box->button(QMessageBox::Cancel);
      button->click();
    });
  }
  return QObject::eventFilter(object, event);
}

ModalWindowDriver::ModalWindowDriver(const QString& object_name, std::function<void(QWidget*)> body)
    : object_name_(object_name), body_(std::move(body)) {
  qApp->installEventFilter(this);
}

ModalWindowDriver::~ModalWindowDriver() { qApp->removeEventFilter(this); }

bool ModalWindowDriver::eventFilter(QObject* object, QEvent* event) {
  auto* window = qobject_cast<QWidget*>(object);
  if (window != nullptr && event->type() == QEvent::Show && window->isWindow() &&
      window->objectName() == object_name_) {
    ++count_;
    QTimer::singleShot(0, window, [this, window] { body_(window); });
  }
  return QObject::eventFilter(object, event);
}

FileChooser::FileChooser(const QString& path, const QString& object_name)
    : ModalWindowDriver(object_name, [this, path](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        auto* name = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
        seen_ = {dialog->windowTitle(), dialog->nameFilters(), dialog->selectedNameFilter(),
                 dialog->directory().absolutePath(), name->text()};
        if (path.isEmpty()) {
          QTest::keyClick(dialog, Qt::Key_Escape);
          return;
        }
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
      }) {}

QStringList ShownTexts(const QWidget& window) {
  QStringList texts;
  for (QLabel* label : window.findChildren<QLabel*>()) {
    texts.append(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name));
  }
  return texts;
}
