#include "widgets/message_boxes.h"

#include <QLabel>
#include <QWidget>

#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace {

/// Shows what stands in `box` letter by letter: a file's name may look like markup.
void UsePlainText(QMessageBox& box) {
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

}  // namespace

void ShowMessage(QWidget* window, const QString& text, const MessageBoxStyle& style) {
  QMessageBox box(style.icon, style.title.isEmpty() ? window->windowTitle() : style.title, text,
                  QMessageBox::Ok, window);
  box.setInformativeText(style.informative);
  UsePlainText(box);
  box.exec();
}

SaveAnswer AskToSave(QWidget* window) {
  // A question that is still open gives way: the session may be about to end beneath it.
  for (QMessageBox* open : window->findChildren<QMessageBox*>()) {
    if (open->icon() == QMessageBox::Question) open->reject();
  }
  QMessageBox box(QMessageBox::Question, window->windowTitle(),
                  ModuleLanguage::TranslateMessage(u"File not saved. Save it now?"_s),
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, window);
  UsePlainText(box);
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
