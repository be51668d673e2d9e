#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/frmSendMsg.h"
#include "ports/port.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFinished = u"Transmission finished!"_s;

class Dialog : public SendDialog {
 public:
  explicit Dialog(const QString& path, const Brivon1::PanelPorts* ports = nullptr)
      : SendDialog(std::make_unique<frmSendMsg>(nullptr, path, ports),
                   {"butBrowse", "ComboID", "txtPage", "butSend", "butDone"}) {}

  void ChoosePanel(int index) { Find<QComboBox>("ComboID")->setCurrentIndex(index); }
  void TypePage(const QString& page) { TypeInto("txtPage", page); }

  bool IsReady() { return SendDialog::IsReady() && Shown("lblSendStatus").isEmpty(); }
};

class SendMessage : public testing::TestWithParam<LineKind> {
 protected:
  SendMessage() : bench_(GetParam(), {{26, 4, 96, true}}) {
    path_ = bench_.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  }

  VirtualBench bench_;
  QString path_;
};

INSTANTIATE_TEST_SUITE_P(Links, SendMessage, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(SendMessage, EveryRowArrivesAsItStandsInTheFile) {
  Dialog dialog(path_, bench_.Ports());
  dialog.ChoosePanel(0);
  dialog.TypePage(u"7"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames(), (QList<QByteArray>{
                                 "<ID1A><L01><P007><SA><CA>Row 01 \r\n",
                                 "<ID1A><L02><P007><SA><CB>Row 02 \r\n",
                                 "<ID1A><L03><P007><SA><CC>Row 03 \r\n",
                                 "<ID1A><L04><P007><SA><CD>Row 04 \r\n",
                             }));
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_TRUE(bench_.IsReleased());
  dialog.TypePage(u"1"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 4);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_TRUE(bench_.IsReleased());
}

TEST(SendMessageOverSerial, APanelWithoutAnAddressIsReachedAllTheSame) {
  VirtualBench bench(LineKind::kSerial, {{26, 4, 96, true}});
  const QByteArray ini = bench.Folder().Read(u"brivon.ini"_s);
  bench.Folder().Configure(QByteArray(ini).replace(",127.0.0.1:2101", ""));
  Dialog dialog(bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96)), bench.Ports());
  EXPECT_EQ(dialog.Find<QComboBox>("ComboID")->itemText(0),
            u"ID026     4x96     Tri-Color     Tri"_s);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

/// The dialog in front of panels that are never reached: what it refuses before it opens a link.
class SendMessageChecks : public testing::Test {
 protected:
  SendMessageChecks() {
    folder_.Configure(
        "[Dimension Config]\r\nID001=4x96,Tri,192.168.0.1:80\r\nID002=2x96,Mono\r\n"
        "[Communication]\r\nSendMode=TCPIP\r\n");
    path_ = folder_.Write(u"page.msg"_s, SampleMessageFile(2, 96));
  }

  TemporaryProgramFolder folder_;
  QString path_;
};

TEST_F(SendMessageChecks, HasItsControlsAndTexts) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.window.windowTitle(), u"Send Message"_s);
  const std::pair<const char*, const char*> boxes[] = {{"frameFile", "Message File"},
                                                       {"FrameDestination", "Destination"},
                                                       {"FrameStatus", "Send Status"}};
  for (const auto& [name, text] : boxes) {
    EXPECT_EQ(dialog.Find<QGroupBox>(name)->title(), QLatin1String(text));
  }
  const std::pair<const char*, const char*> labels[] = {
      {"labelRow", "Row:"},  {"labelCol", "Col:"},      {"LabelDisplayID", "ID Number"},
      {"Label2", " Page :"}, {"Label5", "(001 - 120)"}, {"lblSendStatus", ""}};
  for (const auto& [name, text] : labels) {
    EXPECT_EQ(dialog.Find<QLabel>(name)->text(), QLatin1String(text));
  }
  const std::pair<const char*, const char*> buttons[] = {
      {"butBrowse", "Browse"}, {"butSend", "Send"}, {"butDone", "Done"}};
  for (const auto& [name, text] : buttons) {
    EXPECT_EQ(dialog.Find<QPushButton>(name)->text(), QLatin1String(text));
  }
  EXPECT_EQ(dialog.Find<QLineEdit>("txtPage")->text(), u"001"_s);
  EXPECT_EQ(dialog.Find<QTimer>("Timer1")->interval(), 100);
  EXPECT_NE(dialog.Find<Ports::Port>("Comm1"), nullptr);
  EXPECT_NE(dialog.Find<QTcpSocket>("Winsock1"), nullptr);
}

TEST_F(SendMessageChecks, TheChecksComeInTheirOrderEachWithAPlainBox) {
  folder_.UseLanguage(
      "[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgErrOpen=Unlesbar\r\nmsgDim=Passt nicht!\r\n");
  const QString path = folder_.Path(u"late.msg"_s);
  Dialog dialog(path);
  dialog.TypePage(QString());
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, QByteArray(100, 'x'));
  dialog.Click("butSend");
  dialog.ChoosePanel(1);
  dialog.Click("butSend");
  dialog.TypePage(u"1"_s);
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, SampleMessageFile(4, 96));
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, SampleMessageFile(2, 80));
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, SampleMessageFile(2, 96));
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), (QStringList{u"Datei fehlt!"_s, u"Invalid ID Selection!"_s,
                                        u"Invalid Page Value!"_s, u"Unlesbar!"_s, u"Passt nicht!"_s,
                                        u"Passt nicht!"_s, u"IP address is null or invaild"_s}));
  const QString choose = u"\nChoose a file and a panel of one size."_s;
  EXPECT_EQ(
      boxes.Remedies(),
      (QStringList{
          path +
              u": No such file or directory\nIt has been moved or renamed, or was not saved yet. "
              "Save it, or choose another one."_s,
          u"Choose a panel from the list."_s, u"A page is a number from 1 to 120."_s,
          path + u" begins with \""_s + QString(40, u'x') + u"\".\nChoose a page (.msg)."_s,
          u"The page is 4x96, ID002 is 2x96."_s + choose,
          u"The page is 2x80, ID002 is 2x96."_s + choose,
          u"ID002 has no usable IP address: enter it in Config."_s}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Message"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendMessageChecks, ThePanelListHasOneEntryForEachConfiguredPanelAndNoneIsSelected) {
  Dialog dialog(path_);
  auto* list = dialog.Find<QComboBox>("ComboID");
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->itemText(0), u"ID001     4x96     Tri-Color     192.168.0.1:80"_s);
  EXPECT_EQ(list->itemText(1), u"ID002     2x96     Mono-Color     Mono"_s);
  EXPECT_EQ(list->currentIndex(), -1);
  EXPECT_EQ(dialog.Send(), QStringList{u"Invalid ID Selection!"_s});
}

TEST_F(SendMessageChecks, A2RowFileCannotBeSentToA4RowPanel) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{u"Dimension not matched!"_s});
}

TEST_F(SendMessageChecks, APanelWithoutAnAddressIsRefusedInTcpMode) {
  Dialog dialog(path_);
  dialog.ChoosePanel(1);
  EXPECT_EQ(dialog.Send(), QStringList{u"IP address is null or invaild"_s});
}

TEST_F(SendMessageChecks, AnEmptyPageIsRefused) {
  Dialog dialog(path_);
  dialog.ChoosePanel(1);
  dialog.TypePage(QString());
  EXPECT_EQ(dialog.Send(), QStringList{u"Invalid Page Value!"_s});
}

TEST_F(SendMessageChecks, AFileWhoseHeaderIsWrongIsRefusedAtSend) {
  Dialog dialog(folder_.Write(u"bad.msg"_s, QByteArray(100, 'x')));
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{u"Error in opening file!"_s});
}

struct PageText {
  const char* typed;
  const char* sent;
};

class PageOnTheWire : public testing::TestWithParam<PageText> {};

INSTANTIATE_TEST_SUITE_P(SendMessage, PageOnTheWire,
                         testing::Values(PageText{"0", "000"}, PageText{"500", "500"},
                                         PageText{"7", "007"}, PageText{"abc", "000"},
                                         PageText{"12x", "012"}, PageText{"00012", "012"},
                                         PageText{"1234", "1234"}, PageText{"-5", "000"}));

TEST_P(PageOnTheWire, IsTheLeadingNumberInAtLeastThreeDigits) {
  VirtualBench bench(LineKind::kTcp, {{1, 1, 96, true}});
  Dialog dialog(bench.Folder().Write(u"page.msg"_s, SampleMessageFile(1, 96)), bench.Ports());
  dialog.ChoosePanel(0);
  dialog.TypePage(QString::fromLatin1(GetParam().typed));
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench.Frames(), QList<QByteArray>{QByteArray("<ID01><L01><P") + GetParam().sent +
                                              "><SA><CA>Row 01 \r\n"});
}

}  // namespace
