#include "widgets/caption_loader.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QWidget>

#include "base/tool_tip_text.h"
#include "language/caption_tables.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "widgets/caption_room.h"
#include "widgets/window_keys.h"

namespace {

using ModuleLanguage::CaptionKey;
using ModuleLanguage::CaptionKind;
using ModuleLanguage::CaptionRow;
using ModuleLanguage::CaptionTable;
using ModuleLanguage::LanguageFile;

// Gives one window the texts of the file's sections.
class Loader {
 public:
  explicit Loader(QWidget* window) : window_(window) {}

  void Load(const CaptionTable& table, const char* section) {
    section_ = QString::fromLatin1(section);
    for (const CaptionRow& row : table.rows) Load(row);
  }

 private:
  void Load(const CaptionRow& row) {
    switch (row.kind) {
      case CaptionKind::kWindow:
        window_->setWindowTitle(Text(row, 0, window_->windowTitle()));
        break;
      case CaptionKind::kControl:
        LoadControl(row);
        break;
      case CaptionKind::kList:
        LoadEntries(row);
        break;
      case CaptionKind::kFeatureList:
        break;  // its window lists them
      case CaptionKind::kDialogTitle:
        *row.title = Text(row, 0, QString::fromLatin1(row.built_in));
        break;
      case CaptionKind::kTableHeading:
        LoadHeadings(row);
        break;
      case CaptionKind::kToolTip:
        if (auto* control = Find<QWidget>(row)) {
          const QString tip = Text(row, 0, control->toolTip());
          control->setToolTip(Brivon1::ToolTipText(tip, Brivon1::LongLines::kWhole));
        }
        break;
      case CaptionKind::kName:
        if (auto* control = Find<QWidget>(row)) {
          control->setAccessibleName(Text(row, 0, control->accessibleName()));
        }
        break;
    }
  }

  QString Text(const CaptionRow& row, int n, const QString& current) const {
    return file_.Value(section_, CaptionKey(row, n), current);
  }

  template <typename Control>
  Control* Find(const CaptionRow& row) const {
    return window_->findChild<Control*>(QString::fromLatin1(row.control));
  }

  void LoadControl(const CaptionRow& row) {
    if (auto* label = Find<QLabel>(row)) {
      label->setTextFormat(Qt::PlainText);  // a caption is never markup, whatever a file says
      label->setText(Text(row, 0, label->text()));
    } else if (auto* button = Find<QAbstractButton>(row)) {
      button->setText(Text(row, 0, button->text()));
    } else if (auto* box = Find<QGroupBox>(row)) {
      box->setTitle(Text(row, 0, box->title()));
    }
  }

  void LoadEntries(const CaptionRow& row) {
    if (auto* combo = Find<QComboBox>(row)) {
      for (int n = 0; n < row.count && n < combo->count(); ++n) {
        combo->setItemText(n, Text(row, n, combo->itemText(n)));
      }
    } else if (auto* list = Find<QListWidget>(row)) {
      for (int n = 0; n < row.count && n < list->count(); ++n) {
        list->item(n)->setText(Text(row, n, list->item(n)->text()));
      }
    }
  }

  void LoadHeadings(const CaptionRow& row) {
    const auto* table = Find<QTableView>(row);
    if (table == nullptr) return;
    for (int n = 0; n < row.count; ++n) {
      const QString heading = Text(row, n, QString());
      if (heading.isEmpty()) continue;
      table->model()->setHeaderData(n + 1, Qt::Horizontal, heading);  // column 0 has no heading
    }
  }

  QWidget* window_;
  QString section_;
  LanguageFile file_;  // read once for the whole window
};

void UsePlainButtons(QWidget* window) {
  for (QPushButton* button : window->findChildren<QPushButton*>()) {
    QFont font = button->font();
    font.setBold(false);
    button->setFont(font);
  }
}

}  // namespace

void LoadCaptions(QWidget* window) {
  GiveCaptionsRoom(window);
  GiveWindowKeys(window);
  if (!ModuleLanguage::IsLanguageActive()) return;
  Loader loader(window);
  if (const CaptionTable* table = ModuleLanguage::FindCaptionTable(window->objectName())) {
    loader.Load(*table, table->window);
    if (table->plain_buttons) UsePlainButtons(window);
  }
  if (const CaptionTable* table = ModuleLanguage::FindFurtherCaptions(window->objectName())) {
    loader.Load(*table, ModuleLanguage::kFurtherSection);
  }
}
