#include "row/row_commands.h"

#include <optional>
#include <utility>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QToolTip>

#include "language/further_texts.h"
#include "row/row_clip.h"
#include "row/row_status.h"
#include "row/row_surface.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::LeftOut;
using Brivon1::MoveKey;
using Brivon1::PageRow;
using Brivon1::RowCommand;
using ModuleLanguage::TranslateText;

QString ClipType() { return QLatin1String(Brivon1::kRowClipType); }

/// The characters with attributes that the clipboard holds. What calls itself such and is none
/// counts as not there.
std::optional<PageRow> ClipOf(const QMimeData& data) {
  if (!data.hasFormat(ClipType())) return std::nullopt;
  return Brivon1::ReadRowClip(data.data(ClipType()));
}

void Copy(const PageRow& characters) {
  auto* data = new QMimeData;
  data->setText(Brivon1::ClipText(characters));
  const QByteArray clip = Brivon1::RowClip(characters);
  if (!clip.isEmpty()) data->setData(ClipType(), clip);
  QGuiApplication::clipboard()->setMimeData(data);
}

}  // namespace

RowCommands::RowCommands(QWidget* window, Brivon1::EditedMessage& message,
                         std::function<void()> show, std::function<void()> return_keyboard)
    : QObject(window),
      message_(message),
      show_(std::move(show)),
      return_keyboard_(std::move(return_keyboard)) {}

void RowCommands::Serve(RowSurface& surface, int number) {
  connect(&surface, &RowSurface::SelectKeyPressed, this, [this, number](MoveKey key) {
    message_.SelectByKey(number, key);
    Show();
  });
  connect(&surface, &RowSurface::Dragged, this, [this, number](double x) {
    message_.SelectTo(number, x);
    Show();
  });
  connect(&surface, &RowSurface::DoubleClicked, this, [this, number](double x) {
    message_.SelectWord(number, x);
    Show();
  });
  connect(&surface, &RowSurface::SelectionAsked, this,
          [this, number](qsizetype anchor, qsizetype cursor) {
            message_.Select(number, anchor, cursor);
            Show();
          });
  connect(&surface, &RowSurface::CommandPressed, this, [this, number](RowCommand command) {
    message_.MakeCurrent(number);
    Do(command);
  });
  connect(&surface, &RowSurface::MenuAsked, this,
          [this, &surface, number](const QPoint& place) { OpenMenu(surface, number, place); });
}

void RowCommands::OpenMenu(RowSurface& surface, int number, const QPoint& place) {
  message_.MakeCurrent(number);
  message_.EndChoosing();
  Show();
  auto* menu = new QMenu(&surface);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  AddCommand(menu, RowCommand::kUndo, TranslateText(u"Undo"_s));
  AddCommand(menu, RowCommand::kRedo, TranslateText(u"Redo"_s));
  menu->addSeparator();
  AddCommand(menu, RowCommand::kCut, TranslateText(u"Cut"_s));
  AddCommand(menu, RowCommand::kCopy, TranslateText(u"Copy"_s));
  AddCommand(menu, RowCommand::kPaste, TranslateText(u"Paste"_s));
  menu->addSeparator();
  if (attributes_.colour != nullptr) {
    AddAttributes(menu, attributes_, message_, [this](bool blinking) {
      message_.ChooseBlink(blinking);
      ShowAttributes();
    });
    menu->addSeparator();
  }
  AddCommand(menu, RowCommand::kSelectRow, TranslateText(u"Select row"_s));
  AddCommand(menu, RowCommand::kClearRow, TranslateText(u"Clear row"_s));
  AddCommand(menu, RowCommand::kCentreRow, TranslateText(u"Centre row"_s));
  AddCommand(menu, RowCommand::kCopyRow, TranslateText(u"Copy row"_s));
  menu->popup(place);
}

void RowCommands::AddCommand(QMenu* menu, RowCommand command, const QString& text) {
  QAction* action = menu->addAction(text, this, [this, command] { Do(command); });
  action->setShortcut(KeysOf(command));
  action->setShortcutVisibleInContextMenu(true);
  action->setEnabled(CanDo(command));
}

bool RowCommands::CanDo(RowCommand command) const {
  const PageRow& row = message_.EditedRow();
  switch (command) {
    case RowCommand::kUndo:
      return message_.CanUndo();
    case RowCommand::kRedo:
      return message_.CanRedo();
    case RowCommand::kCut:
    case RowCommand::kCopy:
      return row.HasSelection();
    case RowCommand::kPaste: {
      const QMimeData* data = QGuiApplication::clipboard()->mimeData();
      return data != nullptr && (!data->text().isEmpty() || ClipOf(*data).has_value());
    }
    case RowCommand::kSelectRow:
    case RowCommand::kClearRow:
    case RowCommand::kCopyRow:
      return row.Length() > 0;
    case RowCommand::kCentreRow:
      return message_.CanCentreRow();
  }
  return false;
}

void RowCommands::Do(RowCommand command) {
  const PageRow& row = message_.EditedRow();
  if (!CanDo(command)) return;
  switch (command) {
    case RowCommand::kUndo:
      message_.Undo();
      break;
    case RowCommand::kRedo:
      message_.Redo();
      break;
    case RowCommand::kCut:
      Copy(row.Part(row.SelectionBegin(), row.SelectionEnd()));
      message_.RemoveSelected();
      break;
    case RowCommand::kCopy:
      Copy(row.Part(row.SelectionBegin(), row.SelectionEnd()));
      break;
    case RowCommand::kPaste:
      Paste();
      return;
    case RowCommand::kSelectRow:
      message_.Select(message_.EditedNumber(), 0, row.Length());
      break;
    case RowCommand::kClearRow:
      message_.ClearRow();
      break;
    case RowCommand::kCentreRow:
      message_.CentreRow();
      break;
    case RowCommand::kCopyRow:
      Copy(row);
      break;
  }
  Show();
}

void RowCommands::Paste() {
  const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
  const auto clip = ClipOf(data);
  const LeftOut left_out = clip ? message_.Paste(*clip) : message_.Paste(data.text());
  Show();
  if (left_out.IsAnything()) Q_EMIT Said(Brivon1::RowStatusWords().Refusal(left_out));
}

void RowCommands::Show() {
  show_();
  return_keyboard_();
}

void RowCommands::ShowAttributes() {
  if (message_.EditedRow().HasSelection()) {
    show_();
  } else {
    Q_EMIT AttributesChosen();
  }
}

void RowCommands::SayTooWide() {
  Q_EMIT Said(TranslateText(u"The size stays: the row would be wider than the panel."_s));
}

void ShowBesideCursor(const RowSurface& surface, const QString& text) {
  QToolTip::showText(surface.mapToGlobal(surface.CursorRectangle().bottomLeft()), text);
}
