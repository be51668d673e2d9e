// What panels show.
#include <algorithm>

#include <QPainter>

#include "journey/hands.h"
#include "page/frmMsgEditor.h"
#include "panel_dots/dot_painter.h"
#include "panel_dots/panel_picture.h"
#include "pictures/picture_maker.h"
#include "support/message_box_reader.h"
#include "window/panel_window.h"

using namespace Qt::StringLiterals;

namespace {

const QString kLine = u"listening on tcp 127.0.0.1:2101"_s;
constexpr QSize kWholeWindow(1008, 810);
constexpr int kBesideEditor = 774;

}  // namespace

void PictureMaker::LetPagesEnter() {
  bool have_entered = false;
  time_.Schedule(5 * PanelDots::kEntranceMs, [&] { have_entered = true; });
  while (!have_entered) time_.Advance();
}

void PictureMaker::VirtualPanelWindow() {
  SendFile("messages/welcome.msg", 1, "001");
  SendFile("messages/lane_closed.msg", 1, "002");
  SendFile("messages/all_colours.msg", 2, "001");
  SendFrame("<ID01><TA>*****00108E,00205B");
  SendFrame("<ID01><RP002>");
  LetPagesEnter();
  VirtualPanel::PanelWindow window(&engine_);
  window.SetLines(kLine);
  window.resize(kWholeWindow);
  Show(window);
  Save(window, "virtual_panel");
}

void PictureMaker::EditorAndPanel() {
  frmMsgEditor editor(nullptr);
  Show(editor);
  const FileChooser chooser(Sample("messages/lane_closed.msg"));
  Click(&editor, "butOpen");
  const QImage left = Picture(editor);
  VirtualPanel::PanelEngine panel({{1, 4, 96, true}}, [this] { return engine_.Now(); });
  for (const VirtualPanel::FrameRecord& frame : engine_.Frames()) {
    if (frame.bytes.startsWith("<ID01>")) panel.Receive(frame.bytes);
  }
  LetPagesEnter();
  VirtualPanel::PanelWindow window(&panel);
  window.SetLines(kLine);
  window.resize(kBesideEditor, left.height());
  Show(window);
  const QImage right = Picture(window);

  QImage both(left.width() + right.width(), std::max(left.height(), right.height()),
              QImage::Format_RGB32);
  both.fill(Qt::white);
  QPainter painter(&both);
  painter.drawImage(0, 0, left);
  painter.drawImage(left.width(), 0, right);
  painter.end();
  Save(both, "editor_and_panel");
}

// Each letter above the dots that a panel lights for its symbol.
void PictureMaker::Symbols() {
  constexpr int kInARow = 13;
  constexpr int kCharacter = 6;  // dots
  constexpr int kPitch = 7;
  constexpr QSize kPlace(60, 92);
  constexpr QPoint kDots(9, 26);
  QImage table(kInARow * kPlace.width(), 2 * kPlace.height(), QImage::Format_RGB32);
  table.fill(Qt::white);
  QPainter painter(&table);
  const PanelDots::DotPainter dots(kPitch);
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const int number = letter - 'A';
    const QRect place(QPoint(number % kInARow * kPlace.width(), number / kInARow * kPlace.height()),
                      kPlace);
    painter.drawText(place.adjusted(0, 4, 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                     QString(QLatin1Char(letter)));
    PanelDots::PanelPicture picture{{1, kCharacter, true}};
    picture.rows.insert(
        1, PanelDots::ParseCells(u"<SA><CC><G%1>"_s.arg(QLatin1Char(letter)).toLatin1()));
    const PanelDots::DotMatrix matrix = PanelDots::DotsOf(picture, 0);
    QImage panel(kCharacter * kPitch, matrix.Rows() * kPitch, QImage::Format_RGB32);
    panel.fill(Qt::black);
    dots.Paint(&panel, {}, matrix, 0, matrix.Rows());
    painter.drawImage(place.topLeft() + kDots, panel);
  }
  painter.end();
  Save(table, "symbols");
}
