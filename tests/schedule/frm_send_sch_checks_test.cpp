#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include "ports/port.h"
#include "schedule/send_schedule_dialog.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "widgets/caption_button.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

using Dialog = ScheduleDialog;

/// The dialog in front of panels that are never reached: what it refuses before it opens a link.
class SendScheduleChecks : public testing::Test {
 protected:
  SendScheduleChecks() {
    folder_.Configure(
        "[Dimension Config]\r\nID001=16x96,Tri,192.168.0.1:80\r\nID002=16x128,Mono\r\n"
        "[Communication]\r\nSendMode=TCPIP\r\n");
    path_ = Schedule(u"week.sch"_s, "Row =16\r\nCol =96\r\n");
  }

  QString Schedule(const QString& name, const QByteArray& dimension) const {
    return folder_.Write(name, ScheduleFile(dimension, {{u"a.msg"_s, "1", "Appear"}}));
  }

  TemporaryProgramFolder folder_;
  QString path_;
};

TEST_F(SendScheduleChecks, HasItsControlsAndTexts) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.window.objectName(), u"frmSendSch"_s);
  EXPECT_EQ(dialog.window.windowTitle(), u"Send Schedule"_s);
  const std::pair<const char*, const char*> boxes[] = {{"frameFile", "Schedule File"},
                                                       {"FrameSchNo", "Schedule No"},
                                                       {"FrameDestination", "Destination"},
                                                       {"FrameStatus", "Send Status"}};
  for (const auto& [name, text] : boxes) {
    EXPECT_EQ(dialog.Find<QGroupBox>(name)->title(), QLatin1String(text));
  }
  const std::pair<const char*, const char*> labels[] = {{"LabelRow", "Row:"},
                                                        {"LabelCol", "Col:"},
                                                        {"lblSchNo", "Schedule No."},
                                                        {"Label2", "(A - J)"},
                                                        {"LabelDisplayID", "ID Number"},
                                                        {"lblSendStatus", ""}};
  for (const auto& [name, text] : labels) EXPECT_EQ(dialog.Shown(name), QLatin1String(text));
  const std::pair<const char*, const char*> buttons[] = {
      {"butBrowse", "Browse"}, {"butSend", "Send"}, {"butDone", "Done"}};
  for (const auto& [name, text] : buttons) {
    EXPECT_EQ(dialog.Find<QPushButton>(name)->text(), QLatin1String(text));
  }
  EXPECT_EQ(dialog.Find<QLineEdit>("txtSchNo")->text(), QString());
  EXPECT_EQ(dialog.Find<QTimer>("Timer1")->interval(), 100);
  EXPECT_NE(dialog.Find<Ports::Port>("Comm1"), nullptr);
  EXPECT_NE(dialog.Find<QTcpSocket>("Winsock1"), nullptr);
}

TEST_F(SendScheduleChecks, CaptionsThatAre30CharactersLongerAreShownWhole) {
  QByteArray language = "[frmSendSch]\r\n";
  for (const QByteArray caption :
       {"LabelRow=Row:", "LabelCol=Col:", "lblSchNo=Schedule No.", "LabelDisplayID=ID Number",
        "butBrowse=Browse", "butSend=Send", "butDone=Done"}) {
    language += "frmSendSch." + caption + " and more words of a translation\r\n";
  }
  folder_.UseLanguage(language);
  Dialog dialog(path_);
  for (const char* name : {"butBrowse", "butSend", "butDone"}) {
    EXPECT_TRUE(dialog.Find<CaptionButton>(name)->Fit().complete) << name;
  }
  for (const char* name : {"LabelRow", "LabelCol", "lblSchNo", "LabelDisplayID"}) {
    const auto* label = dialog.Find<QLabel>(name);
    EXPECT_TRUE(FitText(label->font(), label->text(), label->contentsRect().size()).complete)
        << name;
  }
  EXPECT_LE(dialog.window.width(), 800);
}

TEST_F(SendScheduleChecks, TheChecksComeInTheirOrderEachWithAPlainBox) {
  folder_.UseLanguage("[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgDim=Passt nicht!\r\n");
  const QString path = folder_.Path(u"late.sch"_s);
  Dialog dialog(path);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  folder_.Write(u"late.sch"_s, QByteArray(100, 'x'));
  dialog.Click("butSend");
  dialog.ChoosePanel(0);
  dialog.Click("butSend");
  Schedule(u"late.sch"_s, "Row =4\r\nCol =96\r\n");
  dialog.Click("butSend");
  Schedule(u"late.sch"_s, "Row =16\r\nCol =128\r\n");
  dialog.Click("butSend");
  dialog.ChoosePanel(1);
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(),
            (QStringList{u"Datei fehlt"_s, u"No ID Selected!"_s, u"Passt nicht!"_s,
                         u"Passt nicht!"_s, u"Passt nicht!"_s, u"Cannot create TCP link!"_s}));
  const QStringList remedies = boxes.Remedies();
  EXPECT_EQ(remedies.first(),
            path +
                u": No such file or directory\nIt has been moved or renamed, or was not saved yet. "
                "Save it, or choose another one."_s);
  EXPECT_EQ(remedies[1], u"Choose a panel from the list."_s);
  EXPECT_EQ(remedies[2],
            path + u" begins with \""_s + QString(40, u'x') + u"\".\nChoose a schedule (.sch)."_s);
  for (const int other_size : {3, 4}) {
    EXPECT_TRUE(remedies[other_size].startsWith(u"The schedule is "_s));
  }
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Schedule"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendScheduleChecks, A16x96ScheduleSentToAPanelListedAs16x128IsRefusedBeforeAnyPortIsOpened) {
  Dialog dialog(path_);
  dialog.ChoosePanel(1);
  QSignalSpy tcp(dialog.Find<QTcpSocket>("Winsock1"), &QTcpSocket::stateChanged);
  // This panel has no address: a link that was to be opened would give a message of its own.
  EXPECT_EQ(dialog.Send(), QStringList{u"Dimension not matched!"_s});
  EXPECT_EQ(tcp.count(), 0);
}

TEST_F(SendScheduleChecks, ThePanelListHasOneEntryForEachConfiguredPanelAndNoneIsSelected) {
  Dialog dialog(path_);
  auto* list = dialog.Find<QComboBox>("ComboSchID");
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->itemText(0), u"ID001     16x96     Tri-Color     192.168.0.1:80"_s);
  EXPECT_EQ(list->itemText(1), u"ID002     16x128     Mono-Color     Mono"_s);
  EXPECT_EQ(list->currentIndex(), -1);
  EXPECT_EQ(dialog.Send(), QStringList{u"No ID Selected!"_s});
}

TEST_F(SendScheduleChecks, AFileThatEndsBehindItsHeaderIsRefusedAtBrowse) {
  const QString bad = folder_.Write(u"short.sch"_s, "*** Brivon Schedule File ***\n");
  Dialog dialog(path_);
  const MessageBoxReader boxes;
  const FileChooser chooser(bad, u"DialogBrowse"_s);
  dialog.Click("butBrowse");
  EXPECT_EQ(boxes.Texts(), QStringList{u"Error in opening file"_s});
  EXPECT_EQ(dialog.Shown("lblSchFileName"), path_);
  EXPECT_EQ(dialog.Shown("lblRow"), u"16"_s);
  EXPECT_EQ(dialog.Shown("lblCol"), u"96"_s);
}

}  // namespace
