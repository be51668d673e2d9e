// What an operator does with the controls of a window, by key and mouse.
#pragma once

#include <QByteArray>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QTest>

template <typename T>
T* Find(QWidget* window, const char* name) {
  T* control = window->findChild<T*>(QString::fromLatin1(name));
  if (control == nullptr) qFatal("there is no control %s", name);
  return control;
}

inline void Click(QWidget* window, const char* name) {
  QTest::mouseClick(Find<QPushButton>(window, name), Qt::LeftButton);
}

inline void Choose(QWidget* window, const char* name, int index) {
  auto* list = Find<QComboBox>(window, name);
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Home);
  for (int i = 0; i < index; ++i) QTest::keyClick(list, Qt::Key_Down);
}

inline QWidget* Row(QWidget* window, int row) {
  return Find<QWidget>(window, QByteArray("Picture1(" + QByteArray::number(row) + ")").data());
}

inline void TypeInto(QWidget* window, const char* name, const QString& text) {
  auto* box = Find<QLineEdit>(window, name);
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, text);
}
