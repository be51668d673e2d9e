// The file that an editor's window works on: its name, the question about unsaved work, and the
// ways to open and to save it.
#pragma once

#include <functional>

#include <QObject>
#include <QString>

#include "base/files.h"
#include "base/modified_flag.h"

class QLabel;
class QWidget;

class EditedFile : public QObject {
  Q_OBJECT

 public:
  /// Writes the work to the file at `path`. Where that fails it says why and returns false.
  using Write = std::function<bool(const QString& path)>;

  /// What "Yes" to the question leaves behind once the work is saved.
  enum class AfterYes { kSaved, kStillModified };

  /// What the editors differ in.
  struct Editor {
    Write write;
    std::function<QString()> ask_for_name;  ///< Gives an empty name where none was chosen.

    /// The same for a file to open; and opens one, or says why not.
    std::function<QString()> ask_what_to_open;
    std::function<void(const QString& path)> open;

    AfterYes after_yes = AfterYes::kSaved;

    /// Whether the work can be written at all; none: it always can.
    std::function<bool()> is_complete = {};
  };

  /// Where the file's name is shown, and beside it that the work is not saved.
  struct Labels {
    QLabel* name;
    QLabel* not_saved;
  };

  /// `modified` is set by whatever edits the work; saving clears it. It and `labels` live as long
  /// as `window`, whose entry fields are there already. A file that is dropped on it is opened.
  EditedFile(QWidget* window, const Labels& labels, Brivon1::ModifiedFlag& modified, Editor editor);

  const QString& Path() const { return path_; }

  /// The file that is worked on from now on.
  void SetPath(const QString& path);

  /// The same for new work, whose file is not its own until it is saved.
  void BeginNew(const QString& path);

  /// A file that could not be opened. Its name is shown beside work that is not its own, so that
  /// saving asks for another name.
  void SetRefusedPath(const QString& path);

  bool IsModified() const { return static_cast<bool>(modified_); }

  /// Asks about unsaved work, if there is any, and saves it on "Yes". False: whatever was to follow
  /// is not to happen.
  bool MayLeave() { return MayLeave(editor_.write); }

  /// The same; on "Yes" it is `write` that writes the file.
  bool MayLeave(const Write& write);

  /// Asks about unsaved work, then for a file, and opens it.
  void Open();

  /// Saves the work. False where nothing was saved.
  bool Save();

  /// Asks for a name, and saves under it: it is the file's name then. False where nothing was
  /// saved.
  bool SaveAs();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void OpenDropped(const QString& path);
  void ShowNotSaved(bool not_saved) const;

  /// What "Yes" to the question about unsaved work would do.
  QString WhatYesDoes() const;

  bool WriteUnderShownName(const Write& write);
  bool WriteUnderNewName(const Write& write);

  QWidget* window_;
  Labels labels_;
  Brivon1::ModifiedFlag& modified_;
  Editor editor_;
  QString path_;
  bool was_refused_ = false;
  bool is_new_ = false;
};

/// Shows the message about a save to `path` that failed, with what Brivon1::SaveWholeFile() has
/// given as the reason. True: it did not fail.
bool ReportSave(QWidget* window, const QString& path, Brivon1::SaveResult result,
                const QString& reason);
