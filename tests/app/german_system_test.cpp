// The toolkit's own texts on a German system: these tests run in such an environment.
#include <memory>

#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

QString YesButton() {
  QMessageBox box;
  return box.addButton(QMessageBox::Yes)->text();
}

class GermanSystem : public testing::Test {
 protected:
  void SetUp() override {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!QFileInfo::exists(folder + u"/qtbase_de.qm"_s)) {
      GTEST_SKIP() << "The toolkit's translations are not installed.";
    }
    ASSERT_EQ(QLocale::system().uiLanguages().value(0), u"de-DE"_s);
  }

  /// Starts the program with this configuration.
  void Start(const QByteArray& ini) {
    folder_.Write(u"brivon.ini"_s, ini);
    launcher_ = std::make_unique<frmMain>();
  }

  TemporaryProgramFolder folder_;
  std::unique_ptr<frmMain> launcher_;
};

TEST_F(GermanSystem, AnEnglishProgramStaysEnglish) {
  folder_.Write(u"langSetting.INI"_s, "[Language]\r\nLocale=de\r\n");
  Start("[Language]\r\nLanguage=1\r\n");
  EXPECT_EQ(YesButton(), u"&Yes"_s);
}

TEST_F(GermanSystem, ALanguageFileThatNamesNoLanguageFollowsTheSystem) {
  folder_.Write(u"langSetting.INI"_s, "[Message]\r\nmsgCancel=Abgebrochen!\r\n");
  Start("[Language]\r\nLanguage=2\r\n");
  EXPECT_EQ(YesButton(), u"&Ja"_s);
}

TEST_F(GermanSystem, TheLanguageFileNamesAnotherLanguage) {
  folder_.Write(u"langSetting.INI"_s, "[Language]\r\nLocale=es\r\n");
  Start("[Language]\r\nLanguage=2\r\n");
  EXPECT_EQ(YesButton(), u"&Sí"_s);
}

TEST_F(GermanSystem, ALanguageThatTheToolkitDoesNotHaveIsEnglish) {
  folder_.Write(u"langSetting.INI"_s, "[Language]\r\nLocale=tlh\r\n");
  Start("[Language]\r\nLanguage=2\r\n");
  EXPECT_EQ(YesButton(), u"&Yes"_s);
}

TEST_F(GermanSystem, TheLanguageEndsWithTheLauncher) {
  folder_.Write(u"langSetting.INI"_s, "[Language]\r\nLocale=de\r\n");
  Start("[Language]\r\nLanguage=2\r\n");
  EXPECT_EQ(YesButton(), u"&Ja"_s);
  launcher_.reset();
  EXPECT_EQ(YesButton(), u"&Yes"_s);
}

}  // namespace
