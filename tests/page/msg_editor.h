// The page editor under test.
#pragma once

#include <gtest/gtest.h>

#include "page/dialog_results.h"
#include "page/frmMsgEditor.h"
#include "row/editor_driver.h"

/// Presses New and answers its dialog.
inline void NewPage(EditorDriver& editor, qint16 rows, qint16 columns, bool accepted = true) {
  const ModalWindowDriver dimension(Text("frmDimension"), [=](QWidget* dialog) {
    // The answer travels through the shared values; how the dialog comes to it is its own matter.
    static_cast<QDialog*>(dialog)->done(0);
    Brivon1::DialogAccepted = accepted;
    Brivon1::SelectedRows = rows;
    Brivon1::SelectedCols = columns;
  });
  editor.Press("butNew");
  EXPECT_EQ(dimension.Count(), 1);
  editor.Activate();
}

inline const EditorKind kPageEditor = {
    .window = "frmMsgEditor",
    .title = "Message Editor",
    .surface = "Picture1(1)",
    .label = "Row 1",
    .new_file = "NEW.MSG",
    .extension = ".msg",
    .send_dialog = "frmSendMsg",
    .open_filters = {Text("All (*)"), Text("Message File(*.msg)"), Text("Schedule File(*.sch)")},
    .save_filters = {Text("All (*)"), Text("Message File(*.msg)")},
    .lists = {Text("ComboColor"), Text("ComboSize"), Text("ComboGraphic")},
    .tab_order =
        Text("butOpen butSave butSaveAs butSend butExit ComboColor ComboSize chkBlink ComboGraphic "
             "cmdAddDate cmdAddTime Picture1(1) Command3 Command4 butNew")
            .split(QLatin1Char(' ')),
    .refused_files = {{"", "Error in opening file!"},
                      {"*** Brivon Message File ***\r\n", "Error in opening file!"},
                      {EveryByte(), "Error in opening file!"},
                      {"*** Brivon Message File ***\r\nRow = 99999\r\nCol = 80\r\n",
                       "Error in Opening file!"},
                      {"*** Brivon Message File ***\r\nRow = 0\r\nCol = 9\r\n",
                       "Error in Opening file!"},
                      {"*** Brivon Message File ***\r\n" + EveryByte(), "Error in Opening file!"}},
    .start = "*** Brivon Message File ***\r\n",
    .make_window = [](const TemporaryProgramFolder& folder) -> std::unique_ptr<QDialog> {
      folder.Configure("[Dimension Config]\r\nID001=4x80,Tri,127.0.0.1:80\r\n");
      return std::make_unique<frmMsgEditor>();
    },
    .begin = [](EditorDriver& editor) { NewPage(editor, 2, 80); },
    .file_of =
        [](const QByteArray& row) {
          return "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n<L01>" + row +
                 "\r\n<L02>\r\n";
        },
};

class MsgEditor : public testing::Test, protected EditorDriver {
 protected:
  MsgEditor() : EditorDriver(kPageEditor) {}

  QWidget* Row(int number) {
    return window_.findChild<QWidget*>(QStringLiteral("Picture1(%1)").arg(number));
  }

  void New(qint16 rows, qint16 columns, bool accepted = true) {
    NewPage(*this, rows, columns, accepted);
  }

  /// The row lines of the page on screen.
  QByteArray RowLines() {
    const QByteArray content = Saved();
    const qsizetype first = content.indexOf("<L01>");
    return first < 0 ? QByteArray() : content.sliced(first);
  }

  QImage Picture(int row) { return Row(row)->grab().toImage(); }

  /// The column in front of which a row shows the white cursor line; -1 where it shows none.
  int Cursor(int row) { return CursorCell(Row(row)); }

  /// Writes a file of a page of two rows with these row lines.
  QString WriteMessage(const char* name, const QByteArray& rows) {
    return folder_.Write(Text(name),
                         "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n" + rows);
  }
};
