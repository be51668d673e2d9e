// The language module: which text an English one becomes, and what the file may do to it.
#include "language/module_language.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "language/caption_tables.h"
#include "support/program_folder.h"

namespace {

using ModuleLanguage::FeatureCodeFromName;
using ModuleLanguage::Message;
using ModuleLanguage::ReadLangString;
using ModuleLanguage::SetLanguageActive;
using ModuleLanguage::TranslateMessage;

QString Text(const char* text) { return QString::fromUtf8(text); }

// What the file's format is, written out.
constexpr Message kExpected[] = {
    {"Message", "msgPath", "Invalid path!"},
    {"Message", "msgDrive", "Drive not available!"},
    {"Message", "msgSave", "File not saved. Save it now?"},
    {"Message", "msgNotFound", "File not found"},
    {"Message", "msgErrOpen", "Error in opening file"},
    {"Message", "msgSendCmd", "Send Command"},
    {"Message", "msgSendCmdOK", "Command is sent successfully!"},
    {"Message", "msgErrPoll", "Polling error!"},
    {"Message", "msgClkOK", "Set clock is done!"},
    {"Message", "msgClk", "Set clock"},
    {"Message", "msgDP", "Delete page"},
    {"Message", "msgPage", "Page"},
    {"Message", "msgDPOK", "is deleted."},
    {"Message", "msgDAP", "Delete all message"},
    {"Message", "msgDAPOK", "All pages are deleted!"},
    {"Message", "msgRun", "Run page"},
    {"Message", "msgRunOK", "is running."},
    {"Message", "msgInput", "Invalid input!"},
    {"Message", "msgFormat", "Invalid file fomat!"},
    {"Message", "msgLine", "Invalid line number!"},
    {"Message", "msgDim", "Dimension not matched!"},
    {"Message", "msgExceed", "Cannot exceed 26 message files!"},
    {"Message", "msgFull", "Schedule is full!"},
    {"Message", "msgEmptyFile", "Empty schedule file!"},
    {"Message", "msgEmptySch", "Empty schedule is not allowed!"},
    {"Message", "msgSendMsg", "Send Message"},
    {"Message", "msgSendMsgOK", "Message is sent successfully"},
    {"Message", "msgSendSch", "Send Schedule"},
    {"Message", "msgSendSchOK", "Schedule file download done!"},
    {"Message", "msgErrSend", "Error in sending"},
    {"Message", "msgErrSendSch", "Fail to download schedule file!"},
    {"Message", "msgConfig", "Please configure your system before startup!"},
    {"Message", "msgInvalidID", "Invalid ID!"},
    {"Message", "msgEmptyID", "Empty ID number"},
    {"Message", "msgErrID", "ID error"},
    {"Message", "msgErrIP", "IP address error"},
    {"Message", "msgSend232", "Send by RS232 link?"},
    {"Message", "msgErrTx", "Transmission error!"},
    {"Message", "msgTxFail", "Transmission failure!"},
    {"Message", "msgTxOK", "Transmission finished!"},
    {"Message", "msgErrComm", "Fail to initialize communication port!"},
    {"Message", "msgErrTCP", "Cannot create TCP link!"},
    {"Message", "msgErrConn", "No response from display panel. Please check connection."},
    {"Message", "msgCancel", "Aborted!"},
    {"Message", "msgBrowse", "Browse"},
    {"Message", "msgSchF", "Schedule File"},
    {"Message", "msgSchMsg", "Schedule Message"},
    {"frmMain", "butCommand.Caption", "Command"},
    {"frmSchedule", "frmSchedule.butOpen", "Open"},
    {"frmMsgEditor", "frmMsgEditor.butOpen", "Open Message"},
    {"frmSchedule", "DialogTitleAddMsg", "Add Message"},
    {"frmSchedule", "TableTag1", "Message File"},
    {"frmMsgEditor", "DialogTitleSaveAs", "Save As"},
};

class ModuleLanguageTest : public testing::Test {
 protected:
  // The value of key "k" in section "s" of the file.
  QString Read(const char* missing = "default") {
    return ReadLangString(Text("s"), Text("k"), Text(missing));
  }

  TemporaryProgramFolder folder_;
};

TEST_F(ModuleLanguageTest, FlagClearAbortedIsReturnedWithoutTouchingTheFile) {
  folder_.Write(Text("langSetting.INI"), "[Message]\r\nmsgCancel=Abgebrochen!\r\n");
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
}

TEST_F(ModuleLanguageTest, AFolderInPlaceOfTheFileIsAMissingFile) {
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("langSetting.INI"))));
  SetLanguageActive(true);
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
  EXPECT_EQ(Read(), Text("default"));
}

TEST_F(ModuleLanguageTest, FlagSetAbortedBecomesTheTextOfMsgCancel) {
  folder_.UseLanguage("[Message]\r\nmsgCancel=Abgebrochen!\r\n");
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Abgebrochen!"));
}

TEST_F(ModuleLanguageTest, FlagSetKeyMissingTheEnglishTextIsShown) {
  folder_.UseLanguage("[Message]\r\nmsgPath=Pfad!\r\n");
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
}

TEST_F(ModuleLanguageTest, FlagSetMsgCancelWithAnEmptyValueGivesAnEmptyText) {
  folder_.UseLanguage("[Message]\r\nmsgCancel=\r\n");
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), QString());
}

TEST_F(ModuleLanguageTest, ATextNotInTheTableIsReturnedUnchanged) {
  folder_.UseLanguage("[Message]\r\nmsgCancel=X\r\nAborted=Y\r\n");
  for (const char* text : {"Error in Opening file", "aborted!", "Aborted", "Aborted! ", "",
                           "msgCancel", "System haven't config. yet!", "Invalid file format!"}) {
    EXPECT_EQ(TranslateMessage(Text(text)), Text(text));
  }
}

TEST_F(ModuleLanguageTest, AnotherTextTakesThePlaceOfAMessageThatHasNoTranslation) {
  const auto shown = [] { return TranslateMessage(Text("Aborted!"), Text("Given up.")); };
  EXPECT_EQ(shown(), Text("Given up."));
  folder_.UseLanguage("[Message]\r\nmsgPath=Pfad!\r\n");
  EXPECT_EQ(shown(), Text("Given up."));
  EXPECT_EQ(TranslateMessage(Text("Nonsense"), Text("Given up.")), Text("Given up."));
  folder_.UseLanguage("[Message]\r\nmsgCancel=Abgebrochen!\r\n");
  EXPECT_EQ(shown(), Text("Abgebrochen!"));
  folder_.UseLanguage("[Message]\r\nmsgCancel=\r\n");
  EXPECT_EQ(shown(), QString());
}

TEST_F(ModuleLanguageTest, CommandIsTranslatedFromTheCaptionKeyOfTheMainWindowsButton) {
  folder_.UseLanguage("[frmMain]\r\nbutCommand.Caption=Befehl\r\n");
  EXPECT_EQ(TranslateMessage(Text("Command")), Text("Befehl"));
}

TEST_F(ModuleLanguageTest, TheMessagesAreThoseOfTheFormatInItsOrder) {
  const auto messages = ModuleLanguage::Messages();
  ASSERT_EQ(messages.size(), std::size(kExpected));
  for (std::size_t i = 0; i < messages.size(); ++i) {
    EXPECT_STREQ(messages[i].section, kExpected[i].section);
    EXPECT_STREQ(messages[i].key, kExpected[i].key);
    EXPECT_STREQ(messages[i].text, kExpected[i].text);
  }
}

TEST_F(ModuleLanguageTest, EveryMessageIsReadFromItsOwnKey) {
  for (const Message& message : kExpected) {
    folder_.UseLanguage(QByteArray("[") + message.section + "]\r\n" + message.key +
                        "=translated\r\n");
    EXPECT_EQ(TranslateMessage(Text(message.text)), Text("translated")) << message.text;
  }
}

TEST_F(ModuleLanguageTest, OpenMessageIsReadFromTheEditorsOpenButtonNotFromTheDialogTitle) {
  folder_.UseLanguage(
      "[frmMsgEditor]\r\nDialogTitleOpenMsg=title\r\nfrmMsgEditor.butOpen=button\r\n");
  EXPECT_EQ(TranslateMessage(Text("Open Message")), Text("button"));
}

TEST_F(ModuleLanguageTest, AddMessageIsReadFromTheScheduleSection) {
  folder_.UseLanguage(
      "[frmMsgEditor]\r\nDialogTitleAddMsg=editor\r\n[frmSchedule]\r\nDialogTitleAddMsg=table\r\n");
  EXPECT_EQ(TranslateMessage(Text("Add Message")), Text("table"));
}

TEST_F(ModuleLanguageTest, NothingIsCached) {
  folder_.UseLanguage("[Message]\r\nmsgCancel=one\r\n");
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("one"));
  folder_.UseLanguage("[Message]\r\nmsgCancel=two\r\n");
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("two"));
  ASSERT_TRUE(QFile::remove(folder_.Path(Text("langSetting.INI"))));
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
}

TEST_F(ModuleLanguageTest, TheFileIsNeverWritten) {
  const QByteArray content = "[Message]\nmsgCancel=one\nno value\n";
  folder_.UseLanguage(content);
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("one"));
  EXPECT_EQ(TranslateMessage(Text("Invalid path!")), Text("Invalid path!"));
  EXPECT_EQ(folder_.Read(Text("langSetting.INI")), content);
}

TEST_F(ModuleLanguageTest, AMissingFileSectionOrKeyGivesTheDefault) {
  EXPECT_EQ(Read(), Text("default"));
  folder_.UseLanguage("[other]\r\nk=v\r\n");
  EXPECT_EQ(Read(), Text("default"));
  folder_.UseLanguage("[s]\r\nother=v\r\n");
  EXPECT_EQ(Read(), Text("default"));
  EXPECT_EQ(Read(""), QString());
}

TEST_F(ModuleLanguageTest, ValuesAreReadByTheProfileRules) {
  folder_.UseLanguage("[S]\nK = first = value \nk=second\n");
  EXPECT_EQ(Read(), Text("first = value"));
  folder_.UseLanguage("[s]\nk=\"  quoted  \"\n");
  EXPECT_EQ(Read(), Text("  quoted  "));
  folder_.UseLanguage("[s]\n;k=comment\n");
  EXPECT_EQ(Read(), Text("default"));
}

TEST_F(ModuleLanguageTest, AValueIsCutTo255Characters) {
  folder_.UseLanguage("[s]\r\nk=" + QByteArray(255, 'a') + "\r\n");
  EXPECT_EQ(Read(), QString(255, u'a'));
  folder_.UseLanguage("[s]\r\nk=" + QByteArray(256, 'a') + "\r\n");
  EXPECT_EQ(Read(), QString(255, u'a'));
  folder_.UseLanguage("[s]\r\nk=" + QByteArray(10000, 'a') + "\r\n");
  EXPECT_EQ(Read(), QString(255, u'a'));
}

TEST_F(ModuleLanguageTest, ADefaultIsCutTo255Characters) {
  EXPECT_EQ(ReadLangString(Text("s"), Text("k"), QString(300, u'a')), QString(255, u'a'));
}

TEST_F(ModuleLanguageTest, ACutDoesNotLeaveHalfACharacter) {
  folder_.UseLanguage("[s]\nk=" + QByteArray(254, 'a') + "\xF0\x9F\x99\x82\n");
  EXPECT_EQ(Read(), QString(254, u'a'));
  folder_.UseLanguage("[s]\nk=" + QByteArray(253, 'a') + "\xF0\x9F\x99\x82z\n");
  EXPECT_EQ(Read(), QString(253, u'a') + Text("\xF0\x9F\x99\x82"));
}

TEST_F(ModuleLanguageTest, AFileInUtf8IsReadAsUtf8WithAndWithoutAMark) {
  folder_.UseLanguage("[s]\nk=\xC3\x96\xE2\x82\xAC\n");
  EXPECT_EQ(Read(), Text("\u00D6\u20AC"));
  folder_.UseLanguage("\xEF\xBB\xBF[s]\nk=\xC3\x96\xE2\x82\xAC\n");
  EXPECT_EQ(Read(), Text("\u00D6\u20AC"));
}

TEST_F(ModuleLanguageTest, AFileThatIsNotUtf8IsReadInTheSystemsCodePage) {
  folder_.UseLanguage("[s]\nk=\xD6 and \xFC\n");
  EXPECT_EQ(Read(), Brivon1::CodePage::System().ToText("\xD6 and \xFC"));
  EXPECT_EQ(Read().size(), 7);
  // One such byte anywhere decides for the whole file.
  folder_.UseLanguage("; \xFF\n[s]\nk=\xC3\x96\n");
  EXPECT_EQ(Read(), Brivon1::CodePage::System().ToText("\xC3\x96"));
  folder_.UseLanguage("[s]\nk=\xC3\x96\n[t]\nlast=\xC3");
  EXPECT_EQ(Read().size(), 2);
}

TEST_F(ModuleLanguageTest, AnyBytesGiveAResult) {
  QByteArray all;
  for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
  folder_.UseLanguage("[s]\nk=" + all + "\nk2=after\n");
  // The value ends at the line feed among the bytes.
  EXPECT_EQ(Read().size(), 10 - 1);  // without the tab in front of it
  folder_.UseLanguage(all);
  EXPECT_EQ(Read(), Text("default"));
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
}

TEST_F(ModuleLanguageTest, AFileWithoutLineEndOrSectionEndIsReadAsFarAsItGoes) {
  folder_.UseLanguage("[s]\nk=last");
  EXPECT_EQ(Read(), Text("last"));
  folder_.UseLanguage("[s\nk=open");
  EXPECT_EQ(Read(), Text("open"));
  folder_.UseLanguage("");
  EXPECT_EQ(Read(), Text("default"));
  folder_.UseLanguage("k=before any section");
  EXPECT_EQ(Read(), Text("default"));
  folder_.UseLanguage("[s]\nk");
  EXPECT_EQ(Read(), Text("default"));
}

TEST_F(ModuleLanguageTest, AFileOfFiveMegabytesHasNoValues) {
  folder_.UseLanguage("[s]\nk=v\n" + QByteArray(5 << 20, 'x'));
  EXPECT_EQ(Read(), Text("default"));
}

TEST_F(ModuleLanguageTest, FeatureCodeIsThePlaceOfTheFirstEqualEntry) {
  folder_.UseLanguage(
      "[frmDelay]\nListFeature.List(0)=Zero\nListFeature.List(3)=Same\nListFeature.List(5)=Same\n"
      "ListFeature.List(9)=Nine\nListFeature.List(10)=Ten\n");
  EXPECT_EQ(FeatureCodeFromName(Text("Zero")), QChar(u'A'));
  EXPECT_EQ(FeatureCodeFromName(Text("Same")), QChar(u'D'));
  EXPECT_EQ(FeatureCodeFromName(Text("Nine")), QChar(u'J'));
  EXPECT_EQ(FeatureCodeFromName(Text("Ten")), QChar());
  EXPECT_EQ(FeatureCodeFromName(Text("zero")), QChar());
}

TEST_F(ModuleLanguageTest, AMissingFeatureEntryEqualsNoName) {
  folder_.UseLanguage("[frmDelay]\nListFeature.List(2)=\n");
  EXPECT_EQ(FeatureCodeFromName(Text("Appear")), QChar());
  EXPECT_EQ(FeatureCodeFromName(QString()), QChar(u'C'));
}

}  // namespace
