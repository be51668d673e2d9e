// The four kinds of files as an operator works on them: each in its own window, brought to any of
// many versions by the keyboard, and saved by whatever button saves it.
#pragma once

#include <memory>
#include <ostream>

#include <QByteArray>
#include <QDialog>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include "disk/faulty_disk.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/text.h"

/// What leads to a save, or may.
enum class WayToSave {
  kSave,
  kSaveAs,         ///< Under the name of another file, which is replaced.
  kSaveAsNewFile,  ///< Under a name that no file has.
  kNew,            ///< From here on with "Yes" to the question about unsaved work.
  kOpen,
  kSend,
  kExit,
  kCloseBox,
};

inline constexpr WayToSave kWaysToSave[] = {
    WayToSave::kSave, WayToSave::kSaveAs, WayToSave::kSaveAsNewFile, WayToSave::kNew,
    WayToSave::kOpen, WayToSave::kSend,   WayToSave::kExit,          WayToSave::kCloseBox};

const char* NameOf(WayToSave way);

inline bool IsUnderOtherName(WayToSave way) {
  return way == WayToSave::kSaveAs || way == WayToSave::kSaveAsNewFile;
}

inline bool HasQuestion(WayToSave way) { return way >= WayToSave::kNew; }

/// One kind of file, and the window that works on it.
struct FileKind {
  const char* name;
  const char* file;   ///< The name of its file in the program folder.
  const char* label;  ///< Where the window shows the file's path; none in the configuration's.
  const char* send_dialog;
  bool asks_for_size;  ///< Whether New asks before it begins new work.
  std::unique_ptr<QDialog> (*make_window)();
  QByteArray (*content)(int version, const TemporaryProgramFolder& folder);  ///< Of its file.
  void (*edit)(QDialog& window, int version);                                ///< By keyboard.
};

extern const FileKind kFileKinds[4];

inline void PrintTo(const FileKind* kind, std::ostream* stream) { *stream << kind->name; }

/// The work on a file of one kind, whose version 0 has been saved and is before the operator.
class SavedWork {
 public:
  explicit SavedWork(const FileKind& kind);
  ~SavedWork();
  SavedWork(const SavedWork&) = delete;
  SavedWork& operator=(const SavedWork&) = delete;

  /// Only an editor has other ways than one.
  bool IsEditor() const { return kind_.label != nullptr; }

  const TemporaryProgramFolder& Folder() const { return folder_; }

  /// Whether the folder's disk can hold a file without a name.
  bool HasNamelessFiles() const {
    return FaultyDisk::HasNamelessFiles(QFile::encodeName(folder_.Path({})).constData());
  }

  /// The path of the file that is worked on, and of another one.
  QString Path() const { return folder_.Path(Text(kind_.file)); }
  QString OtherPath() const { return folder_.Path(u'x' + Text(kind_.file)); }

  /// Lets what killed or refused saves have left, locks among it, become an hour old.
  void AgeLeftOvers() const;

  /// The bytes of a version.
  QByteArray Content(int version) const { return kind_.content(version, folder_); }

  /// Brings the work to a version, as an operator does by keyboard.
  void Edit(int version);

  /// Saves, and cancels what follows the question. Gives how many dialogs that were.
  int Save(WayToSave way);

  /// The path that the window shows; the file's where it shows none.
  QString ShownPath();

  /// Whether the window says that its work is not saved; never of the configuration's.
  bool SaysNotSaved();

  /// Whether it asks before its work is left. It comes back then.
  bool Asks();

  /// Saves under the file's own name again, after another one.
  void ReturnToItsFile();

  /// Opens the file again, after new work was begun.
  void OpenItsFile();

  /// Whether it has been left by the last save.
  bool IsLeft() const { return !window_->isVisible(); }

  /// Shows the window again after it was left.
  void ComeBack();

 private:
  template <typename Widget>
  Widget* Find(const char* name);
  void Press(const char* name);

  const FileKind& kind_;
  TemporaryProgramFolder folder_;
  std::unique_ptr<QDialog> window_;
};
