#include "app/message_boxes.h"

#include <QWidget>

#include "app/module_language.h"

void ShowMessage(QWidget* window, const QString& text, const MessageBoxStyle& style) {
  QMessageBox box(style.icon, style.title.isEmpty() ? window->windowTitle() : style.title, text,
                  QMessageBox::Ok, window);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(style.informative);
  box.exec();
}

SaveAnswer AskToSave(QWidget* window) {
  QMessageBox box(QMessageBox::Question, window->windowTitle(),
                  ModuleLanguage::TranslateMessage(QStringLiteral("File not saved. Save it now?")),
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, window);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::Cancel);
  switch (box.exec()) {
    case QMessageBox::Yes:
      return SaveAnswer::kYes;
    case QMessageBox::No:
      return SaveAnswer::kNo;
    default:
      return SaveAnswer::kCancel;
  }
}
