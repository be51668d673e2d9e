// The file of an editor: when it asks, what it saves, and under which name.
#include "widgets/edited_file.h"

#include <QLabel>
#include <QStringList>
#include <QWidget>

#include <gtest/gtest.h>

#include "support/message_box_reader.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kQuestion = "File not saved. Save it now?"_L1;

class EditedFileTest : public testing::Test {
 protected:
  EditedFile::Editor Editor(EditedFile::AfterYes after_yes = EditedFile::AfterYes::kSaved) {
    return {[this](const QString& path) {
              written_.append(path);
              return !fails_;
            },
            [this] {
              ++names_asked_;
              return new_name_;
            },
            [] { return QString(); }, [](const QString& /*path*/) {}, after_yes};
  }

  TemporaryProgramFolder folder_;
  QWidget window_;
  QLabel label_;
  QLabel not_saved_{&window_};
  Brivon1::ModifiedFlag modified_;
  bool fails_ = false;
  QStringList written_;  // the paths that were written to, also in vain
  QString new_name_;     // what the operator gives when asked
  int names_asked_ = 0;
  EditedFile file_{&window_, {&label_, &not_saved_}, modified_, Editor()};
};

TEST_F(EditedFileTest, TheLabelShowsTheName) {
  EXPECT_EQ(file_.Path(), QString());
  file_.SetPath(u"a.msg"_s);
  EXPECT_EQ(file_.Path(), "a.msg"_L1);
  EXPECT_EQ(label_.text(), "a.msg"_L1);
  file_.SetRefusedPath(u"bad.msg"_s);
  EXPECT_EQ(file_.Path(), "bad.msg"_L1);
  EXPECT_EQ(label_.text(), "bad.msg"_L1);
}

TEST_F(EditedFileTest, TheNameIsNotWhatTheLabelHappensToShow) {
  file_.SetPath(u"a.msg"_s);
  label_.setText(u"a caption"_s);
  EXPECT_TRUE(file_.Save());
  EXPECT_EQ(written_, QStringList(u"a.msg"_s));
}

TEST_F(EditedFileTest, SaveWritesUnderTheNameAndClearsTheModifiedFlag) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  EXPECT_TRUE(file_.IsModified());
  EXPECT_TRUE(file_.Save());
  EXPECT_EQ(written_, QStringList(u"a.msg"_s));
  EXPECT_EQ(names_asked_, 0);
  EXPECT_FALSE(file_.IsModified());
  EXPECT_FALSE(modified_);
}

TEST_F(EditedFileTest, ASaveThatFailsLeavesTheNameAndTheModifiedFlag) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  fails_ = true;
  new_name_ = u"b.msg"_s;
  EXPECT_FALSE(file_.Save());
  EXPECT_FALSE(file_.SaveAs());
  EXPECT_EQ(written_, QStringList({u"a.msg"_s, u"b.msg"_s}));
  EXPECT_EQ(file_.Path(), "a.msg"_L1);
  EXPECT_EQ(label_.text(), "a.msg"_L1);
  EXPECT_TRUE(file_.IsModified());
}

TEST_F(EditedFileTest, SaveAsMakesTheChosenNameTheFilesName) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  new_name_ = u"b.msg"_s;
  EXPECT_TRUE(file_.SaveAs());
  EXPECT_EQ(written_, QStringList(u"b.msg"_s));
  EXPECT_EQ(file_.Path(), "b.msg"_L1);
  EXPECT_EQ(label_.text(), "b.msg"_L1);
  EXPECT_FALSE(file_.IsModified());
}

TEST_F(EditedFileTest, SaveAsWithoutANameSavesNothing) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  EXPECT_FALSE(file_.SaveAs());
  EXPECT_EQ(names_asked_, 1);
  EXPECT_TRUE(written_.isEmpty());
  EXPECT_EQ(file_.Path(), "a.msg"_L1);
  EXPECT_TRUE(file_.IsModified());
}

TEST_F(EditedFileTest, ARefusedFileIsNotSavedOver) {
  file_.SetRefusedPath(u"bad.msg"_s);
  modified_ = true;
  EXPECT_FALSE(file_.Save());
  EXPECT_EQ(names_asked_, 1);
  EXPECT_TRUE(written_.isEmpty());
  EXPECT_TRUE(file_.IsModified());

  new_name_ = u"good.msg"_s;
  EXPECT_TRUE(file_.Save());
  EXPECT_EQ(file_.Path(), "good.msg"_L1);
  EXPECT_TRUE(file_.Save());
  EXPECT_EQ(names_asked_, 2);
  EXPECT_EQ(written_, QStringList({u"good.msg"_s, u"good.msg"_s}));
}

TEST_F(EditedFileTest, ARefusalIsForgottenWithTheNextFile) {
  file_.SetRefusedPath(u"bad.msg"_s);
  file_.SetPath(u"a.msg"_s);
  EXPECT_TRUE(file_.Save());
  EXPECT_EQ(names_asked_, 0);
  EXPECT_EQ(written_, QStringList(u"a.msg"_s));
}

TEST_F(EditedFileTest, WorkThatIsSavedIsLeftWithoutAQuestion) {
  const MessageBoxReader boxes;
  EXPECT_TRUE(file_.MayLeave());
  EXPECT_TRUE(boxes.Seen().isEmpty());
}

TEST_F(EditedFileTest, YesSavesAndClearsTheModifiedFlag) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_TRUE(file_.MayLeave());
  EXPECT_EQ(boxes.Texts(), QStringList(kQuestion));
  EXPECT_EQ(boxes.Seen()[0].parent, &window_);
  EXPECT_EQ(written_, QStringList(u"a.msg"_s));
  EXPECT_FALSE(file_.IsModified());
}

TEST_F(EditedFileTest, AnEditorMayKeepItsWorkModifiedAfterYes) {
  EditedFile file(&window_, {&label_, &not_saved_}, modified_,
                  Editor(EditedFile::AfterYes::kStillModified));
  file.SetPath(u"a.msg"_s);
  modified_ = true;
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_TRUE(file.MayLeave());
  EXPECT_EQ(written_, QStringList(u"a.msg"_s));
  EXPECT_TRUE(file.IsModified());
  EXPECT_TRUE(file.Save());
  EXPECT_FALSE(file.IsModified());
}

TEST_F(EditedFileTest, YesToWorkBesideARefusedFileAsksForAName) {
  file_.SetRefusedPath(u"bad.msg"_s);
  modified_ = true;
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_FALSE(file_.MayLeave());
  new_name_ = u"good.msg"_s;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_TRUE(file_.MayLeave());
  EXPECT_EQ(written_, QStringList(u"good.msg"_s));
  EXPECT_EQ(file_.Path(), "good.msg"_L1);
}

TEST_F(EditedFileTest, NoLeavesTheWorkAsItIs) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  EXPECT_TRUE(file_.MayLeave());
  EXPECT_TRUE(written_.isEmpty());
  EXPECT_TRUE(file_.IsModified());
}

TEST_F(EditedFileTest, NothingFollowsCancelOrASaveThatFails) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  MessageBoxReader boxes;  // answers with Cancel
  EXPECT_FALSE(file_.MayLeave());
  EXPECT_TRUE(written_.isEmpty());
  fails_ = true;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_FALSE(file_.MayLeave());
  EXPECT_EQ(written_, QStringList(u"a.msg"_s));
  EXPECT_TRUE(file_.IsModified());
}

TEST_F(EditedFileTest, TheQuestionCanSaveInAnotherWay) {
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  QStringList written;
  bool fails = true;
  const auto write = [&](const QString& path) {
    written.append(path);
    return !fails;
  };
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_FALSE(file_.MayLeave(write));
  EXPECT_TRUE(file_.IsModified());
  fails = false;
  boxes.Answer(QMessageBox::Yes);
  EXPECT_TRUE(file_.MayLeave(write));
  EXPECT_FALSE(file_.IsModified());
  EXPECT_EQ(written, QStringList({u"a.msg"_s, u"a.msg"_s}));
  EXPECT_TRUE(written_.isEmpty());
}

TEST_F(EditedFileTest, TheMarkStandsBesideTheNameUntilTheWorkIsSaved) {
  EXPECT_EQ(not_saved_.text(), "not saved"_L1);
  EXPECT_TRUE(not_saved_.isHidden());
  file_.SetPath(u"a.msg"_s);
  modified_ = true;
  EXPECT_FALSE(not_saved_.isHidden());
  EXPECT_EQ(label_.accessibleDescription(), "not saved"_L1);
  EXPECT_EQ(label_.text(), "a.msg"_L1);
  fails_ = true;
  EXPECT_FALSE(file_.Save());
  EXPECT_FALSE(not_saved_.isHidden());
  fails_ = false;
  EXPECT_TRUE(file_.Save());
  EXPECT_TRUE(not_saved_.isHidden());
  EXPECT_EQ(label_.accessibleDescription(), QString());
  modified_ = true;
  new_name_ = u"b.msg"_s;
  EXPECT_TRUE(file_.SaveAs());
  EXPECT_TRUE(not_saved_.isHidden());
}

TEST_F(EditedFileTest, TheMarkIsGoneAfterYesAlsoWhereTheWorkStaysModified) {
  EditedFile file(&window_, {&label_, &not_saved_}, modified_,
                  Editor(EditedFile::AfterYes::kStillModified));
  file.SetPath(u"a.msg"_s);
  modified_ = true;
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  EXPECT_TRUE(file.MayLeave());
  EXPECT_FALSE(not_saved_.isHidden());
  boxes.Answer(QMessageBox::Yes);
  EXPECT_TRUE(file.MayLeave());
  EXPECT_TRUE(not_saved_.isHidden());
  EXPECT_TRUE(file.IsModified());
  modified_ = true;  // the next edit
  EXPECT_FALSE(not_saved_.isHidden());
}

TEST_F(EditedFileTest, TheMarkIsWrittenInTheOperatorsLanguage) {
  folder_.UseLanguage("[Texts]\r\ntxtNotSaved=nicht gespeichert\r\n");
  const EditedFile file(&window_, {&label_, &not_saved_}, modified_, Editor());
  EXPECT_EQ(not_saved_.text(), "nicht gespeichert"_L1);
}

TEST_F(EditedFileTest, TheQuestionNamesTheFile) {
  file_.SetPath(folder_.Write(u"a.msg"_s, "opened from here"));
  modified_ = true;
  const MessageBoxReader boxes;
  EXPECT_FALSE(file_.MayLeave());
  EXPECT_EQ(boxes.Texts(), QStringList(kQuestion));
  EXPECT_EQ(boxes.Seen()[0].informative,
            "It will be saved as \""_L1 + folder_.Path(u"a.msg"_s) + "\"."_L1);
  file_.SetRefusedPath(u"bad.msg"_s);
  EXPECT_FALSE(file_.MayLeave());
  EXPECT_EQ(boxes.Seen()[1].informative,
            "You will be asked for another name: \"bad.msg\" was not opened."_L1);
}

class EditedFileFromBefore : public EditedFileTest {
 protected:
  /// Whether the question says that an older file would be replaced.
  bool SaysThatItReplaces() {
    modified_ = true;
    const MessageBoxReader boxes;
    EXPECT_FALSE(file_.MayLeave());
    EXPECT_TRUE(boxes.Seen()[0].informative.contains(path_));
    return boxes.Seen()[0].informative.endsWith(
        "\nAn older file of this name will be replaced."_L1);
  }

  const QString path_ = folder_.Path(u"NEW.MSG"_s);
};

TEST_F(EditedFileFromBefore, NewWorkWouldReplaceIt) {
  file_.BeginNew(path_);
  EXPECT_EQ(label_.text(), path_);
  EXPECT_FALSE(SaysThatItReplaces());
  folder_.Write(u"NEW.MSG"_s, "of yesterday");
  EXPECT_TRUE(SaysThatItReplaces());
}

TEST_F(EditedFileFromBefore, WorkThatWasSavedThereOrOpenedFromThereReplacesItself) {
  folder_.Write(u"NEW.MSG"_s, "of today");
  file_.BeginNew(path_);
  EXPECT_TRUE(file_.Save());
  EXPECT_FALSE(SaysThatItReplaces());
  file_.BeginNew(path_);
  fails_ = true;
  EXPECT_FALSE(file_.Save());
  EXPECT_TRUE(SaysThatItReplaces());
  file_.SetPath(path_);
  EXPECT_FALSE(SaysThatItReplaces());
}

TEST_F(EditedFileFromBefore, WorkThatCannotBeWrittenReplacesNothing) {
  folder_.Write(u"NEW.MSG"_s, "of yesterday");
  EditedFile::Editor editor = Editor();
  editor.is_complete = [] { return false; };
  EditedFile file(&window_, {&label_, &not_saved_}, modified_, editor);
  file.BeginNew(path_);
  modified_ = true;
  const MessageBoxReader boxes;
  EXPECT_FALSE(file.MayLeave());
  EXPECT_EQ(boxes.Seen()[0].informative, path_);
}

TEST_F(EditedFileTest, WhyASaveFailedIsSaidInTheOperatorsLanguage) {
  folder_.UseLanguage("[Message]\r\nmsgPath=Falscher Pfad!\r\n");
  const MessageBoxReader boxes;
  const QString path = u"/nowhere/a.msg"_s;
  EXPECT_TRUE(ReportSave(&window_, path, Brivon1::SaveResult::kSaved, QString()));
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_FALSE(ReportSave(&window_, path, Brivon1::SaveResult::kInvalidPath,
                          u"No such file or directory"_s));
  EXPECT_EQ(boxes.Texts(), QStringList(u"Falscher Pfad!"_s));
  EXPECT_EQ(boxes.Seen()[0].informative,
            u"/nowhere/a.msg: No such file or directory\n"
            "Save it in another folder or under another name."_s);
  EXPECT_EQ(boxes.Seen()[0].parent, &window_);
}

}  // namespace
