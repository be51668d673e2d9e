// The launcher: start-up, its texts and its layout.
#include <QFile>

#include "app/launcher.h"
#include "base/system_code_page.h"
#include "language/module_language.h"
#include "store/configuration_store.h"
#include "support/message_box_reader.h"
#include "support/use_code_page.h"

namespace {

constexpr const char* kRow[] = {"butMsgEdit", "butSchEdit", "butConfigEdit", "butCommand",
                                "butEnd"};

TEST_F(MainWindowTest, Language2TheFiveRowButtonsAreRelaidToEqualWidthsOf1780Twips) {
  const frmMain english;
  const QRect designed = Button(english, "butShiftMsg")->geometry();
  Language("2");
  const frmMain window;
  EXPECT_EQ(window.width(), 600);  // 9000 twips
  int left = 0;
  for (const char* name : kRow) {
    const QRect place = Button(window, name)->geometry();
    EXPECT_EQ(place.width(), 119) << name;  // 1780 twips are 118.67 pixels
    EXPECT_EQ(place.left(), left) << name;
    left += 119;
  }
  // The button of the scrolling message stays where it was designed.
  EXPECT_EQ(Button(window, "butShiftMsg")->geometry(), designed);
}

TEST_F(MainWindowTest, Language1MissingOrAnyOtherValueNoTextIsReadFromTheLanguageFile) {
  folder_.Write(Text("langSetting.INI"), "[frmMain]\r\nbutMsgEdit.Caption=Meldung\r\n");
  for (const char* value : {"1", "0", "-2", "two", "", "3", "22", "x2"}) {
    Language(value);
    const frmMain window;
    EXPECT_FALSE(ModuleLanguage::IsLanguageActive()) << value;
    EXPECT_EQ(Button(window, "butMsgEdit")->text(), Text("Message")) << value;
    EXPECT_EQ(window.width(), 560);
  }
  folder_.Write(Text("brivon.ini"), "[Other]\r\nLanguage=2\r\n");
  const frmMain window;
  EXPECT_FALSE(ModuleLanguage::IsLanguageActive());
}

TEST_F(MainWindowTest, AMissingConfigurationIsNoErrorAndEnglish) {
  MessageBoxReader reader;
  const frmMain window;
  EXPECT_FALSE(ModuleLanguage::IsLanguageActive());
  EXPECT_TRUE(reader.Seen().isEmpty());
}

TEST_F(MainWindowTest, StartUpLoadsTheConfigurationStore) {
  folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\nID007=8x96,Tri\r\n");
  const frmMain window;
  EXPECT_EQ(Brivon1::Store().panels[7].rows, 8);
}

TEST_F(MainWindowTest, Language2ItsTextsComeFromTheLanguageFileButNotItsCaption) {
  Language("2");
  folder_.Write(Text("langSetting.INI"),
                "[frmMain]\r\nbutMsgEdit.Caption=Meldung\r\nbutSchEdit.Caption=Plan\r\n"
                "butCommand.Caption=Befehl\r\nbutConfigEdit.Caption=Daten\r\n"
                "butEnd.Caption=Ende\r\nbutShiftMsg.Caption=Lauftext\r\nfrmMain.Caption=Titel\r\n"
                "lblTitle.Caption=Steuerung\r\nlblInfo.Caption=Mehr\r\n");
  const frmMain window;
  EXPECT_TRUE(ModuleLanguage::IsLanguageActive());
  EXPECT_EQ(Button(window, "butMsgEdit")->text(), Text("Meldung"));
  EXPECT_EQ(Button(window, "butSchEdit")->text(), Text("Plan"));
  EXPECT_EQ(Button(window, "butCommand")->text(), Text("Befehl"));
  EXPECT_EQ(Button(window, "butConfigEdit")->text(), Text("Daten"));
  EXPECT_EQ(Button(window, "butEnd")->text(), Text("Ende"));
  EXPECT_EQ(Button(window, "butShiftMsg")->text(), Text("Scrolling Message"));
  EXPECT_EQ(Label(window, "lblTitle"), Text("Steuerung"));
  EXPECT_EQ(Label(window, "lblInfo"), Text("Mehr"));
  EXPECT_EQ(window.windowTitle(), Text("Brivon V.M.2.41M"));
}

TEST_F(MainWindowTest, Language2WithoutALanguageFileIsEnglishButAsWide) {
  Language("2");
  const frmMain window;
  EXPECT_TRUE(ModuleLanguage::IsLanguageActive());
  EXPECT_EQ(Button(window, "butMsgEdit")->text(), Text("Message"));
  EXPECT_EQ(window.width(), 600);
}

TEST_F(MainWindowTest, NothingSetsTheLanguageFlagBack) {
  Language("2");
  const frmMain first;
  Language("1");
  const frmMain second;
  EXPECT_TRUE(ModuleLanguage::IsLanguageActive());
}

TEST_F(MainWindowTest, StartUpTakesTheCodePageOfTheInstallationElseThatOfTheSystem) {
  const int system = Brivon1::SystemCodePage(Brivon1::ProcessEnvironment());
  const UseCodePage before(system);
  const auto started_with = [this](const QByteArray& line) {
    folder_.Write(Text("brivon.ini"), "[Files]\r\n" + line + "\r\n");
    const frmMain window;
    return Brivon1::CodePage::System().Number();
  };
  EXPECT_EQ(started_with("CodePage=1251"), 1251);
  EXPECT_EQ(started_with("CodePage=1258"), 1258);
  EXPECT_EQ(started_with("CodePage=437"), system);
  EXPECT_EQ(started_with("CodePage=874"), 874);
  EXPECT_EQ(started_with(""), system);
}

TEST_F(MainWindowTest, TheLanguagesTextsAreReadInTheCodePageOfTheInstallation) {
  const UseCodePage before(1252);
  folder_.Write(Text("brivon.ini"), "[Files]\r\nCodePage=1251\r\n[Language]\r\nLanguage=2\r\n");
  folder_.Write(Text("langSetting.INI"), "[frmMain]\r\nbutEnd.Caption=\xC2\xFB\xF5\xEE\xE4\r\n");
  const frmMain window;
  EXPECT_EQ(Button(window, "butEnd")->text(), Text("Выход"));
}

TEST_F(MainWindowTest, CaptionsAndToolTipsAreTheBuiltInOnes) {
  const frmMain window;
  const char* expected[][3] = {{"butMsgEdit", "Message", "Edit Page Message"},
                               {"butShiftMsg", "Scrolling Message", ""},
                               {"butSchEdit", "Schedule", "Edit Page Sequence"},
                               {"butConfigEdit", "Config", "System Config"},
                               {"butCommand", "Command", "LED Display Control Command"},
                               {"butEnd", "Exit", "Exit"}};
  for (const auto& [name, caption, tip] : expected) {
    EXPECT_EQ(Button(window, name)->text(), Text(caption));
    EXPECT_EQ(Button(window, name)->toolTip(), Text(tip));
  }
  EXPECT_EQ(window.windowTitle(), Text("Brivon V.M.2.41M"));
  EXPECT_EQ(Label(window, "lblTitle"), Text("Multi-Line Control Program"));
  EXPECT_FALSE(Label(window, "lblInfo").isEmpty());
}

TEST_F(MainWindowTest, EveryResizeLaysTheRowOutAndNothingOverlaps) {
  frmMain window;
  window.show();
  const QRect designed = Button(window, "butShiftMsg")->geometry();
  for (const QSize size : {QSize(800, 300), QSize(480, 200), QSize(10, 10), QSize(1203, 640)}) {
    window.resize(size);
    const int expected = (3 * window.width() - 20 + 7) / 15;
    int left = 0;
    for (const char* name : kRow) {
      EXPECT_EQ(Button(window, name)->width(), expected);
      EXPECT_EQ(Button(window, name)->x(), left);
      left += expected;
    }
    EXPECT_EQ(Button(window, "butShiftMsg")->geometry(), designed);
    const QList<QWidget*> parts = window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    EXPECT_EQ(parts.size(), 8);
    for (qsizetype i = 0; i < parts.size(); ++i) {
      EXPECT_TRUE(window.rect().contains(parts[i]->geometry()))
          << parts[i]->objectName().toStdString();
      for (qsizetype j = 0; j < i; ++j) {
        EXPECT_FALSE(parts[i]->geometry().intersects(parts[j]->geometry()));
      }
    }
  }
}

TEST_F(MainWindowTest, ALongCaptionStaysWholeInTheButtonAndIsNotCut) {
  Language("2");
  folder_.Write(Text("langSetting.INI"),
                "[frmMain]\r\nbutMsgEdit.Caption=Seitenmeldung bearbeiten und speichern\r\n");
  const frmMain window;
  const CaptionButton* button = Button(window, "butMsgEdit");
  EXPECT_EQ(button->text(), Text("Seitenmeldung bearbeiten und speichern"));
  EXPECT_TRUE(button->Fit().complete);
  EXPECT_TRUE(button->Fit().whole);
}

TEST_F(MainWindowTest, TheMarkOfAShortcutTakesNoRoomInAButton) {
  Language("2");
  folder_.Write(Text("langSetting.INI"),
                "[frmMain]\r\nbutMsgEdit.Caption=&M&e&l&d&u&n&g\r\nbutCommand.Caption=Meldung\r\n");
  const frmMain window;
  EXPECT_EQ(Button(window, "butMsgEdit")->Fit().scale, Button(window, "butCommand")->Fit().scale);
  EXPECT_TRUE(Button(window, "butMsgEdit")->Fit().whole);
}

TEST_F(MainWindowTest, EveryCaptionOfTheSampleLanguagesFitsItsButtonWithoutABrokenWord) {
  Language("2");
  for (const char* language : {"deutsch", "espanol"}) {
    QFile sample(QStringLiteral(BRIVON_SAMPLES "/languages/%1/langSetting.INI")
                     .arg(QLatin1String(language)));
    ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
    folder_.Write(Text("langSetting.INI"), sample.readAll());
    const frmMain window;
    EXPECT_NE(Button(window, "butEnd")->text(), Text("Exit"));
    for (const CaptionButton* button : window.findChildren<CaptionButton*>()) {
      EXPECT_TRUE(button->Fit().whole) << button->text().toStdString();
      EXPECT_EQ(button->Fit().scale, 1) << button->text().toStdString();
    }
    for (const char* name : {"lblTitle", "lblInfo"}) {
      const auto* label = window.findChild<QLabel*>(Text(name));
      EXPECT_TRUE(FitText(label->font(), label->text(), label->size()).whole) << name;
    }
  }
}

}  // namespace
