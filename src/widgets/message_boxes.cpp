#include "widgets/message_boxes.h"

#include <algorithm>
#include <memory>

#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace {

/// Shows what stands in `box` letter by letter: a file's name may look like markup.
void UsePlainText(QMessageBox& box) {
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

// What a desktop puts beside a window's title: a symbol, three buttons and the room between them.
constexpr int kBesideTitle = 160;

constexpr int kLettersAcross = 70;  // of a line that is not broken

/// Makes `box` so wide that its title is not cut.
void MakeRoomForTitle(QMessageBox& box) {
  auto* layout = qobject_cast<QGridLayout*>(box.layout());
  if (layout == nullptr) return;
  QFont font = box.font();
  font.setBold(true);  // as most desktops write a title
  const int title = QFontMetrics(font).horizontalAdvance(box.windowTitle());
  layout->addItem(new QSpacerItem(title + kBesideTitle, 0, QSizePolicy::Minimum),
                  layout->rowCount(), 0, 1, layout->columnCount());
}

/// Lets the line below the text be selected, copied and read aloud, and gives it room.
void PrepareInformative(QMessageBox& box) {
  auto* label = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s);
  if (label == nullptr) return;
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setAccessibleDescription(box.informativeText());
  const QFontMetrics letters = label->fontMetrics();
  const int screen = box.screen()->availableSize().width() - kBesideTitle;
  const int common = kLettersAcross * letters.averageCharWidth();
  int width = 0;
  for (const QString& line : box.informativeText().split(u'\n')) {
    width = std::max(width, std::min(letters.horizontalAdvance(line), common));
    // A path has no place to be broken at.
    for (const QString& word : line.split(u' ')) {
      width = std::max(width, letters.horizontalAdvance(word));
    }
  }
  label->setMinimumWidth(std::min(width + letters.averageCharWidth(), screen));
}

std::unique_ptr<QMessageBox> MakeBox(QWidget* window, const QString& text,
                                     const MessageBoxStyle& style) {
  auto box = std::make_unique<QMessageBox>(
      style.icon, style.title.isEmpty() ? window->windowTitle() : style.title, text,
      QMessageBox::Ok, window);
  box->setInformativeText(style.informative);
  UsePlainText(*box);
  MakeRoomForTitle(*box);
  PrepareInformative(*box);
  return box;
}

}  // namespace

void ShowMessage(QWidget* window, const QString& text, const MessageBoxStyle& style) {
  MakeBox(window, text, style)->exec();
}

void ShowMessageBeside(QWidget* window, const QString& text, const MessageBoxStyle& style) {
  QMessageBox* box = MakeBox(window, text, style).release();  // its window owns it
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

void ShowRefusal(QWidget* window, const Brivon1::Refusal& refusal, MessageBoxStyle style) {
  style.informative = refusal.remedy;
  ShowMessage(window, refusal.text, style);
}

SaveAnswer AskToSave(QWidget* window, const QString& informative) {
  // A question that is still open gives way: the session may be about to end beneath it.
  for (QMessageBox* open : window->findChildren<QMessageBox*>()) {
    if (open->icon() == QMessageBox::Question) open->reject();
  }
  QMessageBox box(QMessageBox::Question, window->windowTitle(),
                  ModuleLanguage::TranslateMessage(u"File not saved. Save it now?"_s),
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, window);
  box.setInformativeText(informative);
  UsePlainText(box);
  MakeRoomForTitle(box);
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
