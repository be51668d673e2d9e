// The manual as it is made with the program, and F1, which opens it.
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "row/row_surface.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/program_folder.h"
#include "support/shown_window.h"
#include "support/wait_until.h"
#include "widgets/manual_pages.h"

using namespace Qt::StringLiterals;

namespace {

struct NamedWindow {
  const char* name;
  const char* chapter;  // its heading
  std::function<std::unique_ptr<QWidget>()> create;
};

template <typename Window, typename... Arguments>
NamedWindow Named(const char* name, const char* chapter, Arguments... arguments) {
  return {name, chapter, [=] { return std::make_unique<Window>(nullptr, arguments...); }};
}

const NamedWindow kWindows[] = {
    {"frmMain", "The launcher", [] { return std::make_unique<frmMain>(); }},
    Named<frmMsgEditor>("frmMsgEditor", "The page editor"),
    Named<frmShiftMsg>("frmShiftMsg", "Scrolling messages"),
    Named<frmSchedule>("frmSchedule", "Schedules"),
    Named<frmConfig>("frmConfig", "Setting up panels and the link"),
    Named<frmCommand>("frmCommand", "Commands"),
    Named<frmDelay>("frmDelay", "Delay and effect"),
    Named<frmPage>("frmPage", "Commands"),
    Named<frmDimension>("frmDimension", "Beginning a page"),
    Named<frmSendMsg>("frmSendMsg", "Sending a page", QString()),
    Named<frmSendSch>("frmSendSch", "Sending a schedule", QString()),
    Named<frmSendShift>("frmSendShift", "Sending a scrolling message", QString()),
};

void PrintTo(const NamedWindow& window, std::ostream* out) { *out << window.name; }

/// Takes the addresses that would go to the browser.
class Browser : public QObject {
  Q_OBJECT

 public:
  Browser() { QDesktopServices::setUrlHandler(u"file"_s, this, "Open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

  const QList<QUrl>& Opened() const { return opened_; }

 public Q_SLOTS:
  void Open(const QUrl& url) { opened_.append(url); }

 private:
  QList<QUrl> opened_;
};

void PressF1(QWidget& window) {
  ActivateWindow(&window);
  QTest::keyClick(window.focusWidget() == nullptr ? &window : window.focusWidget(), Qt::Key_F1);
}

class F1 : public testing::TestWithParam<NamedWindow> {
 protected:
  F1() { folder_.Configure("[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n"); }

  TemporaryProgramFolder folder_;
};

TEST_P(F1, OpensTheWindowsChapterInTheBrowser) {
  QDir(folder_.Path(QString())).mkpath(u"manual/chapters"_s);
  const QString manual = folder_.Write(u"manual/manual.html"_s, "manual");
  const auto anchor = ManualChapter(QString::fromLatin1(GetParam().name));
  const QString page = folder_.Write(u"manual/chapters/"_s + anchor + u".html"_s, "chapter");
  const Browser browser;
  MessageBoxReader boxes;
  const auto window = GetParam().create();
  window->show();
  PressF1(*window);
  EXPECT_EQ(browser.Opened(), QList{QUrl::fromLocalFile(page)});
  QFile::remove(page);
  PressF1(*window);
  ASSERT_EQ(browser.Opened().size(), 2);
  EXPECT_EQ(browser.Opened()[1].toString(), QUrl::fromLocalFile(manual).toString() + u'#' + anchor);
  EXPECT_EQ(boxes.Texts(), QStringList());
}

TEST_P(F1, SaysWhereTheManualShouldBeWhereItIsMissing) {
  const Browser browser;
  MessageBoxReader boxes;
  const auto window = GetParam().create();
  window->show();
  PressF1(*window);
  EXPECT_EQ(boxes.Texts(), QStringList()) << "the box holds nothing up";
  EXPECT_TRUE(WaitUntil([&] { return !boxes.Seen().isEmpty(); }));
  EXPECT_EQ(boxes.Texts(), QStringList{u"The manual is missing."_s});
  ASSERT_EQ(boxes.Seen().size(), 1);
  EXPECT_EQ(boxes.Seen()[0].informative,
            u"It should be here:\n"_s + folder_.Path(u"manual/manual.html"_s));
  EXPECT_EQ(boxes.Seen()[0].title, window->windowTitle());
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::Warning);
  EXPECT_EQ(browser.Opened(), QList<QUrl>());
}

// The platform of the tests opens nothing.
TEST(ManualWithoutABrowser, F1SaysWhereItIs) {
  const TemporaryProgramFolder folder;
  QDir(folder.Path(QString())).mkpath(u"manual"_s);
  const QString manual = folder.Write(u"manual/manual.html"_s, "manual");
  const MessageBoxReader boxes;
  frmPage window(nullptr);
  window.show();
  PressF1(window);
  ASSERT_TRUE(WaitUntil([&] { return !boxes.Seen().isEmpty(); }));
  EXPECT_EQ(boxes.Texts(), QStringList{u"No program opens the manual."_s});
  EXPECT_EQ(boxes.Remedies(), QStringList{u"It is here:\n"_s + manual});
}

INSTANTIATE_TEST_SUITE_P(Windows, F1, testing::ValuesIn(kWindows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(ManualWhileSending, F1DoesNotHoldTheTransmissionUp) {
  VirtualBench bench(LineKind::kTcp, {{1, 4, 96, true}});
  VirtualPanel::Faults slow;
  QString error;
  ASSERT_TRUE(VirtualPanel::ParseFault(u"late:700"_s, &slow, &error));
  bench.Fail(slow);
  const QString page = bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  MessageBoxReader boxes;
  frmSendMsg dialog(nullptr, page, bench.Ports());
  dialog.show();
  ActivateWindow(&dialog);
  dialog.findChild<QComboBox*>(u"ComboID"_s)->setCurrentIndex(0);
  dialog.findChild<QLineEdit*>(u"txtPage"_s)->setText(u"7"_s);
  bench.Time().Schedule(2000, [&] { PressF1(dialog); });
  dialog.findChild<QAbstractButton*>(u"butSend"_s)->click();
  EXPECT_EQ(bench.Frames().size(), 4);
  EXPECT_EQ(boxes.Texts(), QStringList({u"The manual is missing."_s, u"Transmission finished!"_s}));
}

QString Read(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

/// The keys of a row that the table of all keys names.
QStringList KeysOfARow() {
  const QString keys = Read(QStringLiteral(BRIVON_MANUAL)).section(u"\n## All keys\n"_s, 1);
  QStringList named;
  for (const QString& line : keys.section(u"\n## "_s, 0, 0).split(u'\n')) {
    const QString where = line.section(u'|', 1, 1).trimmed();
    if (where == "a row"_L1 || where == "rows of a page"_L1 ||
        where == "page and scrolling message"_L1) {
      named += line.section(u'|', 2, 2).trimmed().split(u", "_s);
    }
  }
  return named;
}

TEST(ManualText, TheTableOfAllKeysHasThoseOfARowsMenu) {
  const TemporaryProgramFolder folder;
  folder.Configure("[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n");
  frmMsgEditor editor(nullptr);
  editor.show();
  auto* row = editor.findChild<RowSurface*>();
  ASSERT_NE(row, nullptr);
  Q_EMIT row->MenuAsked(row->mapToGlobal(QPoint()));
  const auto* menu = row->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  const QStringList named = KeysOfARow();
  int keys = 0;
  for (const QAction* action : menu->actions()) {
    if (action->shortcut().isEmpty()) continue;
    ++keys;
    const QString key = action->shortcut().toString(QKeySequence::PortableText);
    EXPECT_TRUE(named.contains(key)) << key.toStdString();
  }
  EXPECT_GE(keys, 8);
}

#ifdef BRIVON_HTML_MANUAL

const QString kManual = QStringLiteral(BRIVON_HTML_MANUAL);

/// What stands in the first pair of brackets of `pattern`, at each of its places.
QStringList AllOf(const QString& text, const QString& pattern) {
  QStringList found;
  const QRegularExpression expression(pattern);
  for (auto match = expression.globalMatch(text); match.hasNext();) {
    found.append(match.next().captured(1));
  }
  return found;
}

/// The links and pictures of a page that lead nowhere.
QStringList DeadLinks(const QString& path) {
  const QDir folder = QFileInfo(path).dir();
  QStringList dead;
  for (const QString& link : AllOf(Read(path), u"(?:href|src|0; url)=\"?([^\"]*)\""_s)) {
    const QUrl url(link);
    const QString file = url.path().isEmpty() ? path : folder.filePath(url.path());
    const bool exists = QFileInfo(file).isFile();
    const bool has_anchor =
        !url.hasFragment() || (exists && Read(file).contains(u"id=\"%1\""_s.arg(url.fragment())));
    if (!url.isRelative() || !exists || !has_anchor) dead.append(link);
  }
  return dead;
}

TEST_P(F1, ItsChapterIsInTheManual) {
  const QString anchor = ManualChapter(QString::fromLatin1(GetParam().name));
  const QString heading = QString::fromLatin1(GetParam().chapter);
  EXPECT_TRUE(Read(kManual + u"/manual.html"_s)
                  .contains(QRegularExpression(u"<h[23] id=\"%1\">%2</h"_s.arg(anchor, heading))))
      << anchor.toStdString();
  const QString page = kManual + u"/chapters/"_s + anchor + u".html"_s;
  EXPECT_TRUE(Read(page).contains(u"url=../manual.html#"_s + anchor + u'"'));
}

TEST(Manual, AWindowWithoutAChapterGetsThatOfTheKeys) {
  EXPECT_EQ(ManualChapter(u"frmUnknown"_s), "all-keys"_L1);
  EXPECT_TRUE(Read(kManual + u"/manual.html"_s).contains(u"<h2 id=\"all-keys\">"_s));
}

TEST(Manual, EveryLinkAndPictureLeadsSomewhere) {
  for (const char* page : {"/manual.html", "/protocol_and_files.html"}) {
    EXPECT_EQ(DeadLinks(kManual + QLatin1String(page)), QStringList());
  }
  const QDir chapters(kManual + u"/chapters"_s);
  const QStringList pages = chapters.entryList(QDir::Files);
  EXPECT_GT(pages.size(), 20);
  for (const QString& page : pages) EXPECT_EQ(DeadLinks(chapters.filePath(page)), QStringList());
  EXPECT_GT(AllOf(Read(kManual + u"/manual.html"_s), u"<img src=\"([^\"]*)\""_s).size(), 10);
}

TEST(Manual, ADeadLinkIsFound) {
  const TemporaryProgramFolder folder;
  const QString page = folder.Write(
      u"page.html"_s,
      "<p id=\"a\"><a href=\"#a\"><a href=\"#b\"><img src=\"c.png\"><a href=\"page.html#d\">");
  EXPECT_EQ(DeadLinks(page), QStringList({u"#b"_s, u"c.png"_s, u"page.html#d"_s}));
}

TEST(Manual, TheContentsNameEveryChapterInItsOrder) {
  const QString text = Read(kManual + u"/manual.html"_s);
  const QString contents = text.left(text.indexOf("<h2"_L1));
  const QStringList chapters = AllOf(text, u"<h2 id=\"([^\"]*)\""_s);
  EXPECT_GT(chapters.size(), 10);
  EXPECT_EQ(AllOf(contents, u"<li><a href=\"#([^\"]*)\""_s), chapters);
}

#endif

}  // namespace

#include "manual_test.moc"
