// Goes the way of an operator, by key and mouse, through the real windows: sets up a panel,
// composes a page, saves it, sends it, builds a schedule and sends that, polls the panel, sets its
// clock, runs and deletes pages; over TCP and over a serial line, in English and from a language
// file. The virtual panel runs as the program that it is; what it holds afterwards is compared,
// byte for byte, with what was typed. Every step is printed, every window leaves a picture, and any
// step that fails makes the program fail.

#include <cstdio>
#include <cstdlib>
#include <functional>

#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/frmMain.h"
#include "language/module_language.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

/// The virtual panel's program, started for the journey and ended with it.
class PanelProgram {
 public:
  PanelProgram(const QString& program, const TemporaryProgramFolder& folder, const QString& picture)
      : line_(folder.Path(u"panel-line"_s)), state_(folder.Path(u"panel-state.json"_s)) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, {u"--panel"_s, u"1:4x96:tri"_s, u"--panel"_s, u"2:12x192:mono"_s,
                             u"--tcp"_s, u"127.0.0.1:0"_s, u"--pty"_s, line_, u"--state"_s, state_,
                             u"--picture"_s, picture});
    while (!output_.contains("ready\n") && process_.waitForReadyRead(10000)) {
      output_ += process_.readAllStandardOutput();
    }
  }

  ~PanelProgram() {
    process_.terminate();
    process_.waitForFinished(5000);
  }

  PanelProgram(const PanelProgram&) = delete;
  PanelProgram& operator=(const PanelProgram&) = delete;

  bool IsReady() const { return output_.contains("ready\n"); }

  QString SerialDevice() const { return line_; }

  /// The address that it says it listens on, "127.0.0.1:" and its port.
  QByteArray TcpAddress() const {
    const qsizetype from = output_.indexOf("127.0.0.1:");
    return output_.mid(from, output_.indexOf('\n', from) - from);
  }

  /// What a panel holds, by the program's own account.
  QJsonObject Panel(int id) const {
    QFile file(state_);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QJsonArray panels =
        QJsonDocument::fromJson(file.readAll()).object()[u"panels"_s].toArray();
    for (const QJsonValue& panel : panels) {
      if (panel[u"id"_s].toInt() == id) return panel.toObject();
    }
    return {};
  }

  /// The rows of a stored page, from row 1.
  QStringList Page(int id, int page) const {
    const QJsonObject rows = Panel(id)[u"pages"_s].toObject()[QString::number(page)].toObject();
    QStringList texts;
    for (int row = 1; row <= rows.size(); ++row) {
      texts.append(rows[QString::number(row)].toString());
    }
    return texts;
  }

 private:
  QProcess process_;
  QString line_;
  QString state_;
  QByteArray output_;
};

class Journey {
 public:
  Journey(const QString& panel_program, QString samples, const QString& pictures)
      : samples_(std::move(samples)),
        pictures_(pictures),
        panel_(panel_program, folder_, pictures_.filePath(u"virtual_panel.png"_s)) {}

  /// The number of steps that failed.
  int Run() {
    Step("the virtual panel is ready", panel_.IsReady());
    if (failures_ > 0) return failures_;
    SetUpAPanel();
    OverTcp();
    OverTheSerialLine();
    InAnotherLanguage();
    std::printf("%d steps, %d failed\n", steps_, failures_);
    return failures_;
  }

 private:
  void Step(const char* what, bool succeeded) {
    ++steps_;
    if (!succeeded) ++failures_;
    std::printf("%-7s %s\n", succeeded ? "ok" : "FAILED", what);
    std::fflush(stdout);
  }

  void TakePicture(QWidget* window, const char* name) {
    const bool shown = QTest::qWaitForWindowExposed(window);
    QCoreApplication::processEvents();
    const QString file = pictures_.filePath(QString::fromLatin1(name) + u".png"_s);
    if (!shown || !window->grab().save(file)) Step("a picture was taken", false);
  }

  void Configure(const char* send_mode, int language) {
    folder_.Write(u"brivon.ini"_s,
                  "[Dimension Config]\r\nID001=4x96,Tri," + panel_.TcpAddress() +
                      "\r\nID002=12x192,Mono," + panel_.TcpAddress() +
                      "\r\n[Communication]\r\nSendMode=" + send_mode +
                      "\r\nBaudrate=9600\r\nComPort=2\r\nDelay Period=100\r\n[Serial Ports]\r\n"
                      "Com2=" +
                      panel_.SerialDevice().toLocal8Bit() +
                      "\r\n[Language]\r\nLanguage=" + QByteArray::number(language) + "\r\n");
  }

  template <typename T>
  static T* Find(QWidget* window, const char* name) {
    T* control = window->findChild<T*>(QString::fromLatin1(name));
    if (control == nullptr) qFatal("there is no control %s", name);
    return control;
  }

  static void Click(QWidget* window, const char* name) {
    QTest::mouseClick(Find<QPushButton>(window, name), Qt::LeftButton);
  }

  static void Choose(QWidget* window, const char* name, int index) {
    auto* list = Find<QComboBox>(window, name);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(list, Qt::Key_Down);
  }

  static QWidget* Row(QWidget* window, int row) {
    return Find<QWidget>(window, QByteArray("Picture1(" + QByteArray::number(row) + ")").data());
  }

  /// Opens a task window from the launcher and lets `visit` work in it.
  void Visit(frmMain& launcher, const char* button, const char* window_name,
             const std::function<void(QWidget*)>& visit) {
    const ModalWindowDriver driver(QString::fromLatin1(window_name), visit);
    Click(&launcher, button);
    Step((QByteArray(window_name) + " was opened from the launcher").data(), driver.Count() == 1);
  }

  void ComposeAPage(QWidget* editor) {
    const ModalWindowDriver sizes(u"frmDimension"_s, [this](QWidget* dialog) {
      TakePicture(dialog, "frmDimension");
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    Click(editor, "butNew");
    Step("a new page of 4 rows and 96 dot columns", sizes.Count() == 1);

    Choose(editor, "ComboColor", 1);
    Choose(editor, "ComboSize", 2);
    QTest::mouseClick(Row(editor, 1), Qt::LeftButton);
    QTest::keyClicks(Row(editor, 1), u"Welcome "_s);
    QTest::mouseClick(Find<QWidget>(editor, "chkBlink"), Qt::LeftButton);
    QTest::keyClicks(Row(editor, 1), u"all"_s);
    QTest::mouseClick(Find<QWidget>(editor, "chkBlink"), Qt::LeftButton);
    QTest::keyClick(Row(editor, 1), Qt::Key_Down);
    Choose(editor, "ComboColor", 3);
    Choose(editor, "ComboSize", 1);
    QTest::keyClicks(Row(editor, 2), u"Lane 2 closed!"_s);
    QTest::keyClick(Row(editor, 2), Qt::Key_Backspace);
    QTest::keyClick(Row(editor, 2), Qt::Key_Down);
    Choose(editor, "ComboColor", 2);
    Choose(editor, "ComboSize", 0);
    QTest::mouseClick(Row(editor, 3), Qt::LeftButton);
    Click(editor, "cmdAddDate");
    QTest::keyClick(Row(editor, 3), Qt::Key_Down);
    Click(editor, "cmdAddTime");
    QTest::keyClicks(Row(editor, 4), u" "_s);
    auto* graphics = Find<QComboBox>(editor, "ComboGraphic");
    graphics->setFocus();
    QTest::keyClick(graphics, Qt::Key_C);
    QTest::keyClick(graphics, Qt::Key_Return);
  }

  void SaveThePage(QWidget* editor) {
    page_file_ = folder_.Path(u"welcome.msg"_s);
    const FileChooser chooser(page_file_);
    Click(editor, "butSaveAs");
    TakePicture(editor, "frmMsgEditor");
    Step("the saved file holds what was typed",
         folder_.Read(u"welcome.msg"_s) ==
             "*** Brivon Message File ***\r\nRow = 4\r\nCol = 96\r\n"
             "<L01><SC><CB>Welcome <SG>all\r\n"
             "<L02><SB><CD>Lane 2 closed\r\n"
             "<L03><SA><CC>DD MMM YYYY\r\n"
             "<L04><SA><CC>HH:MM ~C\r\n");
  }

  /// Sends the editor's page to the first panel as page `page`.
  void SendThePage(QWidget* editor, const QString& page) {
    MessageBoxReader boxes;
    const ModalWindowDriver dialogs(u"frmSendMsg"_s, [&](QWidget* dialog) {
      Choose(dialog, "ComboID", 0);
      auto* number = Find<QLineEdit>(dialog, "txtPage");
      number->setFocus();
      number->selectAll();
      QTest::keyClicks(number, page);
      TakePicture(dialog, "frmSendMsg");
      QTest::keyClick(number, Qt::Key_Return);
      QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Click(editor, "butSend");
    Step("the send dialog says that the transmission is finished",
         boxes.Texts() == QStringList{u"Transmission finished!"_s});
    const QStringList rows{u"<SC><CB>Welcome <SG>all "_s, u"<SB><CD>Lane 2 closed "_s,
                           u"<SA><CC><DD> "_s, u"<SA><CC><DT> <GC> "_s};
    Step("the panel holds exactly the rows that were sent",
         QTest::qWaitFor([&] { return panel_.Page(1, page.toInt()) == rows; }));
  }

  /// Carries out the command in a row of the list and checks the message box.
  void Command(QWidget* window, int row, const QString& page, const char* text) {
    MessageBoxReader boxes;
    const ModalWindowDriver pages(u"frmPage"_s, [&](QWidget* dialog) {
      auto* number = Find<QLineEdit>(dialog, "txtPage");
      number->selectAll();
      QTest::keyClicks(number, page);
      TakePicture(dialog, "frmPage");
      QTest::keyClick(number, Qt::Key_Return);
    });
    auto* list = Find<QListWidget>(window, "ListCommand");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
    TakePicture(window, "frmCommand");
    Click(window, "butSend");
    Step(text, boxes.Texts() == QStringList{QString::fromLatin1(text)});
  }

  static void TypeInto(QWidget* window, const char* name, const QString& text) {
    auto* box = Find<QLineEdit>(window, name);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
  }

  /// From no configuration at all to the first panel and the link.
  void SetUpAPanel() {
    std::printf("-- the first panel\n");
    frmMain launcher;
    launcher.show();
    Visit(launcher, "butConfigEdit", "frmConfig", [this](QWidget* dialog) {
      const QByteArray address = panel_.TcpAddress();
      auto* tcp = Find<QRadioButton>(dialog, "optTCPIP");
      QTest::mouseClick(tcp, Qt::LeftButton, {}, QPoint(8, tcp->height() / 2));
      TypeInto(dialog, "txtIPAddress", u"127.0.0.1"_s);
      TypeInto(dialog, "txtIPPortNo", QString::fromLatin1(address.mid(address.indexOf(':') + 1)));
      TypeInto(dialog, "txtID", u"1"_s);
      TypeInto(dialog, "txtRow", u"4"_s);
      TypeInto(dialog, "txtcol", u"96"_s);
      Choose(dialog, "ComboColorType", 1);
      Click(dialog, "butAdd");
      TakePicture(dialog, "frmConfig");
      Click(dialog, "butOK");
    });
    Step("brivon.ini holds the panel and the link",
         folder_.Read(u"brivon.ini"_s) ==
             "[Dimension Config]\r\nID001=4x96,Tri," + panel_.TcpAddress() +
                 "\r\n[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=TCPIP\r\n");
  }

  /// Adds the saved page to the schedule, with `delay` and the feature `downs` entries below the
  /// first.
  void AddToSchedule(QWidget* editor, const QString& delay, int downs) {
    const FileChooser chooser(page_file_);
    const ModalWindowDriver properties(u"frmDelay"_s, [&](QWidget* dialog) {
      TypeInto(dialog, "txtDelay", delay);
      auto* features = Find<QListWidget>(dialog, "ListFeature");
      features->setFocus();
      QTest::keyClick(features, Qt::Key_Home);
      for (int i = 0; i < downs; ++i) QTest::keyClick(features, Qt::Key_Down);
      TakePicture(dialog, "frmDelay");
      Click(dialog, "butOK");
    });
    Click(editor, "butAdd");
  }

  void BuildASchedule(QWidget* editor) {
    const ModalWindowDriver sizes(u"frmDimension"_s,
                                  [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Return); });
    Click(editor, "butNew");
    Choose(editor, "comboWeek", 2);
    TypeInto(editor, "txtHour", u"8"_s);
    TypeInto(editor, "txtMin", u"30"_s);
    AddToSchedule(editor, u"5"_s, 0);
    AddToSchedule(editor, u"12"_s, 3);
    schedule_file_ = folder_.Path(u"monday.sch"_s);
    const FileChooser chooser(schedule_file_);
    Click(editor, "butSaveAs");
    TakePicture(editor, "frmSchedule");
    QByteArray path = page_file_.toLocal8Bit();
    path += QByteArray(100 - path.size(), ' ');
    Step("the saved schedule holds what was chosen",
         folder_.Read(u"monday.sch"_s) ==
             "*** Brivon Schedule File ***\r\nWeek =2\r\nHour =8\r\nMin =30\r\nRow =4\r\nCol "
             "=96\r\nNo of Sequence =2\r\n" +
                 path + "\r\n5\r\nAppear              \r\n" + path +
                 "\r\n12\r\nWipe Left           \r\n");
  }

  /// Sends the editor's schedule to the first panel under `letter`; `page` is the letter's first.
  void SendTheSchedule(QWidget* editor, const char* letter, int page, const char* text) {
    MessageBoxReader boxes;
    const ModalWindowDriver dialogs(u"frmSendSch"_s, [&](QWidget* dialog) {
      Choose(dialog, "ComboSchID", 0);
      TypeInto(dialog, "txtSchNo", QString::fromLatin1(letter));
      TakePicture(dialog, "frmSendSch");
      Click(dialog, "butSend");
      Click(dialog, "butDone");
    });
    Click(editor, "butSend");
    Step(text, boxes.Texts() == QStringList{QString::fromLatin1(text)});
    const QJsonArray entries{
        QJsonObject{{u"page"_s, page}, {u"delay"_s, 5}, {u"feature"_s, u"A"_s}},
        QJsonObject{{u"page"_s, page}, {u"delay"_s, 12}, {u"feature"_s, u"E"_s}},
    };
    Step("the panel holds the schedule and its page", QTest::qWaitFor([&] {
           const QJsonObject schedule =
               panel_.Panel(1)[u"schedules"_s].toObject()[QString::fromLatin1(letter)].toObject();
           return schedule[u"entries"_s].toArray() == entries && schedule[u"weekday"_s] == u"1"_s &&
                  schedule[u"hour"_s] == u"08"_s && schedule[u"minute"_s] == u"30"_s &&
                  panel_.Page(1, page).size() == 4;
         }));
  }

  void ComposeAScrollingMessage(QWidget* editor) {
    auto* message = Find<QWidget>(editor, "Picture1");
    Choose(editor, "ComboColor", 2);
    message->setFocus();
    QTest::keyClicks(message, u"Road works "_s);
    QTest::mouseClick(Find<QWidget>(editor, "chkBlink"), Qt::LeftButton);
    QTest::keyClicks(message, u"ahead"_s);
    const FileChooser chooser(folder_.Path(u"works.srl"_s));
    Click(editor, "butSaveAs");
    TakePicture(editor, "frmShiftMsg");
    Step("the saved scrolling message holds what was typed",
         folder_.Read(u"works.srl"_s) ==
             "*** Brivon Shift Message File ***\r\n<SA><CC>Road works <SE>ahead\r\n");
  }

  /// Sends the editor's scrolling message to row 3 of the first panel.
  void SendTheScrollingMessage(QWidget* editor) {
    MessageBoxReader boxes;
    const ModalWindowDriver dialogs(u"frmSendShift"_s, [&](QWidget* dialog) {
      TypeInto(dialog, "txtLine", u"3"_s);
      TakePicture(dialog, "frmSendShift");
      Click(dialog, "butSend");
      Click(dialog, "butDone");
    });
    Click(editor, "butSend");
    Step("the scrolling message is sent",
         boxes.Texts() == QStringList{u"Transmission finished!"_s});
    Step("the panel scrolls it over its third row", QTest::qWaitFor([this] {
           return panel_.Panel(1)[u"scrolling"_s].toObject() ==
                  QJsonObject{{u"3"_s, u"<SA><CC>Road works <SE>ahead"_s}};
         }));
  }

  void OverTcp() {
    std::printf("-- over TCP\n");
    Configure("TCPIP", 1);
    frmMain launcher;
    launcher.show();
    TakePicture(&launcher, "frmMain");
    Visit(launcher, "butMsgEdit", "frmMsgEditor", [this](QWidget* editor) {
      ComposeAPage(editor);
      SaveThePage(editor);
      SendThePage(editor, u"7"_s);
      Click(editor, "butExit");
    });
    Visit(launcher, "butSchEdit", "frmSchedule", [this](QWidget* editor) {
      BuildASchedule(editor);
      SendTheSchedule(editor, "C", 25, "Schedules file is sent successfully through network");
      Click(editor, "butExit");
    });
    Visit(launcher, "butCommand", "frmCommand", [this](QWidget* window) {
      Command(window, 0, QString(), "Command is sent successfully!");
      Command(window, 1, QString(), "Set Clock Finished!");
      Command(window, 4, u"7"_s, "Page 7 is running.");
      Step("the panel runs page 7",
           QTest::qWaitFor([this] { return panel_.Panel(1)[u"running_page"_s].toInt() == 7; }));
      Click(window, "butDone");
    });
  }

  void OverTheSerialLine() {
    std::printf("-- over a serial line\n");
    Configure("RS232", 1);
    frmMain launcher;
    launcher.show();
    Visit(launcher, "butMsgEdit", "frmMsgEditor", [this](QWidget* editor) {
      const FileChooser chooser(page_file_);
      Click(editor, "butOpen");
      SendThePage(editor, u"12"_s);
      QTest::keyClick(editor, Qt::Key_Escape);
    });
    Visit(launcher, "butSchEdit", "frmSchedule", [this](QWidget* editor) {
      const FileChooser chooser(schedule_file_);
      Click(editor, "butOpen");
      SendTheSchedule(editor, "J", 109, "Transmission finished!");
      QTest::keyClick(editor, Qt::Key_Escape);
    });
    Visit(launcher, "butShiftMsg", "frmShiftMsg", [this](QWidget* editor) {
      ComposeAScrollingMessage(editor);
      SendTheScrollingMessage(editor);
      Click(editor, "butExit");
    });
    Visit(launcher, "butCommand", "frmCommand", [this](QWidget* window) {
      Command(window, 0, QString(), "Command is sent successfully!");
      Command(window, 1, QString(), "Set clock is done!");
      Command(window, 3, u"12"_s, "Page 12 is deleted.");
      Step("the panel has deleted page 12 and kept page 7", QTest::qWaitFor([this] {
             return panel_.Page(1, 12).isEmpty() && panel_.Page(1, 7).size() == 4;
           }));
      Click(window, "butDone");
    });
  }

  void InAnotherLanguage() {
    std::printf("-- in German\n");
    QFile texts(samples_ + u"/languages/deutsch/langSetting.INI"_s);
    Step("the sample language file is there", texts.open(QIODevice::ReadOnly));
    folder_.Write(u"langSetting.INI"_s, texts.readAll());
    Configure("TCPIP", 2);
    frmMain launcher;
    launcher.show();
    TakePicture(&launcher, "frmMain-deutsch");
    Visit(launcher, "butMsgEdit", "frmMsgEditor", [this](QWidget* editor) {
      const FileChooser chooser(page_file_);
      Click(editor, "butOpen");
      TakePicture(editor, "frmMsgEditor-deutsch");
      Step("the editor speaks German",
           editor->windowTitle() == ModuleLanguage::ReadLangString(
                                        u"frmMsgEditor"_s, u"frmMsgEditor.Caption"_s, QString()) &&
               !editor->windowTitle().isEmpty());
      Click(editor, "butExit");
    });
    Visit(launcher, "butCommand", "frmCommand", [this](QWidget* window) {
      TakePicture(window, "frmCommand-deutsch");
      Click(window, "butDone");
    });
  }

  TemporaryProgramFolder folder_;
  QString samples_;
  QDir pictures_;
  PanelProgram panel_;
  QString page_file_;
  QString schedule_file_;
  int steps_ = 0;
  int failures_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QCommandLineParser options;
  const QCommandLineOption panel_program(u"panel-program"_s, u"The virtual panel."_s, u"FILE"_s);
  const QCommandLineOption samples(u"samples"_s, u"The sample files."_s, u"FOLDER"_s);
  const QCommandLineOption pictures(u"pictures"_s, u"Where the pictures go."_s, u"FOLDER"_s);
  options.addOptions({panel_program, samples, pictures});
  options.addHelpOption();
  options.process(application);
  if (!QDir().mkpath(options.value(pictures))) qFatal("cannot make the folder of the pictures");
  Journey journey(options.value(panel_program), options.value(samples), options.value(pictures));
  return journey.Run() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
