// The schedule editor in another language, and with a schedule of another language.
#include <gtest/gtest.h>

#include "schedule/schedule_editor.h"

namespace {

/// A window in another language.
class GermanScheduleEditor : public ScheduleEditor {
 protected:
  void UseTexts(const QByteArray& features) {
    folder_.UseLanguage(
        "[Message]\nmsgSave=Sichern?\nmsgFull=Voll!\nmsgNotFound=Nicht da\nmsgErrOpen=Fehler\n"
        "msgDim=Passt nicht!\nmsgEmptySch=Leer!\nmsgPath=Pfad!\nmsgSchF=Plan\n"
        "[frmSchedule]\nfrmSchedule.Caption=Zeitplan\nDialogTitleOpen=Oeffnen\n"
        "DialogTitleSaveAs=Sichern als\nDialogTitleAddMsg=Dazu\nTableTag1=Meldung\nTableTag3=Wie\n"
        "[frmDelay]\n" +
        features);
  }
};

constexpr const char* kGermanFeatures =
    "ListFeature.List(0)=Erscheinen\nListFeature.List(1)=Umklappen\nListFeature.List(2)=Auf\n"
    "ListFeature.List(3)=Nach rechts wischen\nListFeature.List(4)=Nach links hinueber wischen\n";

TEST_F(GermanScheduleEditor, TextsComeFromTheLanguageFile) {
  UseTexts("");
  EXPECT_EQ(Window().windowTitle(), Text("Zeitplan"));
  EXPECT_EQ(Heading(0), QString());
  EXPECT_EQ(Heading(1), Text("Meldung"));
  EXPECT_EQ(Heading(2), Text("Delay"));
  EXPECT_EQ(Heading(3), Text("Wie"));
  EXPECT_EQ(Find<QLabel>("Label3")->text(),
            Text("Hour:            Minute:           ( ** for every time.)"));
  New();
  Add(Message(1));
  EXPECT_EQ(dialog_.title, Text("Dazu"));
  EXPECT_EQ(dialog_.filters, Lines({"Meldung(*.msg)", "All (*)"}));
  Choose("butSaveAs", folder_.Path(Text("a.sch")));
  EXPECT_EQ(dialog_.title, Text("Sichern als"));
  Open(QString());
  EXPECT_EQ(dialog_.title, Text("Oeffnen"));
  EXPECT_EQ(dialog_.filters, Lines({"Plan(*.sch)", "All (*)"}));
  Choose(QString(), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(dialog_.title, Text("Meldung"));
}

TEST_F(GermanScheduleEditor, ALineOfTheTimeThatIsTooLongKeepsBothBoxesInSight) {
  const QByteArray words = QByteArray("Stunde ").repeated(12).trimmed();
  folder_.UseLanguage("[Texts]\nfrmSchedule.Label3=" + words + "    " + words + "    jede\n");
  Window().resize(1, 1);
  const auto* line = Find<QLabel>("Label3");
  const QRect hour = Find<QLineEdit>("txtHour")->geometry();
  const QRect minute = Find<QLineEdit>("txtMin")->geometry();
  EXPECT_TRUE(line->rect().contains(hour));
  EXPECT_TRUE(line->rect().contains(minute));
  EXPECT_LT(hour.right(), minute.left());
  EXPECT_LE(Window().width(), 800);
}

TEST_F(GermanScheduleEditor, LongCaptionsLeaveTheTableItsRoom) {
  QByteArray texts = "[frmSchedule]\n";
  for (const char* name : {"butNew", "butSaveAs", "labelRow", "labelCol", "butAdd", "butClear"}) {
    texts += QByteArray("frmSchedule.") + name + "=" + QByteArray("Wort ").repeated(9) + "\n";
  }
  folder_.UseLanguage(texts);
  Window().resize(1, 1);
  const auto* frame = Find<QWidget>("FrameSchTable");
  EXPECT_TRUE(frame->rect().contains(Table()->geometry()));
  EXPECT_LE(Window().width(), 800);
  EXPECT_LE(Window().height(), 600);
}

TEST_F(GermanScheduleEditor, MessagesComeFromTheLanguageFile) {
  UseTexts("");
  NewSchedule(12);
  MessageBoxReader boxes;
  Press("butAdd");
  Press("butClear");
  boxes.Answer(QMessageBox::Yes);
  Press("butExit");
  Add(Message("x.msg", "Row = 3\r\nCol = 80\r\n"));
  boxes.Answer(QMessageBox::No);
  Open(folder_.Path(Text("x.msg")));
  boxes.Answer(QMessageBox::No);
  Open(folder_.Path(Text("y.sch")));
  EXPECT_EQ(boxes.Texts(), Lines({"Voll!", "Sichern?", "Leer!", "Passt nicht!", "Sichern?",
                                  "Fehler!", "Sichern?", "Nicht da!"}));
  for (const SeenMessageBox& box : boxes.Seen()) EXPECT_EQ(box.title, Text("Zeitplan"));
}

TEST_F(GermanScheduleEditor, AddPreselectsTheLanguagesEntry2) {
  UseTexts(kGermanFeatures);
  New();
  Add(Message(1), "", "");
  EXPECT_EQ(shown_feature_, Text("Auf"));
  EXPECT_EQ(Rows()[0], Text("1|1.msg|1|Auf"));
}

TEST_F(GermanScheduleEditor, TheChosenFeatureIsStoredAsShownOrInEnglishWhereItDoesNotFit) {
  UseTexts(kGermanFeatures);
  New();
  Add(Message(1), "1", "Nach rechts wischen");
  Add(Message(1), "2", "Nach links hinueber wischen");
  Add(Message(1), "3", "Shift");  // not translated
  Press("butSave");
  const QByteArray saved = folder_.Read(Text("NEW.SCH"));
  EXPECT_TRUE(saved.contains("\r\n1\r\nNach rechts wischen \r\n"));
  EXPECT_TRUE(saved.contains("\r\n2\r\nWipe Left           \r\n"));
  EXPECT_TRUE(saved.contains("\r\n3\r\nShift               \r\n"));
  EXPECT_EQ(Rows()[1], Text("2|1.msg|2|Wipe Left"));
}

TEST_F(GermanScheduleEditor, ChangingTheDelayOfAnEnglishScheduleLeavesTheEffect) {
  UseTexts(kGermanFeatures);
  Open(folder_.Write(Text("e.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =2\r\n" + PathLine(Message(1)) +
                                        "1\r\nFlip\r\n" + PathLine(Message(1)) +
                                        "1\r\nWIPE LEFT\r\n"));
  Properties(Text("20"), {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Umklappen"));
  Properties(Text("20"), {}, [&] { DoubleClick(2, 2); });
  EXPECT_EQ(shown_feature_, Text("Nach links hinueber wischen"));
  EXPECT_EQ(Rows(), Lines({"1|1.msg|20|Umklappen", "2|1.msg|20|Wipe Left", "End|||"}));
  Properties(Text("21"), {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Umklappen"));
}

TEST_F(ScheduleEditor, ChangingTheDelayOfAForeignScheduleKeepsItsFeature) {
  Open(folder_.Write(Text("g.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =1\r\n" + PathLine(Message(1)) + "1\r\n" +
                                        Field("Umklappen", 20) + "\r\n"));
  Properties(Text("20"), {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Appear"));
  EXPECT_EQ(Rows()[0], Text("1|1.msg|20|Umklappen"));
  Properties({}, Text("Slide"), [&] { DoubleClick(1, 2); });
  EXPECT_EQ(Rows()[0], Text("1|1.msg|20|Slide"));
}

}  // namespace
