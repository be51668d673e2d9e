#include "disk/saved_work.h"

#include <QDateTime>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "config/frmConfig.h"
#include "page/frmMsgEditor.h"
#include "schedule/frmSchedule.h"
#include "scrolling/frmShiftMsg.h"
#include "support/shown_window.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kConfiguration =
    "; by hand\r\n[Dimension Config]\r\nID001=2x80,Tri,127.0.0.1:%1\r\n"
    "[Communication]\r\nSendMode=TCPIP\r\nBaudrate=9600\r\nComPort=1\r\n";

QByteArray ConfigurationOf(int version, const TemporaryProgramFolder& /*folder*/) {
  return QByteArray(kConfiguration).replace("%1", QByteArray::number(1000 + version));
}

QByteArray RowOf(int version) { return QByteArray::number(100000 + version); }

QByteArray PageOf(int version, const TemporaryProgramFolder& /*folder*/) {
  return "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n<L01><SA><CA>" + RowOf(version) +
         "\r\n<L02>\r\n";
}

QByteArray ScrollingOf(int version, const TemporaryProgramFolder& /*folder*/) {
  return "*** Brivon Shift Message File ***\r\n<SA><CA>" + RowOf(version) + "\r\n";
}

QByteArray HourOf(int version) { return QByteArray::number(version / 60 % 24); }
QByteArray MinuteOf(int version) { return QByteArray::number(version % 60); }

QByteArray ScheduleOf(int version, const TemporaryProgramFolder& folder) {
  return "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =" + HourOf(version) +
         "\r\nMin =" + MinuteOf(version) + "\r\nRow =2\r\nCol =80\r\nNo of Sequence =1\r\n" +
         folder.Path(u"a.msg"_s).toLatin1().leftJustified(100) + "\r\n5\r\n" +
         QByteArray("Flip").leftJustified(20) + "\r\n";
}

void TypeInto(QDialog& window, const char* name, const QByteArray& text) {
  auto* box = window.findChild<QLineEdit*>(Text(name));
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, QString::fromLatin1(text));
}

template <const char* Surface>
void TypeRow(QDialog& window, int version) {
  auto* row = window.findChild<QWidget*>(Text(Surface));
  row->setFocus();
  QTest::keyClick(row, Qt::Key_Home);
  QTest::keyClick(row, Qt::Key_End, Qt::ShiftModifier);
  QTest::keyClicks(row, QString::fromLatin1(RowOf(version)));
}

constexpr char kPageRow[] = "Picture1(1)";
constexpr char kScrollingRow[] = "Picture1";

void TypeTime(QDialog& window, int version) {
  TypeInto(window, "txtHour", HourOf(version));
  TypeInto(window, "txtMin", MinuteOf(version));
}

void TypePanel(QDialog& window, int version) {
  auto* list = window.findChild<QListWidget*>(u"List1"_s);
  list->setCurrentRow(0);
  TypeInto(window, "txtIPPortNo", QByteArray::number(1000 + version));
  QTest::mouseClick(window.findChild<QPushButton*>(u"butAdd"_s), Qt::LeftButton);
}

template <typename Window>
std::unique_ptr<QDialog> Make() {
  return std::make_unique<Window>();
}

}  // namespace

const FileKind kFileKinds[4] = {
    {"Page", "page.msg", "lblFileName", "frmSendMsg", true, &Make<frmMsgEditor>, &PageOf,
     &TypeRow<kPageRow>},
    {"Schedule", "week.sch", "lblfilename", "frmSendSch", true, &Make<frmSchedule>, &ScheduleOf,
     &TypeTime},
    {"Scrolling", "news.srl", "lblFileName", "frmSendShift", false, &Make<frmShiftMsg>,
     &ScrollingOf, &TypeRow<kScrollingRow>},
    {"Configuration", "brivon.ini", nullptr, nullptr, false, &Make<frmConfig>, &ConfigurationOf,
     &TypePanel},
};

const char* NameOf(WayToSave way) {
  constexpr const char* kNames[] = {"Save", "Save As", "Save As a new file", "New", "Open",
                                    "Send", "Exit",    "the closing box"};
  return kNames[static_cast<int>(way)];
}

SavedWork::SavedWork(const FileKind& kind) : kind_(kind) {
  folder_.Configure(ConfigurationOf(0, folder_));
  folder_.Write(u"a.msg"_s, PageOf(0, folder_));
  folder_.Write(Text(kind.file), Content(0));
  window_ = kind.make_window();
  ComeBack();
  if (IsEditor()) OpenItsFile();
}

SavedWork::~SavedWork() = default;

void SavedWork::AgeLeftOvers() const {
  const QDateTime then = QDateTime::currentDateTimeUtc().addSecs(-3600);
  const QDir folder(folder_.Path({}));
  for (const QString& name :
       folder.entryList({u"*.~*~"_s, u"*.lock"_s, u"*.rmlock"_s}, QDir::Files | QDir::Hidden)) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadWrite)) << name.toStdString();
    EXPECT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime)) << name.toStdString();
  }
}

template <typename Widget>
Widget* SavedWork::Find(const char* name) {
  auto* widget = window_->findChild<Widget*>(Text(name));
  EXPECT_NE(widget, nullptr) << name;
  return widget;
}

void SavedWork::Press(const char* name) {
  QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton);
}

void SavedWork::Edit(int version) {
  ComeBack();
  kind_.edit(*window_, version);
}

int SavedWork::Save(WayToSave way) {
  if (!IsEditor()) {
    Press("butOK");
    return 0;
  }
  const FileChooser file(IsUnderOtherName(way) ? OtherPath() : QString());
  const auto cancel = [](QWidget* dialog) { dialog->close(); };
  const ModalWindowDriver dimension(u"frmDimension"_s, cancel);
  const ModalWindowDriver send(Text(kind_.send_dialog), cancel);
  switch (way) {
    case WayToSave::kSave:
      Press("butSave");
      break;
    case WayToSave::kSaveAs:
    case WayToSave::kSaveAsNewFile:
      Press("butSaveAs");
      break;
    case WayToSave::kNew:
      Press("butNew");
      break;
    case WayToSave::kOpen:
      Press("butOpen");
      break;
    case WayToSave::kSend:
      Press("butSend");
      break;
    case WayToSave::kExit:
      Press("butExit");
      break;
    case WayToSave::kCloseBox:
      window_->close();
      break;
  }
  return IsUnderOtherName(way) ? 0 : file.Count() + dimension.Count() + send.Count();
}

QString SavedWork::ShownPath() { return IsEditor() ? Find<QLabel>(kind_.label)->text() : Path(); }

bool SavedWork::SaysNotSaved() { return IsEditor() && !Find<QLabel>("lblNotSaved")->isHidden(); }

bool SavedWork::Asks() {
  ComeBack();
  const MessageBoxReader boxes;  // answers with Cancel
  Press(IsEditor() ? "butExit" : "butCancel");
  const bool asks = boxes.Texts() == QStringList(u"File not saved. Save it now?"_s);
  EXPECT_EQ(asks, !IsLeft());
  ComeBack();
  return asks;
}

void SavedWork::ReturnToItsFile() {
  const FileChooser file(Path());
  Press("butSaveAs");
  ActivateWindow(window_.get());
}

void SavedWork::OpenItsFile() {
  const FileChooser file(Path());
  Press("butOpen");
  ActivateWindow(window_.get());
}

void SavedWork::ComeBack() {
  if (window_->isVisible()) return;
  // The configuration's window reads the file when it is made.
  if (!IsEditor()) window_ = kind_.make_window();
  window_->show();
  if (IsEditor()) ActivateWindow(window_.get());
}
