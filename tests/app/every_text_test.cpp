// Every window in a language of its own, in which each text is bracketed: what is shown without
// brackets has been forgotten, in the language file or on its way to the screen.
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "language/caption_tables.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/wait_until.h"
#include "widgets/file_dialogs.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

/// What stands outside the brackets in every language.
const QStringList kTheSameEverywhere = {
    u"Brivon V.M.2.41M"_s,  // the launcher's title, and that of a box that belongs to it
    u"ID001"_s,             // the panel lists
    u"ID002"_s,
    u"4x96"_s,
    u"12x192"_s,
    u"192.168.0.1:2101"_s,
    u"NEW.SRL"_s,     // the name of a new scrolling message, behind the program's folder
    u"     Tri"_s,    // stands in place of an address that the panel does not have
    u"*.srl"_s,       // the pattern of a file type
    u"/dev/ttyS0"_s,  // serial devices
    u"/dev/ttyS1"_s,
    u"/dev/ttyS2"_s,
    u"/dev/ttyS3"_s,
};

QString Bracketed(const QString& text) { return u'«' + text + u'»'; }

/// The template with each text in brackets.
QByteArray BracketedLanguage() {
  QFile file(QStringLiteral(BRIVON_SAMPLES "/languages/english/langSetting.INI"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QString content;
  for (const QString& whole : QString::fromUtf8(file.readAll()).split(u"\r\n"_s)) {
    const qsizetype equals = whole.startsWith(u';') ? -1 : whole.indexOf(u'=');
    content += equals < 0 ? whole : whole.left(equals + 1) + Bracketed(whole.mid(equals + 1));
    content += u"\r\n"_s;
  }
  return content.toUtf8();
}

/// The toolkit in the same language; windows made of .ui files get nothing from it.
class BracketingTranslator : public QTranslator {
 public:
  QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                    int /*number*/) const override {
    if (QLatin1String(context).startsWith("frm"_L1)) return {};
    return Bracketed(QString::fromUtf8(text));
  }
  bool isEmpty() const override { return false; }
};

/// What is left of a text without what is bracketed and what is the same everywhere; nothing where
/// no word is left. A single letter is a key, a symbol or the "x" of a size.
QString Forgotten(QString text) {
  static const QRegularExpression bracketed(u"«[^«»]*»"_s);
  static const QRegularExpression word(u"\\p{L}[\\p{L}\\p{N}]"_s);
  while (text.contains(bracketed)) text.remove(bracketed);  // from the inside out
  text.remove(Brivon1::ProgramFolder());
  for (const QString& same : kTheSameEverywhere) text.remove(same);
  return text.contains(word) ? text : QString();
}

/// The texts of a widget or an action, by property.
void CollectProperties(const QObject& object, QStringList& texts) {
  for (const char* name :
       {"text", "title", "windowTitle", "toolTip", "whatsThis", "statusTip", "accessibleName",
        "accessibleDescription", "placeholderText", "informativeText", "detailedText"}) {
    const QVariant value = object.property(name);
    if (value.isValid()) texts.append(value.toString());
  }
}

void CollectModel(const QAbstractItemModel& model, QStringList& texts) {
  for (int column = 0; column < model.columnCount(); ++column) {
    texts.append(model.headerData(column, Qt::Horizontal).toString());
    for (int row = 0; row < model.rowCount(); ++row) {
      const QModelIndex cell = model.index(row, column);
      for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole,
                             Qt::AccessibleDescriptionRole}) {
        texts.append(cell.data(role).toString());
      }
    }
  }
}

/// Every text that a window can show.
QStringList TextsOf(const QWidget& window) {
  QStringList texts;
  CollectProperties(window, texts);
  const bool is_file_dialog = qobject_cast<const QFileDialog*>(&window) != nullptr;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    CollectProperties(*widget, texts);
    for (const QAction* action : widget->actions()) CollectProperties(*action, texts);
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
      const bool has_folders = is_file_dialog && list->objectName() == "lookInCombo"_L1;
      if (!has_folders) CollectModel(*list->model(), texts);
    }
    // The rows of a file dialog are the disk's.
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    if (view != nullptr && view->model() != nullptr && !is_file_dialog) {
      CollectModel(*view->model(), texts);
    }
  }
  return texts;
}

/// The forgotten ones of a window, each whole and on a line of its own.
std::string ForgottenIn(const QWidget& window) {
  QStringList forgotten;
  for (const QString& text : TextsOf(window)) {
    if (!Forgotten(text).isEmpty()) forgotten.append(text);
  }
  forgotten.removeDuplicates();
  return forgotten.join(u'\n').toStdString();
}

struct NamedWindow {
  const char* name;
  std::function<std::unique_ptr<QWidget>()> create;
};

void PrintTo(const NamedWindow& window, std::ostream* out) { *out << window.name; }

template <typename Window, typename... Arguments>
NamedWindow Named(const char* name, Arguments... arguments) {
  return {name, [=] { return std::make_unique<Window>(nullptr, arguments...); }};
}

const NamedWindow kWindows[] = {
    {"frmMain", [] { return std::make_unique<frmMain>(); }},
    Named<frmMsgEditor>("frmMsgEditor"),
    Named<frmShiftMsg>("frmShiftMsg"),
    Named<frmSchedule>("frmSchedule"),
    Named<frmConfig>("frmConfig"),
    Named<frmCommand>("frmCommand"),
    Named<frmDelay>("frmDelay"),
    Named<frmPage>("frmPage"),
    Named<frmDimension>("frmDimension"),
    Named<frmSendMsg>("frmSendMsg", QString()),
    Named<frmSendSch>("frmSendSch", QString()),
    Named<frmSendShift>("frmSendShift", QString()),
};

constexpr const char* kPanels =
    "[Dimension Config]\r\nID001=4x96,Mono,192.168.0.1:2101\r\nID002=12x192,Tri\r\n";

class BracketedTest : public testing::Test {
 protected:
  BracketedTest() {
    folder_.Configure(QByteArray(kPanels) + "[Language]\r\nLanguage=2\r\n");
    folder_.UseLanguage(BracketedLanguage());
    QCoreApplication::installTranslator(&translator_);
  }

  ~BracketedTest() override {
    QCoreApplication::removeTranslator(&translator_);
    ModuleLanguage::DialogTitleOpenMsg = u"Open Message"_s;
    ModuleLanguage::DialogTitleSaveAs = u"Save As"_s;
    ModuleLanguage::DialogTitleAddMsg = u"Add Message"_s;
    ModuleLanguage::DialogTitleOpen = u"Open"_s;
  }

  TemporaryProgramFolder folder_;
  BracketingTranslator translator_;
};

class EveryTextTest : public BracketedTest, public testing::WithParamInterface<NamedWindow> {};

TEST_P(EveryTextTest, NothingThatTheWindowShowsIsOutsideTheLanguageFile) {
  const auto window = GetParam().create();
  ASSERT_EQ(window->objectName(), QLatin1String(GetParam().name));
  EXPECT_FALSE(TextsOf(*window).filter(u"«"_s).isEmpty());
  EXPECT_EQ(ForgottenIn(*window), "");
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryTextTest, testing::ValuesIn(kWindows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(EveryTextTest, FurtherCaptionsOf200CharactersMakeItNoWiderThanTheScreen) {
  const ModuleLanguage::CaptionTable* table =
      ModuleLanguage::FindFurtherCaptions(QString::fromLatin1(GetParam().name));
  if (table == nullptr) return;  // its captions are all published ones
  QString content = u"[Texts]\r\n"_s;
  for (const QString& key : ModuleLanguage::CaptionKeys(*table)) {
    content += key + u'=' + u"Beschriftung "_s.repeated(16).left(200) + u"\r\n"_s;
  }
  folder_.UseLanguage(content.toUtf8());
  const auto window = GetParam().create();
  window->show();
  EXPECT_LE(window->width(), 800);
  EXPECT_LE(window->minimumSizeHint().width(), 800);
}

TEST_F(BracketedTest, TheWalkNamesAForgottenText) {
  frmPage window(nullptr);
  EXPECT_EQ(ForgottenIn(window), "");
  window.findChild<QWidget*>(u"butOk"_s)->setToolTip(u"Take it"_s);
  EXPECT_EQ(ForgottenIn(window), "Take it");
}

TEST_F(BracketedTest, AScheduleIsShownInTheLanguage) {
  folder_.Write(u"a.sch"_s,
                "*** Brivon Schedule File ***\r\nWeek = 3\r\nHour = 08\r\nMin = 30\r\nRow = 4\r\n"
                "Col = 96\r\nNo of Sequence = 1\r\n12.msg\r\n5\r\nAppear\r\n");
  frmSchedule window(nullptr, [](const QString&) { return false; });
  const FileChooser chooser(folder_.Path(u"a.sch"_s));
  window.findChild<QAbstractButton*>(u"butOpen"_s)->click();
  EXPECT_EQ(window.findChild<QComboBox*>(u"comboWeek"_s)->currentText(), u"«Tuesday»"_s);
  const auto missing = [&] { return TextsOf(window).contains(u"«File not found»"_s); };
  EXPECT_TRUE(WaitUntil(missing));
  EXPECT_EQ(ForgottenIn(window), folder_.Path(u"a.sch"_s).toStdString() + "\n12.msg\nAppear")
      << "what the file says";
}

TEST_F(BracketedTest, TheMenuOfAMessageIsTranslated) {
  frmShiftMsg window(nullptr);
  auto* surface = window.findChild<QWidget*>(u"Picture1"_s);
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QCoreApplication::sendEvent(surface, &event);
  EXPECT_EQ(ForgottenIn(*surface->findChild<QMenu*>()), "");
}

TEST_F(BracketedTest, TheReasonWhyAPortCannotBeOpenedIsTranslated) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Mono\r\n[Communication]\r\nSendMode=RS232\r\n"
      "[Serial Ports]\r\nCom2=/dev/no-translated-port\r\n");
  frmCommand window(nullptr);
  MessageBoxReader boxes;
  window.findChild<QAbstractButton*>(u"butSend"_s)->click();
  ASSERT_EQ(boxes.Seen().size(), 1);
  EXPECT_EQ(boxes.Seen()[0].text, u"«Fail to initialize communication port!»"_s);
  EXPECT_EQ(boxes.Seen()[0].title, u"«Command»"_s);
  EXPECT_EQ(boxes.Seen()[0].informative, u"/dev/no-translated-port: «No such file or directory»"_s);
}

// The captions that stand in .ui files: what the template says is what the window shows anyway.
TEST_P(EveryTextTest, TheTemplateChangesNothing) {
  QFile file(QStringLiteral(BRIVON_SAMPLES "/languages/english/langSetting.INI"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  QCoreApplication::removeTranslator(&translator_);
  const auto sorted_texts = [] {
    QStringList texts = TextsOf(*GetParam().create());
    texts.sort();  // the effects are listed in the order of their codes
    return texts.join(u'\n').toStdString();
  };
  folder_.UseLanguage(file.readAll());
  const std::string translated = sorted_texts();
  ModuleLanguage::SetLanguageActive(false);
  folder_.Configure(kPanels);
  EXPECT_EQ(translated, sorted_texts());
}

TEST_F(BracketedTest, TheSaveQuestionIsTranslatedWithItsButtons) {
  frmShiftMsg window(nullptr);
  QStringList texts;
  const ModalWindowDriver driver(QString(), [&](QWidget* box) {
    texts = TextsOf(*box);
    EXPECT_EQ(ForgottenIn(*box), "");
    static_cast<QDialog*>(box)->reject();
  });
  AskToSave(&window);
  EXPECT_EQ(driver.Count(), 1);
  EXPECT_TRUE(texts.contains(u"«File not saved. Save it now?»"_s));
  EXPECT_TRUE(texts.contains(u"«&Yes»"_s));
}

TEST_F(BracketedTest, TheFileDialogsAreTranslatedInside) {
  frmShiftMsg window(nullptr);
  QStringList filters;
  const ModalWindowDriver driver(u"CMDialog1"_s, [&](QWidget* dialog) {
    filters = static_cast<QFileDialog*>(dialog)->nameFilters();
    EXPECT_EQ(ForgottenIn(*dialog), "");
    static_cast<QDialog*>(dialog)->reject();
  });
  window.findChild<QAbstractButton*>(u"butOpen"_s)->click();
  EXPECT_EQ(driver.Count(), 1);
  EXPECT_EQ(filters, QStringList({u"«All» (*)"_s, u"«Scrolling Message» (*.srl)"_s}));
}

}  // namespace
