#include "widgets/help_key.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QShortcut>
#include <QWidget>

#include "language/further_texts.h"
#include "widgets/manual_pages.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateText;

namespace {

void ShowProblem(QWidget* window, const QString& text, const QString& where) {
  MessageBoxStyle style;
  style.icon = QMessageBox::Warning;
  style.informative = TranslateText(where) + u'\n' + ManualPath();
  ShowMessageBeside(window, TranslateText(text), style);
}

void OpenManual(QWidget* window) {
  const QString manual = ManualPath();
  if (!QFileInfo(manual).isFile()) {
    ShowProblem(window, u"The manual is missing."_s, u"It should be here:"_s);
  } else if (!QDesktopServices::openUrl(ChapterUrl(manual, ManualChapter(window->objectName())))) {
    ShowProblem(window, u"No program opens the manual."_s, u"It is here:"_s);
  }
}

}  // namespace

void LetF1OpenManual(QWidget* window) {
  auto* key = new QShortcut(Qt::Key_F1, window);
  key->setAutoRepeat(false);
  QObject::connect(key, &QShortcut::activated, window, [window] { OpenManual(window); });
}
