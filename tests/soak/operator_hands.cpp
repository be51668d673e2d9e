#include "soak/operator_hands.h"

#include <memory>

#include <QDialog>
#include <QListWidget>

#include "command/frmCommand.h"
#include "journey/hands.h"
#include "page/frmMsgEditor.h"
#include "page/frmSendMsg.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

int PlaceOf(const Work& work, const HostileLines& lines) {
  int place = 0;
  while (lines.Panels().at(place).id != work.panel.id) ++place;
  return place;
}

int CommandRow(WorkKind kind) {
  switch (kind) {
    case WorkKind::kSetClock:
      return 1;
    case WorkKind::kDeleteAll:
      return 2;
    case WorkKind::kDeletePage:
      return 3;
    case WorkKind::kRunPage:
      return 4;
    default:
      return 0;
  }
}

std::unique_ptr<QDialog> OpenWindow(const Work& work, int place) {
  std::unique_ptr<QDialog> window;
  switch (work.kind) {
    case WorkKind::kPage:
      window = std::make_unique<frmSendMsg>(nullptr, work.path);
      window->show();
      Choose(window.get(), "ComboID", place);
      TypeInto(window.get(), "txtPage", work.number);
      break;
    case WorkKind::kSchedule:
      window = std::make_unique<frmSendSch>(nullptr, work.path);
      window->show();
      Choose(window.get(), "ComboSchID", place);
      TypeInto(window.get(), "txtSchNo", work.number);
      break;
    case WorkKind::kScrolling:
      window = std::make_unique<frmSendShift>(nullptr, work.path);
      window->show();
      Choose(window.get(), "ComboID", place);
      TypeInto(window.get(), "txtLine", work.number);
      break;
    default:
      window = std::make_unique<frmCommand>(nullptr);
      window->show();
      Choose(window.get(), "ComboID", place);
      Find<QListWidget>(window.get(), "ListCommand")->setCurrentRow(CommandRow(work.kind));
      break;
  }
  return window;
}

void PressStop(QWidget* window) {
  auto* stop = Find<QPushButton>(window, "butStop");
  if (stop->isVisible() && stop->isEnabled()) QTest::mouseClick(stop, Qt::LeftButton);
}

}  // namespace

Told SendFromItsWindow(const Work& work, const HostileLines& lines, int stop_after) {
  const std::unique_ptr<QDialog> window = OpenWindow(work, PlaceOf(work, lines));
  const BoxClicker boxes;
  const ModalWindowDriver asks_for_page(u"frmPage"_s, [&work](QWidget* dialog) {
    TypeInto(dialog, "txtPage", work.number);
    Click(dialog, "butOk");
  });
  if (stop_after >= 0) {
    QTimer::singleShot(stop_after, window.get(), [&window] { PressStop(window.get()); });
  }
  Click(window.get(), "butSend");
  Told told;
  told.end = Told::End::kFinished;
  int seen = 0;
  for (const BoxClicker::Seen& box : boxes.Boxes()) {
    if (box.window != window.get()) continue;
    ++seen;
    // What has not been done is told with a reason below it.
    if (!box.informative.isEmpty()) told.end = Told::End::kFailed;
    if (box.text == "Aborted!"_L1) told.end = Told::End::kStopped;
    told.why += box.informative + u'\n';
  }
  if (seen == 0) told = {Told::End::kFailed, {}};
  if (told.end == Told::End::kFinished) told.why.clear();
  return told;
}

void VisitAnEditor(Random& random, const HostileLines& lines) {
  const BoxClicker boxes;
  std::unique_ptr<QDialog> editor;
  const int kind = random.Below(3);
  if (kind == 0) {
    editor = std::make_unique<frmMsgEditor>();
  } else if (kind == 1) {
    editor = std::make_unique<frmSchedule>();
  } else {
    editor = std::make_unique<frmShiftMsg>();
  }
  editor->show();
  if (kind == 2) {
    Click(editor.get(), "butNew");
  } else {
    const FileChooser chooser(lines.Folder().Path(kind == 0 ? u"page.msg"_s : u"week.sch"_s));
    Click(editor.get(), "butOpen");
  }
  if (kind == 0) QTest::keyClicks(Row(editor.get(), 1), u"typed"_s);
  if (kind == 2) QTest::keyClicks(editor->focusWidget(), u"typed"_s);
  QTest::keyClick(editor.get(), Qt::Key_Escape);
  if (editor->isVisible()) qFatal("the editor cannot be left");
}

void ShowEveryCharacter(const HostileLines& lines) {
  constexpr int kPages = 3;
  constexpr int kRows = 12;
  constexpr int kCharacters = 150;
  int number = 0;
  for (int page = 0; page < kPages; ++page) {
    QByteArray file = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 2400\r\n";
    for (int row = 1; row <= kRows; ++row) {
      file += "<L" + QByteArray::number(row).rightJustified(2, '0') + '>';
      for (int count = 0; count < kCharacters; ++count, ++number) {
        file += "<S" + QByteArray(1, static_cast<char>('A' + number % 4)) + "><C" +
                static_cast<char>('A' + number / 4 % 16) + '>' +
                static_cast<char>(0xA1 + number / 64 % 94);
      }
      file += "\r\n";
    }
    const QString path = lines.Folder().Write(u"all.msg"_s, file);
    const BoxClicker boxes;
    frmMsgEditor editor;
    editor.show();
    const FileChooser chooser(path);
    Click(&editor, "butOpen");
    for (int row = 1; row <= kRows; ++row) Row(&editor, row)->grab();
  }
}
