// Answers every message box that appears while it lives, with "No" where that is offered, and keeps
// what they said.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QTimer>

class BoxClicker : public QObject {
 public:
  explicit BoxClicker(QObject* parent = nullptr) : QObject(parent) {
    qApp->installEventFilter(this);
  }

  /// Of the boxes of `window`.
  struct Seen {
    QWidget* window;
    QString text;
    QString informative;
  };
  const QList<Seen>& Boxes() const { return boxes_; }

  bool eventFilter(QObject* object, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(object);
    if (box != nullptr && event->type() == QEvent::Show) {
      QTimer::singleShot(0, box, [this, box] {
        boxes_.append({box->parentWidget(), box->text(), box->informativeText()});
        for (const auto name : {QMessageBox::No, QMessageBox::Ok, QMessageBox::Cancel}) {
          QAbstractButton* button = box->button(name);
          if (button != nullptr) return button->click();
        }
      });
    }
    return QObject::eventFilter(object, event);
  }

 private:
  QList<Seen> boxes_;
};
