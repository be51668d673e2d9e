// What provokes the messages of the manual, for the test of what stands below each of them.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "command/command_order.h"
#include "config/frmConfig.h"
#include "page/frmMsgEditor.h"
#include "page/frmSendMsg.h"
#include "page/page_order.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "schedule/schedule_order.h"
#include "schedule/schedule_transmission.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/scrolling_order.h"
#include "sending/sending_words.h"
#include "support/full_disk.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/program_folder.h"

namespace remedies {

using namespace Qt::StringLiterals;
using Brivon1::Refusal;

inline constexpr const char* kHead =
    "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =**\r\nMin =**\r\n";

/// A program folder with a few files in it, and a window that is driven to its message.
class Stage {
 public:
  Stage() {
    folder.Configure(
        "[Dimension Config]\r\nID001=4x96,Tri,192.168.0.1:80\r\nID002=4x96,Tri\r\n"
        "[Communication]\r\nSendMode=TCPIP\r\n");
    folder.Write(u"page.msg"_s, SampleMessageFile(4, 96));
    folder.Write(u"wide.msg"_s, SampleMessageFile(12, 192));
    folder.Write(u"short.msg"_s,
                 "*** Brivon Message File ***\r\nRow = 4\r\nCol = 96\r\n<L01>a\r\n");
    folder.Write(u"text.srl"_s, "*** Brivon Shift Message File ***\r\nHello\r\n");
    WriteSchedule("week.sch", {"page.msg"});
  }

  QString WriteSchedule(const char* name, const QList<QByteArray>& files) const {
    QByteArray content = QByteArray(kHead) + "Row =4\r\nCol =96\r\nNo of Sequence =" +
                         QByteArray::number(files.size()) + "\r\n";
    for (const QByteArray& file : files) content += file + "\r\n5\r\nAppear\r\n";
    return folder.Write(QString::fromLatin1(name), content);
  }

  /// The only panel of an order, or the one of that ID.
  static Brivon1::PanelListEntry Panel(int id = 1) {
    const auto& entry = Brivon1::Store().panels[static_cast<std::size_t>(id)];
    return {id, entry.rows, entry.columns, Brivon1::ReadEndpoint(entry.address)};
  }

  template <typename Window, typename... Arguments>
  QWidget& Open(Arguments&&... arguments) {
    window_ = std::make_unique<Window>(nullptr, std::forward<Arguments>(arguments)...);
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    return *window_;
  }

  /// The program folder, with a separator at its end.
  QString Root() const { return folder.Path(u"x"_s).chopped(1); }

  QPushButton* Button(const char* name) const {
    return window_->findChild<QPushButton*>(QString::fromLatin1(name));
  }

  void Press(const char* button) const { Button(button)->click(); }

  /// Presses a button, and answers the file dialog that it opens.
  void Choose(const char* button, const QString& path) const {
    const FileChooser chooser(path);
    Press(button);
  }

  void Type(const char* box, const char* text) const {
    window_->findChild<QLineEdit*>(QString::fromLatin1(box))->setText(QString::fromLatin1(text));
  }

  /// The message that a press has brought.
  Refusal Said() const {
    if (boxes.Seen().isEmpty()) return {};
    EXPECT_EQ(boxes.Seen().last().title, window_->windowTitle());
    EXPECT_EQ(boxes.Seen().last().icon, QMessageBox::NoIcon);
    return {boxes.Seen().last().text, boxes.Seen().last().informative};
  }

  TemporaryProgramFolder folder;
  MessageBoxReader boxes;

 private:
  std::unique_ptr<QWidget> window_;
};

inline Refusal Config(Stage& stage, const char* box, const char* text) {
  stage.Open<frmConfig>();
  stage.Type(box, text);
  stage.Press("butAdd");
  return stage.Said();
}

/// Presses "OK" where a folder stands in place of the file.
inline Refusal SaveConfigOntoFolder(Stage& stage) {
  stage.Open<frmConfig>();
  QDir(stage.Root()).remove(u"brivon.ini"_s);
  QDir(stage.Root()).mkdir(u"brivon.ini"_s);
  stage.Press("butOK");
  QDir(stage.Root()).rmdir(u"brivon.ini"_s);
  return stage.Said();
}

inline Refusal SaveConfigOntoFullDisk(Stage& stage) {
  stage.Open<frmConfig>();
  stage.Type("txtID", "5");
  stage.Type("txtRow", "1");
  stage.Type("txtcol", "8");
  stage.Press("butAdd");
  const FullDisk full_disk(20);
  stage.Press("butOK");
  return stage.Said();
}

template <typename Editor>
Refusal OpenIn(Stage& stage, const char* name) {
  stage.Open<Editor>();
  stage.Choose("butOpen", stage.folder.Path(QString::fromLatin1(name)));
  return stage.Said();
}

inline Refusal SavePage(Stage& stage) {
  OpenIn<frmMsgEditor>(stage, "page.msg");
  const FullDisk full_disk(20);
  stage.Press("butSave");
  return stage.Said();
}

inline Refusal SavePageAs(Stage& stage) {
  OpenIn<frmMsgEditor>(stage, "page.msg");
  stage.Choose("butSaveAs", stage.Root().leftJustified(102, u'x'));
  return stage.Said();
}

inline Refusal SendPage(const QString& path, const std::optional<Brivon1::PanelListEntry>& panel,
                        const char* page = "1") {
  return Brivon1::CheckPageOrder({path, panel, QString::fromLatin1(page)}, Brivon1::Store())
      .value_or(Refusal{});
}

inline Refusal SendPageOver(Stage& stage, const QByteArray& link) {
  stage.folder.Configure("[Dimension Config]\r\nID001=4x96,Tri,127.0.0.1:1\r\n[Communication]\r\n" +
                         link);
  QWidget& window = stage.Open<frmSendMsg>(stage.folder.Path(u"page.msg"_s));
  window.findChild<QComboBox*>(u"ComboID"_s)->setCurrentIndex(0);
  stage.Press("butSend");
  return stage.Said();
}

/// A page that ends early is sent to a panel that answers.
inline Refusal SendBrokenPage(Stage& stage) {
  const QString path = stage.folder.Path(u"short.msg"_s);
  const VirtualBench bench(LineKind::kSerial, {{1, 4, 96, true}});
  frmSendMsg window(nullptr, path, bench.Ports());
  window.show();
  window.findChild<QComboBox*>(u"ComboID"_s)->setCurrentIndex(0);
  window.findChild<QPushButton*>(u"butSend"_s)->click();
  const SeenMessageBox box = stage.boxes.Seen().value(0);
  return {box.text, box.informative};
}

inline Refusal AddToSchedule(Stage& stage, const char* schedule, const QString& path) {
  OpenIn<frmSchedule>(stage, schedule);
  stage.Choose("butAdd", path);
  return stage.Said();
}

/// Offers 27 different files, none of which enters the table.
inline Refusal Add27(Stage& stage, const char* button) {
  OpenIn<frmSchedule>(stage, "week.sch");
  const ModalWindowDriver cancel(u"frmDelay"_s, [](QWidget* dialog) { dialog->close(); });
  for (int file = 1; file <= 27; ++file) {
    const QString name = u"page%1.msg"_s.arg(file);
    stage.Choose(button, stage.folder.Write(name, SampleMessageFile(4, 96)));
  }
  return stage.Said();
}

inline Refusal SaveSchedule(Stage& stage, const char* box, const char* time) {
  OpenIn<frmSchedule>(stage, "week.sch");
  stage.Type(box, time);
  stage.Press("butSave");
  return stage.Said();
}

/// Empties the schedule, presses `button`, and answers the save question with "Yes".
inline Refusal LeaveEmptySchedule(Stage& stage, const char* button) {
  OpenIn<frmSchedule>(stage, "week.sch");
  stage.Press("butClear");
  // A press that comes through nevertheless.
  stage.Button(button)->setEnabled(true);
  stage.boxes.Answer(QMessageBox::Yes);
  stage.Press(button);
  return stage.Said();
}

inline Refusal SendOpenSchedule(Stage& stage, const std::function<void()>& before) {
  QDir(stage.Root()).mkdir(u"sub"_s);
  stage.WriteSchedule("sub/week.sch", {"page.msg"});
  OpenIn<frmSchedule>(stage, "sub/week.sch");
  before();
  stage.Press("butSend");
  return stage.Said();
}

inline Refusal SendSchedule(const QString& path,
                            const std::optional<Brivon1::PanelListEntry>& panel) {
  std::optional<Brivon1::Dimension> dimension;
  return Brivon1::CheckScheduleOrder({path, panel}, Brivon1::Store(), dimension)
      .value_or(Refusal{});
}

inline Refusal CheckSchedule(const QString& path, const char* letter = "A") {
  return Brivon1::CheckScheduleFile(path, QString::fromLatin1(letter)).value_or(Refusal{});
}

/// The only message file ends early.
inline Refusal SendBrokenSchedule(Stage& stage) {
  const QString path = stage.WriteSchedule("two.sch", {stage.Root().toUtf8() + "short.msg"});
  const VirtualBench bench(LineKind::kSerial, {{1, 4, 96, true}});
  frmSendSch window(nullptr, path, bench.Ports());
  window.show();
  window.findChild<QComboBox*>(u"ComboSchID"_s)->setCurrentIndex(0);
  window.findChild<QLineEdit*>(u"txtSchNo"_s)->setText(u"A"_s);
  window.findChild<QPushButton*>(u"butSend"_s)->click();
  const SeenMessageBox box = stage.boxes.Seen().value(0);
  return {box.text, box.informative};
}

template <typename Dialog>
Refusal Browse(Stage& stage, const char* name) {
  stage.Open<Dialog>(QString());
  stage.Choose("butBrowse", stage.folder.Path(QString::fromLatin1(name)));
  return stage.Said();
}

inline Refusal SendScrolling(Stage& stage, const char* file, bool has_panel, const char* line) {
  const auto panel = has_panel ? std::optional(Stage::Panel()) : std::nullopt;
  return Brivon1::CheckScrollingOrder(
             {stage.folder.Path(QString::fromLatin1(file)), panel, QString::fromLatin1(line)},
             Brivon1::Store())
      .value_or(Refusal{});
}

}  // namespace remedies
