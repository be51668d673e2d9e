#include "pictures/picture_maker.h"

#include <cstdio>

#include <QCoreApplication>
#include <QFile>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

#include "journey/hands.h"
#include "page/frmSendMsg.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

const QDateTime kStart(QDate(2026, 3, 2), QTime(8, 30), Qt::UTC);

// Where an operator has the program.
constexpr auto kOperatorsFolder = "/home/operator/brivon"_L1;

}  // namespace

PictureMaker::PictureMaker(const QString& samples, const QString& pictures)
    : samples_(samples),
      pictures_(pictures),
      engine_({{1, 4, 96, true}, {2, 12, 192, true}},
              [this] { return kStart.addMSecs(time_.Now()); }),
      serial_(engine_, time_, u"serial"_s),
      tcp_(engine_, time_, u"tcp"_s) {
  serial_.PlugIn();
  tcp_.PlugIn();
  const QDir from(samples);
  for (const char* kind : {"messages", "schedules"}) {
    const QString name = QString::fromLatin1(kind);
    QDir(folder_.Path(QString())).mkpath(name);
    for (const QString& file : QDir(from.filePath(name)).entryList(QDir::Files)) {
      QFile::copy(from.filePath(name + u'/' + file), folder_.Path(name + u'/' + file));
    }
  }
  Configure();
}

void PictureMaker::MakeAll() {
  Launcher();
  GermanLauncher();
  Config();
  PageEditor();
  SaveQuestion();
  SmallDialogs();
  SendPage();
  NoPort();
  ScheduleEditor();
  ScrollingEditor();
  CommandWindow();
  VirtualPanelWindow();
  EditorAndPanel();
  Symbols();
}

void PictureMaker::Configure(const char* send_mode) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri,192.168.1.50:2101\r\n"
      "ID002=12x192,Tri,192.168.1.51:2101\r\n[Communication]\r\nSendMode=" +
      QByteArray(send_mode) +
      "\r\nBaudrate=9600\r\nComPort=2\r\nDelay Period=300\r\n[Serial Ports]\r\nCom2=" +
      folder_.Path(u"dev/ttyUSB0"_s).toLocal8Bit() + "\r\n");
}

void PictureMaker::Show(QWidget& window) {
  window.show();
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window)) qFatal("a window does not appear");
  QCoreApplication::processEvents();
}

QImage PictureMaker::Picture(QWidget& window) const {
  const QString folder = folder_.Path(QString());
  const auto replace_folder = [&folder](QString& text) {
    text.replace(folder + u"/dev/"_s, u"/dev/"_s).replace(folder, kOperatorsFolder);
  };
  // A box is as wide as its text, so that it must not keep the width of this folder's name.
  if (auto* box = qobject_cast<QMessageBox*>(&window)) {
    QString text = box->informativeText();
    replace_folder(text);
    for (QLabel* label : box->findChildren<QLabel*>()) {
      if (label->text() != box->informativeText() || label->minimumWidth() == 0) continue;
      const QFontMetrics letters = label->fontMetrics();
      label->setMinimumWidth(letters.horizontalAdvance(text) + letters.averageCharWidth());
    }
    box->setInformativeText(text);
  }
  for (QLabel* label : window.findChildren<QLabel*>()) {
    QString text = label->text();
    replace_folder(text);
    if (text != label->text()) label->setText(text);
  }
  for (int i = 0; i < 3; ++i) QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  return window.grab().toImage();
}

void PictureMaker::Save(const QImage& image, const char* name) const {
  const QString path = pictures_.filePath(QString::fromLatin1(name) + u".png"_s);
  if (!image.convertToFormat(QImage::Format_RGB32).save(path)) {
    qFatal("cannot write the picture %s", name);
  }
  std::printf("%s\n", name);
}

void PictureMaker::SaveBox(QWidget& window, const char* button, const char* name) const {
  const ModalWindowDriver boxes(QString(), [&](QWidget* box) {
    Save(*box, name);
    static_cast<QDialog*>(box)->reject();
  });
  Click(&window, button);
  if (boxes.Count() != 1) qFatal("there was no box for the picture %s", name);
}

void PictureMaker::SendFile(const char* file, int id, const char* page) {
  MessageBoxReader boxes;
  frmSendMsg dialog(nullptr, Sample(file), &ports_);
  Show(dialog);
  Choose(&dialog, "ComboID", id - 1);
  TypeInto(&dialog, "txtPage", QString::fromLatin1(page));
  Click(&dialog, "butSend");
  if (boxes.Texts() != QStringList{u"Transmission finished!"_s}) qFatal("cannot send %s", file);
}

void PictureMaker::SendFrame(const QByteArray& frame) { engine_.Receive(frame + "\r\n"); }
