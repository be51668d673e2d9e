// The windows of the program, each in the state that the manual explains.
#include <algorithm>

#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QTest>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "journey/hands.h"
#include "language/module_language.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "pictures/picture_maker.h"
#include "row/row_surface.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

// So high that the dots of the panel below the rows can be told apart.
constexpr QSize kEditorWithPanel(708, 800);

// A message file is read beside the window.
void AwaitPage(const QWidget& window) {
  const auto is_read = [&window] {
    const QList<QLabel*> labels = window.findChildren<QLabel*>();
    return std::none_of(labels.begin(), labels.end(), [](const QLabel* label) {
      return label->isVisible() && label->text().startsWith("Reading "_L1);
    });
  };
  if (!QTest::qWaitFor(is_read)) qFatal("a page is not read");
}

}  // namespace

void PictureMaker::Launcher() {
  frmMain window;
  Show(window);
  Save(window, "launcher");
}

void PictureMaker::GermanLauncher() {
  QFile texts(samples_ + u"/languages/deutsch/langSetting.INI"_s);
  if (!texts.open(QIODevice::ReadOnly)) qFatal("there is no German");
  folder_.Write(u"langSetting.INI"_s, texts.readAll());
  folder_.Write(u"brivon.ini"_s, "[Language]\r\nLanguage=2\r\n");
  {
    frmMain window;
    Show(window);
    Save(window, "launcher_german");
  }
  ModuleLanguage::SetLanguageActive(false);
  Configure();
}

void PictureMaker::Config() {
  frmConfig window(nullptr);
  Show(window);
  auto* panels = Find<QListWidget>(&window, "List1");
  QTest::mouseClick(panels->viewport(), Qt::LeftButton, {},
                    panels->visualItemRect(panels->item(0)).center());
  Save(window, "config");
}

void PictureMaker::PageEditor() {
  frmMsgEditor editor(nullptr);
  Show(editor);
  const FileChooser chooser(Sample("messages/all_colours.msg"));
  Click(&editor, "butOpen");
  editor.resize(kEditorWithPanel);
  QCoreApplication::processEvents();
  Save(editor, "colours");
}

void PictureMaker::SaveQuestion() {
  frmMsgEditor editor(nullptr);
  Show(editor);
  const FileChooser chooser(Sample("messages/welcome.msg"));
  Click(&editor, "butOpen");
  QTest::keyClicks(Row(&editor, 1), u"!"_s);
  SaveBox(editor, "butExit", "save_question");
}

void PictureMaker::SmallDialogs() {
  frmDimension dimension(nullptr);
  Show(dimension);
  Save(dimension, "dimension");
  frmPage page(nullptr);
  Show(page);
  TypeInto(&page, "txtPage", u"007"_s);
  Save(page, "page_number");
  frmDelay delay(nullptr);
  Show(delay);
  TypeInto(&delay, "txtDelay", u"8"_s);
  Save(delay, "delay");
}

// The panel answers after 700 ms, so that its third row is on its way after two seconds.
void PictureMaker::SendPage() {
  MessageBoxReader boxes;
  VirtualPanel::Faults slow;
  QString error;
  if (!VirtualPanel::ParseFault(u"late:700"_s, &slow, &error)) qFatal("there is no such fault");
  engine_.SetFaults(slow);
  frmSendMsg dialog(nullptr, Sample("messages/welcome.msg"), &ports_);
  Show(dialog);
  Choose(&dialog, "ComboID", 0);
  TypeInto(&dialog, "txtPage", u"007"_s);
  bool is_taken = false;
  time_.Schedule(2000, [&] {
    Save(dialog, "send_message");
    is_taken = true;
  });
  Click(&dialog, "butSend");
  engine_.SetFaults({});
  if (!is_taken) qFatal("the page was sent too soon");
}

void PictureMaker::NoPort() {
  Configure("RS232");
  frmSendMsg dialog(nullptr, Sample("messages/welcome.msg"));
  Show(dialog);
  Choose(&dialog, "ComboID", 0);
  TypeInto(&dialog, "txtPage", u"007"_s);
  SaveBox(dialog, "butSend", "no_port");
  Configure();
}

void PictureMaker::ScheduleEditor() {
  {
    frmSchedule editor(
        nullptr, [](const QString&) { return true; }, [this] { return engine_.Now(); });
    Show(editor);
    const FileChooser chooser(Sample("schedules/every_day.sch"));
    Click(&editor, "butOpen");
    AwaitPage(editor);
    Save(editor, "schedule");
  }
  frmSendSch dialog(nullptr, Sample("schedules/every_day.sch"), &ports_);
  Show(dialog);
  Choose(&dialog, "ComboSchID", 0);
  TypeInto(&dialog, "txtSchNo", u"C"_s);
  Save(dialog, "send_schedule");
}

void PictureMaker::ScrollingEditor() {
  {
    frmShiftMsg editor(nullptr, [this] { return engine_.Now(); });
    Show(editor);
    const FileChooser chooser(Sample("messages/roadworks.srl"));
    Click(&editor, "butOpen");
    QTest::keyClick(editor.findChild<RowSurface*>(), Qt::Key_Home);
    Click(&editor, "butPlay");
    // The text is all over the panel then.
    for (int i = 0; i < 2; ++i) LetPagesEnter();
    Save(editor, "scrolling");
  }
  Configure("RS232");
  frmSendShift dialog(nullptr, Sample("messages/roadworks.srl"), &ports_);
  Show(dialog);
  TypeInto(&dialog, "txtLine", u"1"_s);
  Save(dialog, "send_scrolling");
  Configure();
}

void PictureMaker::CommandWindow() {
  frmCommand window(nullptr, &ports_);
  Show(window);
  auto* commands = Find<QListWidget>(&window, "ListCommand");
  QTest::mouseClick(commands->viewport(), Qt::LeftButton, {},
                    commands->visualItemRect(commands->item(3)).center());
  Save(window, "command");
}
