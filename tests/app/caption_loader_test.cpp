// The caption loader, by itself.
#include "widgets/caption_loader.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

#include "app/captions_fixture.h"
#include "language/caption_tables.h"
#include "page/frmPage.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::CaptionTable;

// A window of the test's own, with the control kinds that a table may name.
class ScheduleLikeWindow : public QWidget {
 public:
  ScheduleLikeWindow() {
    setObjectName(u"frmSchedule"_s);
    table_.setObjectName(u"GridSeqTable"_s);
    table_.setHorizontalHeaderLabels({QString(), u"Message File"_s, u"Delay"_s, u"Feature"_s});
    add_.setObjectName(u"butAdd"_s);
  }

  QString Heading(int column) { return table_.horizontalHeaderItem(column)->text(); }

  QTableWidget table_{2, 4, this};
  QPushButton add_{u"Add"_s, this};
};

TEST_F(CaptionsTest, TableTag2EmptyOrMissingTheScheduleTableKeepsItsHeadingOfColumn2) {
  for (const char* tag2 : {"TableTag2=\r\n", ""}) {
    folder_.UseLanguage(QByteArray("[frmSchedule]\r\nTableTag1=Datei\r\n") + tag2 +
                        "TableTag3=Effekt\r\n");
    ScheduleLikeWindow window;
    LoadCaptions(&window);
    EXPECT_EQ(window.Heading(0), QString());
    EXPECT_EQ(window.Heading(1), Text("Datei"));
    EXPECT_EQ(window.Heading(2), Text("Delay"));
    EXPECT_EQ(window.Heading(3), Text("Effekt"));
  }
}

TEST_F(CaptionsTest, AControlThatTheWindowLacksIsSkipped) {
  folder_.UseLanguage("[frmSchedule]\r\nfrmSchedule.butAdd=Dazu\r\nfrmSchedule.butNew=Neu\r\n");
  ScheduleLikeWindow window;
  LoadCaptions(&window);
  EXPECT_EQ(window.add_.text(), Text("Dazu"));
}

TEST_F(CaptionsTest, AWindowWithoutATableKeepsItsTexts) {
  folder_.UseLanguage("[frmShiftMsg]\r\nfrmShiftMsg.Caption=X\r\nfrmShiftMsg.butSend=Y\r\n");
  QWidget window;
  window.setObjectName(Text("frmShiftMsg"));
  window.setWindowTitle(Text("Scrolling Message"));
  QPushButton button(Text("Send"), &window);
  button.setObjectName(Text("butSend"));
  LoadCaptions(&window);
  EXPECT_EQ(window.windowTitle(), Text("Scrolling Message"));
  EXPECT_EQ(button.text(), Text("Send"));
}

TEST_F(CaptionsTest, DialogTitlesDefaultToTheBuiltInOnesNotToThoseOfTheLastWindow) {
  QWidget editor;
  editor.setObjectName(Text("frmMsgEditor"));
  folder_.UseLanguage(
      "[frmMsgEditor]\r\nDialogTitleOpenMsg=O\r\nDialogTitleSaveAs=S\r\nDialogTitleAddMsg=A\r\n"
      "[frmSchedule]\r\nDialogTitleOpen=Z\r\n");
  LoadCaptions(&editor);
  EXPECT_EQ(ModuleLanguage::DialogTitleOpenMsg, Text("O"));
  EXPECT_EQ(ModuleLanguage::DialogTitleSaveAs, Text("S"));
  EXPECT_EQ(ModuleLanguage::DialogTitleAddMsg, Text("A"));
  EXPECT_EQ(ModuleLanguage::DialogTitleOpen, Text("Open"));
  ScheduleLikeWindow schedule;
  LoadCaptions(&schedule);
  EXPECT_EQ(ModuleLanguage::DialogTitleOpen, Text("Z"));
  EXPECT_EQ(ModuleLanguage::DialogTitleSaveAs, Text("Save As"));
  EXPECT_EQ(ModuleLanguage::DialogTitleAddMsg, Text("A"));
}

TEST_F(CaptionsTest, ListEntriesAreReplacedInPlaceAndMissingOnesStay) {
  QWidget window;
  window.setObjectName(Text("frmMsgEditor"));
  QComboBox sizes(&window);
  sizes.setObjectName(Text("ComboSize"));
  sizes.addItems(
      {Text("Normal"), Text("Compressed"), Text("Normal Bold"), Text("Compressed Bold")});
  sizes.setCurrentIndex(1);
  folder_.UseLanguage(
      "[frmMsgEditor]\r\nfrmMsgEditor.ComboSize.List(1)=Schmal\r\n"
      "frmMsgEditor.ComboSize.List(3)=\r\nfrmMsgEditor.ComboSize.List(4)=zuviel\r\n");
  LoadCaptions(&window);
  ASSERT_EQ(sizes.count(), 4);
  EXPECT_EQ(sizes.itemText(0), Text("Normal"));
  EXPECT_EQ(sizes.itemText(1), Text("Schmal"));
  EXPECT_EQ(sizes.itemText(2), Text("Normal Bold"));
  EXPECT_EQ(sizes.itemText(3), QString());
  EXPECT_EQ(sizes.currentIndex(), 1);
}

TEST_F(CaptionsTest, CommandEntriesHaveKeysWithoutTheWindowsName) {
  QWidget window;
  window.setObjectName(Text("frmCommand"));
  QListWidget commands(&window);
  commands.setObjectName(Text("ListCommand"));
  commands.addItems({Text("Polling"), Text("Set Clock")});
  folder_.UseLanguage("[frmCommand]\r\nListCommand.List(1)=Uhr\r\nListCommand.List(4)=x\r\n");
  LoadCaptions(&window);
  ASSERT_EQ(commands.count(), 2);
  EXPECT_EQ(commands.item(0)->text(), Text("Polling"));
  EXPECT_EQ(commands.item(1)->text(), Text("Uhr"));
}

TEST_F(CaptionsTest, OptionButtonsTakeTheirCaptionsToo) {
  QWidget window;
  window.setObjectName(Text("frmConfig"));
  QRadioButton option(Text("TCP/IP Network"), &window);
  option.setObjectName(Text("optTCPIP"));
  folder_.UseLanguage("[frmConfig]\r\nfrmConfig.optTCPIP=Netz\r\n");
  LoadCaptions(&window);
  EXPECT_EQ(option.text(), Text("Netz"));
}

TEST_F(CaptionsTest, ACaptionIsNeverMarkup) {
  folder_.UseLanguage("[frmPage]\r\nfrmPage.lblPageNo=<h1>Seite</h1>\r\n");
  const frmPage window(nullptr);
  const auto* label = window.findChild<QLabel*>(Text("lblPageNo"));
  EXPECT_EQ(label->text(), Text("<h1>Seite</h1>"));
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(CaptionsTest, AnEditedFileTakesEffectAtTheNextOpeningOfAWindow) {
  folder_.UseLanguage("[frmPage]\r\nfrmPage.Caption=one\r\n");
  EXPECT_EQ(frmPage(nullptr).windowTitle(), Text("one"));
  folder_.UseLanguage("[frmPage]\r\nfrmPage.Caption=two\r\n");
  EXPECT_EQ(frmPage(nullptr).windowTitle(), Text("two"));
}

TEST_F(CaptionsTest, AFileOfAllBytesLeavesTheBuiltInTexts) {
  QByteArray all;
  for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
  folder_.UseLanguage(all.repeated(100));
  const frmPage window(nullptr);
  EXPECT_EQ(window.windowTitle(), Text("Page"));
  EXPECT_EQ(window.findChild<QLabel*>(Text("lblPageNo"))->text(), Text("Input Page No."));
}

TEST_F(CaptionsTest, KeysHaveTheSpellingOfTheFileFormat) {
  const auto keys = [](const char* window) {
    return CaptionKeys(*ModuleLanguage::FindCaptionTable(Text(window)));
  };
  EXPECT_EQ(keys("frmMain").join(u' '),
            Text("butMsgEdit.Caption butSchEdit.Caption butCommand.Caption butConfigEdit.Caption "
                 "butEnd.Caption lblTitle.Caption lblInfo.Caption"));
  EXPECT_EQ(keys("frmDimension").join(u' '),
            Text("frmDimension.Caption frmDimension.lblDimension frmDimension.FrameDimension "
                 "frmDimension.butOK frmDimension.butCancel"));
  EXPECT_EQ(keys("frmPage").join(u' '),
            Text("frmPage.Caption frmPage.lblPageNo frmPage.butOk frmPage.butCancel"));
  EXPECT_EQ(keys("frmCommand").join(u' '),
            Text("frmCommand.Caption frmCommand.FrameID frmCommand.butSend frmCommand.butDone "
                 "ListCommand.List(0) ListCommand.List(1) ListCommand.List(2) ListCommand.List(3) "
                 "ListCommand.List(4)"));
  EXPECT_EQ(keys("frmDelay").join(u' '),
            Text("frmDelay.Caption frmDelay.FrameDelay frmDelay.FrameFeature ListFeature.List(0) "
                 "ListFeature.List(1) ListFeature.List(2) ListFeature.List(3) ListFeature.List(4) "
                 "ListFeature.List(5) ListFeature.List(6) ListFeature.List(7) ListFeature.List(8) "
                 "ListFeature.List(9) frmDelay.butOK frmDelay.butCancel"));
  EXPECT_EQ(keys("frmSchedule").join(u' '),
            Text("frmSchedule.Caption frmSchedule.Framefilename frmSchedule.butNew "
                 "frmSchedule.butOpen frmSchedule.butSave frmSchedule.butSaveAs "
                 "frmSchedule.butSend frmSchedule.butExit DialogTitleOpen DialogTitleSaveAs "
                 "frmSchedule.FrameDimension frmSchedule.labelRow frmSchedule.labelCol "
                 "frmSchedule.FrameSchTable TableTag1 TableTag2 TableTag3 frmSchedule.butAdd "
                 "frmSchedule.butInsert frmSchedule.butDelete frmSchedule.butClear"));
  EXPECT_EQ(keys("frmConfig").join(u' '),
            Text("frmConfig.Caption frmConfig.FrameSelection frmConfig.optRS232 "
                 "frmConfig.optTCPIP frmConfig.FrameIDConfig frmConfig.lblIDNumber "
                 "frmConfig.lblColor frmConfig.lblRow frmConfig.lblCol frmConfig.butAdd "
                 "frmConfig.butRemove frmConfig.butOK frmConfig.butCancel frmConfig.FrameComm "
                 "frmConfig.PanelSerial frmConfig.lblIPAdress frmConfig.lblIPport "
                 "frmConfig.FrameBaudRate"));
  EXPECT_EQ(keys("frmSendMsg").join(u' '),
            Text("frmSendMsg.Caption frmSendMsg.frameFile frmSendMsg.butBrowse "
                 "frmSendMsg.labelRow frmSendMsg.labelCol frmSendMsg.FrameDestination "
                 "frmSendMsg.LabelDisplayID frmSendMsg.FrameStatus frmSendMsg.butSend "
                 "frmSendMsg.butDone"));
  EXPECT_EQ(keys("frmSendSch").join(u' '),
            Text("frmSendSch.Caption frmSendSch.frameFile frmSendSch.butBrowse "
                 "frmSendSch.LabelRow frmSendSch.LabelCol frmSendSch.FrameSchNo "
                 "frmSendSch.lblSchNo frmSendSch.FrameDestination frmSendSch.LabelDisplayID "
                 "frmSendSch.FrameStatus frmSendSch.butSend frmSendSch.butDone"));
  const QStringList editor = keys("frmMsgEditor");
  EXPECT_EQ(editor.mid(0, 17).join(u' '),
            Text("frmMsgEditor.Caption frmMsgEditor.frameFileFunction frmMsgEditor.butNew "
                 "frmMsgEditor.butOpen frmMsgEditor.butSave frmMsgEditor.butSaveAs "
                 "frmMsgEditor.butSend frmMsgEditor.butExit frmMsgEditor.labelRow "
                 "frmMsgEditor.labelCol DialogTitleOpenMsg DialogTitleSaveAs DialogTitleAddMsg "
                 "frmMsgEditor.frameProperties frmMsgEditor.lblColor frmMsgEditor.lblSize "
                 "frmMsgEditor.chkBlink"));
  for (int n = 0; n < 16; ++n) {
    EXPECT_EQ(editor[17 + n], u"frmMsgEditor.ComboColor.List(%1)"_s.arg(n));
  }
  for (int n = 0; n < 4; ++n) {
    EXPECT_EQ(editor[33 + n], u"frmMsgEditor.ComboSize.List(%1)"_s.arg(n));
  }
  EXPECT_EQ(editor.mid(37).join(u' '),
            Text("frmMsgEditor.frameSpecial frmMsgEditor.cmdAddDate frmMsgEditor.cmdAddTime "
                 "frmMsgEditor.lblGraphic"));
}

TEST_F(CaptionsTest, TheWindowsWithPlainButtonsAreTheseSeven) {
  QStringList plain;
  for (const CaptionTable& table : ModuleLanguage::CaptionTables()) {
    if (table.plain_buttons) plain.append(QString::fromLatin1(table.window));
  }
  EXPECT_EQ(plain.join(u' '), Text("frmMsgEditor frmDimension frmSchedule frmConfig frmDelay "
                                   "frmSendMsg frmSendSch"));
}

}  // namespace
