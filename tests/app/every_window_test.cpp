// The captions of every window that there is.
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>

#include "app/captions_fixture.h"
#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "language/caption_tables.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "support/pipe_file.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::CaptionKey;
using ModuleLanguage::CaptionKind;
using ModuleLanguage::CaptionRow;
using ModuleLanguage::CaptionTable;

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
  ASSERT_TRUE(MakePipe(folder_.Path(Text("langSetting.INI"))));
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

}  // namespace
