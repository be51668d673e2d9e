// The caption loader, by itself and on every window that there is.
#include "widgets/caption_loader.h"

#include <sys/stat.h>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>

#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTableWidget>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "language/caption_tables.h"
#include "language/module_language.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::CaptionKey;
using ModuleLanguage::CaptionKind;
using ModuleLanguage::CaptionRow;
using ModuleLanguage::CaptionTable;

QString Text(const char* text) { return QString::fromUtf8(text); }

// Every window of the program: one line for each.
struct NamedWindow {
  const char* name;
  std::function<std::unique_ptr<QWidget>()> create;
};

void PrintTo(const NamedWindow& window, std::ostream* out) { *out << window.name; }

template <typename Window>
NamedWindow Named(const char* name) {
  return {name, [] { return std::make_unique<Window>(nullptr); }};
}

const NamedWindow kWindows[] = {
    {"frmMain", [] { return std::make_unique<frmMain>(); }},
    Named<frmDelay>("frmDelay"),
    Named<frmPage>("frmPage"),
    Named<frmDimension>("frmDimension"),
    Named<frmConfig>("frmConfig"),
    Named<frmCommand>("frmCommand"),
    {"frmSendMsg", [] { return std::make_unique<frmSendMsg>(nullptr, QString()); }},
    Named<frmMsgEditor>("frmMsgEditor"),
    {"frmSendSch", [] { return std::make_unique<frmSendSch>(nullptr, QString()); }},
    Named<frmSchedule>("frmSchedule"),
};

// What a window shows for key number `n` of a row; nothing where the control is missing.
std::optional<QString> Shown(QWidget* window, const CaptionRow& row, int n) {
  if (row.kind == CaptionKind::kWindow) return window->windowTitle();
  if (row.kind == CaptionKind::kDialogTitle) return *row.title;
  auto* control = window->findChild<QWidget*>(QString::fromLatin1(row.control));
  if (auto* label = qobject_cast<QLabel*>(control)) return label->text();
  if (auto* button = qobject_cast<QAbstractButton*>(control)) return button->text();
  if (auto* box = qobject_cast<QGroupBox*>(control)) return box->title();
  if (auto* combo = qobject_cast<QComboBox*>(control)) {
    return n < combo->count() ? std::optional(combo->itemText(n)) : std::nullopt;
  }
  if (auto* list = qobject_cast<QListWidget*>(control)) {
    return n < list->count() ? std::optional(list->item(n)->text()) : std::nullopt;
  }
  if (auto* table = qobject_cast<QTableView*>(control)) {
    const QVariant heading = table->model()->headerData(n + 1, Qt::Horizontal);
    return heading.isValid() ? std::optional(heading.toString()) : std::nullopt;
  }
  return std::nullopt;
}

// A language file that gives every key of a window the text `value` makes of it.
QByteArray LanguageFor(const CaptionTable& table,
                       const std::function<QString(const QString&)>& value) {
  QString content = u"[%1]\r\n"_s.arg(QLatin1String(table.window));
  for (const QString& key : CaptionKeys(table)) {
    content += key + QLatin1Char('=') + value(key) + u"\r\n"_s;
  }
  return content.toUtf8();
}

class CaptionsTest : public testing::Test {
 protected:
  CaptionsTest() {
    folder_.Write(Text("brivon.ini"),
                  "[Dimension Config]\r\nID001=4x96,Mono\r\n[Language]\r\nLanguage=2\r\n");
  }

  ~CaptionsTest() override {
    ModuleLanguage::DialogTitleOpenMsg = Text("Open Message");
    ModuleLanguage::DialogTitleSaveAs = Text("Save As");
    ModuleLanguage::DialogTitleAddMsg = Text("Add Message");
    ModuleLanguage::DialogTitleOpen = Text("Open");
  }

  TemporaryProgramFolder folder_;
};

class EveryWindowTest : public CaptionsTest, public testing::WithParamInterface<NamedWindow> {
 protected:
  const CaptionTable& Table() const {
    return *ModuleLanguage::FindCaptionTable(Text(GetParam().name));
  }
};

TEST_P(EveryWindowTest, EveryRowOfItsTableFindsItsControl) {
  folder_.UseLanguage(LanguageFor(Table(), [](const QString& key) { return u'<' + key + u'>'; }));
  const auto window = GetParam().create();
  ASSERT_EQ(window->objectName(), Text(GetParam().name));
  for (const CaptionRow& row : Table().rows) {
    for (int n = 0; n < row.count; ++n) {
      const QString key = CaptionKey(row, n);
      EXPECT_EQ(Shown(window.get(), row, n), u'<' + key + u'>') << key.toStdString();
    }
  }
}

TEST_P(EveryWindowTest, AMissingFileLeavesTheBuiltInTexts) {
  ModuleLanguage::SetLanguageActive(false);
  folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\nID001=4x96,Mono\r\n");
  const auto english = GetParam().create();
  folder_.Write(Text("brivon.ini"),
                "[Dimension Config]\r\nID001=4x96,Mono\r\n[Language]\r\nLanguage=2\r\n");
  ModuleLanguage::SetLanguageActive(true);
  const auto window = GetParam().create();
  for (const CaptionRow& row : Table().rows) {
    if (row.kind == CaptionKind::kFeatureList) continue;  // it has its own order
    for (int n = 0; n < row.count; ++n) {
      ASSERT_TRUE(Shown(english.get(), row, n).has_value());
      EXPECT_FALSE(Shown(english.get(), row, n)->isEmpty());
      EXPECT_EQ(Shown(window.get(), row, n), Shown(english.get(), row, n));
    }
  }
}

TEST_P(EveryWindowTest, AnEmptyValueGivesAnEmptyCaption) {
  folder_.UseLanguage(LanguageFor(Table(), [](const QString&) { return QString(); }));
  const auto window = GetParam().create();
  for (const CaptionRow& row : Table().rows) {
    if (row.kind == CaptionKind::kTableHeading) continue;
    for (int n = 0; n < row.count; ++n) {
      EXPECT_EQ(Shown(window.get(), row, n), QString()) << CaptionKey(row, n).toStdString();
    }
  }
}

TEST_P(EveryWindowTest, AValueOf10000CharactersIsCutAndTheWindowStillOpens) {
  folder_.UseLanguage(LanguageFor(Table(), [](const QString&) { return QString(10000, u'W'); }));
  const auto window = GetParam().create();
  window->show();
  for (const CaptionRow& row : Table().rows) {
    EXPECT_EQ(Shown(window.get(), row, 0), QString(255, u'W'));
  }
  EXPECT_FALSE(window->grab().isNull());
}

TEST_P(EveryWindowTest, CaptionsOf200CharactersMakeNoWindowWiderThanTheScreen) {
  const QString left_to_right = Text("Beschriftung ").repeated(16).left(200);
  const QString right_to_left = Text("כיתוב ארוך ").repeated(19).left(200);
  for (const QString& caption : {left_to_right, right_to_left}) {
    folder_.UseLanguage(LanguageFor(Table(), [&](const QString&) { return caption; }));
    const auto window = GetParam().create();
    window->show();
    EXPECT_LE(window->width(), 800);
    EXPECT_LE(window->minimumSizeHint().width(), 800);
    EXPECT_FALSE(window->grab().isNull());
  }
}

TEST_P(EveryWindowTest, WithTheFlagClearTheFileIsNeverOpened) {
  folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\nID001=4x96,Mono\r\n");
  // A reader would wait for ever at this pipe.
  const QByteArray path = QFile::encodeName(folder_.Path(Text("langSetting.INI")));
  ASSERT_EQ(mkfifo(path.constData(), 0600), 0);
  ModuleLanguage::SetLanguageActive(false);
  const auto window = GetParam().create();
  EXPECT_FALSE(ModuleLanguage::IsLanguageActive());
}

TEST_P(EveryWindowTest, ItsCommandButtonsLoseTheirBoldFontWhereTheTableSaysSo) {
  const auto bold_buttons = [](QWidget* window) {
    int bold = 0;
    for (const QPushButton* button : window->findChildren<QPushButton*>()) {
      if (button->font().bold()) ++bold;
    }
    return bold;
  };
  folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\nID001=4x96,Mono\r\n");
  const auto english = GetParam().create();
  if (Table().plain_buttons) {
    EXPECT_GT(bold_buttons(english.get()), 0);
  }
  folder_.Write(Text("brivon.ini"),
                "[Dimension Config]\r\nID001=4x96,Mono\r\n[Language]\r\nLanguage=2\r\n");
  ModuleLanguage::SetLanguageActive(true);
  const auto translated = GetParam().create();
  EXPECT_EQ(bold_buttons(translated.get()),
            Table().plain_buttons ? 0 : bold_buttons(english.get()));
}

std::string WindowName(const testing::TestParamInfo<NamedWindow>& test) { return test.param.name; }

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindowTest, testing::ValuesIn(kWindows), WindowName);

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
