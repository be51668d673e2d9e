// What the journey does in each window.
#include "journey/journey.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QListWidget>

#include "journey/hands.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

void Journey::ComposeAPage(QWidget* editor) {
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

void Journey::SaveThePage(QWidget* editor) {
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

void Journey::SendThePage(QWidget* editor, const QString& page) {
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

void Journey::Command(QWidget* window, int row, const QString& page, const char* text) {
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

void Journey::AddToSchedule(QWidget* editor, const QString& delay, int downs) {
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

void Journey::BuildASchedule(QWidget* editor) {
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

void Journey::SendTheSchedule(QWidget* editor, const char* letter, int page, const char* text) {
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

void Journey::ComposeAScrollingMessage(QWidget* editor) {
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

void Journey::SendTheScrollingMessage(QWidget* editor) {
  MessageBoxReader boxes;
  const ModalWindowDriver dialogs(u"frmSendShift"_s, [&](QWidget* dialog) {
    TypeInto(dialog, "txtLine", u"3"_s);
    TakePicture(dialog, "frmSendShift");
    Click(dialog, "butSend");
    Click(dialog, "butDone");
  });
  Click(editor, "butSend");
  Step("the scrolling message is sent", boxes.Texts() == QStringList{u"Transmission finished!"_s});
  Step("the panel scrolls it over its third row", QTest::qWaitFor([this] {
         return panel_.Panel(1)[u"scrolling"_s].toObject() ==
                QJsonObject{{u"3"_s, u"<SA><CC>Road works <SE>ahead"_s}};
       }));
}
