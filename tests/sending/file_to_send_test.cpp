// What the three dialogs that send a file do alike before a line is opened: with the file that was
// handed over or chosen, the list of panels, and the keyboard.
#include <QComboBox>
#include <QTest>

#include <gtest/gtest.h>

#include "page/frmSendMsg.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "support/program_folder.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

/// A file, and what the dialog shows of it.
struct ShownFile {
  const char* name;
  const char* content;
  const char* rows;
  const char* columns;
};

struct FileDialog {
  const char* name;
  std::unique_ptr<QDialog> (*make)(const QString& path);
  QList<const char*> locked;
  const char* title;
  const char* path_label;
  bool has_dimension;  ///< Whether it shows the file's.
  const char* panels;  ///< The list of panels.
  const char* no_panel;
  ShownFile file;
  ShownFile other;
  const char* description;  ///< Of its kind of file, in the file dialog.
  const char* pattern;
  const char* file_dialog;
  const char* browse_end;  ///< Behind the messages about a chosen file,
  const char* send_end;    ///< and about one that is to be sent.
  const char* tab_order;   ///< From the control at which the work begins with a file.
};

template <typename Window>
std::unique_ptr<QDialog> Make(const QString& path) {
  return std::make_unique<Window>(nullptr, path);
}

const FileDialog kDialogs[] = {
    {.name = "Page",
     .make = Make<frmSendMsg>,
     .locked = {"butBrowse", "ComboID", "txtPage", "butSend", "butDone"},
     .title = "Send Message",
     .path_label = "lblFileName",
     .has_dimension = true,
     .panels = "ComboID",
     .no_panel = "Invalid ID Selection!",
     .file = {"a.msg", "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n", "2", "96"},
     .other = {"b.msg", "*** Brivon Message File ***\r\nRow = 4\r\nCol = 128\r\n", "4", "128"},
     .description = "Message File",
     .pattern = "*.msg",
     .file_dialog = "CMDialog1",
     .browse_end = "!",
     .send_end = "!",
     .tab_order = "ComboID txtPage butSend butDone butBrowse"},
    {.name = "Schedule",
     .make = Make<frmSendSch>,
     .locked = {"butSend", "butDone", "ComboSchID", "butBrowse"},
     .title = "Send Schedule",
     .path_label = "lblSchFileName",
     .has_dimension = true,
     .panels = "ComboSchID",
     .no_panel = "No ID Selected!",
     .file = {"a.sch",
              "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\nRow =16\r\n"
              "Col =96\r\nNo of Sequence =1\r\na.msg\r\n1\r\nAppear\r\n",
              "16", "96"},
     .other = {"b.sch",
               "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\nRow =4\r\n"
               "Col =128\r\nNo of Sequence =1\r\na.msg\r\n1\r\nAppear\r\n",
               "4", "128"},
     .description = "Schedule File",
     .pattern = "*.sch",
     .file_dialog = "DialogBrowse",
     .browse_end = "",
     .send_end = "",
     .tab_order = "txtSchNo ComboSchID butSend butDone butBrowse"},
    {.name = "Scrolling",
     .make = Make<frmSendShift>,
     .locked = {"butBrowse", "ComboID", "txtLine", "butSend", "butDone"},
     .title = "Send Scrolling Message",
     .path_label = "lblFileName",
     .has_dimension = false,
     .panels = "ComboID",
     .no_panel = "Invalid ID Selection!",
     .file = {"a.srl", "*** Brivon Shift Message File ***\r\nRoad works\r\n", "", ""},
     .other = {"b.srl", "*** Brivon Shift Message File ***\r\nOpen again\r\n", "", ""},
     .description = "Scrolling Message File",
     .pattern = "*.srl",
     .file_dialog = "CMDialog1",
     .browse_end = "",
     .send_end = "!",
     .tab_order = "ComboID txtLine butSend butDone butBrowse"}};

void PrintTo(const FileDialog& dialog, std::ostream* out) { *out << dialog.name; }

std::string FileDialogName(const testing::TestParamInfo<FileDialog>& dialog) {
  return dialog.param.name;
}

class FileToSendTest : public testing::TestWithParam<FileDialog> {
 protected:
  FileToSendTest() {
    folder_.Configure(
        "[Dimension Config]\r\nID001=16x96,Tri,192.168.0.1:80\r\nID002=2x128,Mono\r\n"
        "[Communication]\r\nSendMode=TCPIP\r\n");
    path_ = Write(GetParam().file);
  }

  QString Write(const ShownFile& file) const {
    return folder_.Write(QString::fromLatin1(file.name), file.content);
  }

  static SendDialog Open(const QString& path) { return {GetParam().make(path), GetParam().locked}; }

  static void ExpectShown(SendDialog& dialog, const QString& path, const ShownFile& file) {
    EXPECT_EQ(dialog.Shown(GetParam().path_label), path);
    if (!GetParam().has_dimension) return;
    EXPECT_EQ(dialog.Shown("lblRow"), QLatin1String(file.rows));
    EXPECT_EQ(dialog.Shown("lblCol"), QLatin1String(file.columns));
  }

  static QStringList WhenBrowsing(const QString& text) {
    return {text + QLatin1String(GetParam().browse_end)};
  }
  static QStringList WhenSending(const QString& text) {
    return {text + QLatin1String(GetParam().send_end)};
  }

  static FileChooser Choose(const QString& path) {
    return FileChooser(path, QString::fromLatin1(GetParam().file_dialog));
  }

  TemporaryProgramFolder folder_;
  QString path_;
};

INSTANTIATE_TEST_SUITE_P(Dialogs, FileToSendTest, testing::ValuesIn(kDialogs), FileDialogName);

TEST_P(FileToSendTest, DoneAndEscapeCloseTheDialog) {
  SendDialog dialog = Open(path_);
  dialog.Click("butDone");
  EXPECT_FALSE(dialog.window.isVisible());
  SendDialog other = Open(path_);
  QTest::keyClick(&other.window, Qt::Key_Escape);
  EXPECT_FALSE(other.window.isVisible());
}

TEST_P(FileToSendTest, AMissingFileAFolderOrNoneAtAllIsNotFound) {
  for (const QString& path : {folder_.Path(u"gone"_s), folder_.Path(QString()), QString()}) {
    SendDialog dialog = Open(path);
    EXPECT_EQ(dialog.Send(), WhenSending(u"File not found"_s)) << path.toStdString();
    EXPECT_TRUE(dialog.IsReady());
  }
}

TEST_P(FileToSendTest, TheMessageAboutAMissingFileComesFromTheLanguageFile) {
  folder_.UseLanguage("[Message]\r\nmsgNotFound=Datei fehlt\r\n");
  SendDialog dialog = Open(QString());
  EXPECT_EQ(dialog.Send(), WhenSending(u"Datei fehlt"_s));
}

TEST_P(FileToSendTest, WithNoPanelConfiguredTheListIsEmptyAndSendAsksForAPanel) {
  folder_.Configure("");
  SendDialog dialog = Open(path_);
  EXPECT_EQ(dialog.Find<QComboBox>(GetParam().panels)->count(), 0);
  EXPECT_EQ(dialog.Send(), QStringList{QLatin1String(GetParam().no_panel)});
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(FileToSendTest, AFileHandedOverShowsItsDimensionAtOnce) {
  SendDialog dialog = Open(path_);
  ExpectShown(dialog, path_, GetParam().file);
}

TEST_P(FileToSendTest, WithoutAFileNoDimensionIsShown) {
  SendDialog dialog = Open(QString());
  ExpectShown(dialog, QString(), {"", "", "", ""});
}

TEST_P(FileToSendTest, BrowseShowsTheChosenFileWithItsDimension) {
  const QString other = Write(GetParam().other);
  const QString filter =
      u"%1 (%2)"_s.arg(QLatin1String(GetParam().description), QLatin1String(GetParam().pattern));
  for (const QString& path : {path_, QString()}) {
    SendDialog dialog = Open(path);
    const MessageBoxReader boxes;
    const FileChooser chooser = Choose(other);
    dialog.Click("butBrowse");
    EXPECT_EQ(chooser.Seen().title, u"Browse"_s);
    EXPECT_EQ(chooser.Seen().filters, (QStringList{filter, u"All (*)"_s}));
    EXPECT_EQ(chooser.Seen().filter, filter);
    ExpectShown(dialog, other, GetParam().other);
    EXPECT_TRUE(boxes.Seen().isEmpty());
  }
}

TEST_P(FileToSendTest, WhatBrowseRefusesChangesNothing) {
  const QString bad = folder_.Write(u"bad"_s, QByteArray(100, 'x'));
  const QString another_kind =
      Write(GetParam().file.name == kDialogs[0].file.name ? kDialogs[1].file : kDialogs[0].file);
  const std::pair<QString, QString> refusals[] = {{folder_.Path(u"gone"_s), u"File not found"_s},
                                                  {bad, u"Error in opening file"_s},
                                                  {another_kind, u"Error in opening file"_s}};
  SendDialog dialog = Open(path_);
  for (const auto& [path, text] : refusals) {
    const MessageBoxReader boxes;
    const FileChooser chooser = Choose(path);
    dialog.Click("butBrowse");
    EXPECT_EQ(chooser.Seen().title, u"Browse"_s);
    EXPECT_EQ(boxes.Texts(), WhenBrowsing(text));
    EXPECT_EQ(boxes.Seen().value(0).title, QLatin1String(GetParam().title));
    EXPECT_EQ(boxes.Seen().value(0).icon, QMessageBox::NoIcon);
    ExpectShown(dialog, path_, GetParam().file);
  }
}

TEST_P(FileToSendTest, ABrowseThatIsCancelledChangesNothing) {
  SendDialog dialog = Open(path_);
  const MessageBoxReader boxes;
  const FileChooser chooser = Choose(QString());
  dialog.Click("butBrowse");
  EXPECT_EQ(chooser.Count(), 1);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  ExpectShown(dialog, path_, GetParam().file);
}

TEST_P(FileToSendTest, BrowseSpeaksTheLanguageInUse) {
  folder_.UseLanguage(
      "[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgErrOpen=Unlesbar\r\nmsgBrowse=Durchsuchen\r\n");
  const QString bad = folder_.Write(u"bad"_s, QByteArray(100, 'x'));
  SendDialog dialog = Open(path_);
  const MessageBoxReader boxes;
  for (const QString& path : {folder_.Path(u"gone"_s), bad}) {
    const FileChooser chooser = Choose(path);
    dialog.Click("butBrowse");
    EXPECT_EQ(chooser.Seen().title, u"Durchsuchen"_s);
  }
  EXPECT_EQ(boxes.Texts(), WhenBrowsing(u"Datei fehlt"_s) + WhenBrowsing(u"Unlesbar"_s));
}

TEST_P(FileToSendTest, TheKeyboardGoesFromTopToBottomAndStartsWhereTheWorkDoes) {
  EXPECT_EQ(Open(QString()).window.focusWidget()->objectName(), u"butBrowse"_s);
  SendDialog dialog = Open(path_);
  QStringList order;
  for (qsizetype step = 0; step < 5; ++step) {
    order.append(dialog.window.focusWidget()->objectName());
    QTest::keyClick(dialog.window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order.join(QLatin1Char(' ')), QLatin1String(GetParam().tab_order));
  EXPECT_EQ(dialog.window.focusWidget()->objectName(), order.first());
}

}  // namespace
