// The scrolling message editor under test.
#pragma once

#include <QLabel>

#include <gtest/gtest.h>

#include "row/editor_driver.h"
#include "scrolling/frmShiftMsg.h"

inline const QByteArray kHeader = "*** Brivon Shift Message File ***\r\n";

inline const EditorKind kScrollingEditor = {
    .window = "frmShiftMsg",
    .title = "Scrolling Message",
    .surface = "Picture1",
    .label = "Message",
    .new_file = "NEW.SRL",
    .extension = ".srl",
    .send_dialog = "frmSendShift",
    .open_filters = {Text("All (*)"), Text("Scrolling Message (*.srl)")},
    .save_filters = {Text("All (*)"), Text("scrolling File(*.srl)")},
    .lists = {Text("ComboColor"), Text("ComboSize")},
    .tab_order = Text("butOpen butSave butSaveAs butSend butExit ComboColor ComboSize chkBlink "
                      "Picture1 butPlay spinColumns butNew")
                     .split(QLatin1Char(' ')),
    .refused_files = {{"", "Error in opening file!"},
                      {EveryByte(), "Error in opening file!"},
                      {kHeader.first(29), "Error in opening file!"},
                      {"*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>x\r\n",
                       "Error in opening file!"},
                      {kHeader.chopped(2), "Error in Opening file!"},
                      {kHeader, "Error in Opening file!"}},
    .start = kHeader,
    .make_window = [](const TemporaryProgramFolder& /*folder*/) -> std::unique_ptr<QDialog> {
      return std::make_unique<frmShiftMsg>();
    },
    .begin = [](EditorDriver& editor) { editor.Press("butNew"); },
    .file_of = [](const QByteArray& row) { return kHeader + row + "\r\n"; },
};

class ShiftMsg : public testing::Test, protected EditorDriver {
 protected:
  ShiftMsg() : EditorDriver(kScrollingEditor) {}

  QWidget* Picture() { return Surface(); }
  QString Position() { return Find<QLabel>("lblPosition")->text(); }

  QString Write(const char* name, const QByteArray& body) {
    return folder_.Write(Text(name), kHeader + body + "\r\n");
  }

  /// What is saved of the message, without the header.
  QByteArray Body() {
    const QByteArray content = Saved();
    EXPECT_TRUE(content.startsWith(kHeader));
    return content.sliced(content.startsWith(kHeader) ? kHeader.size() : 0);
  }

  QImage Image() { return Picture()->grab().toImage(); }

  /// The cell in front of which the white cursor line stands; -1 where there is none.
  int CursorCell() { return EditorDriver::CursorCell(Picture()); }
};
