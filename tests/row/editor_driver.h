// An editor of rows as an operator has it before him. Whoever describes an editor as an EditorKind
// and instantiates RowEditor with it has it tested in everything that such editors do alike.
#pragma once

#include <memory>
#include <ostream>

#include <QDialog>
#include <QImage>
#include <QPushButton>
#include <QStringList>

#include <gtest/gtest.h>

#include "support/accessible_events.h"
#include "support/dropped_files.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/text.h"

inline constexpr const char* kQuestion = "File not saved. Save it now?";

inline QByteArray EveryByte() {
  QByteArray all;
  for (int value = 0; value < 256; ++value) all.append(static_cast<char>(value));
  return all;
}

class EditorDriver;

/// What tells one editor from another.
struct EditorKind {
  const char* window;     ///< Its name.
  const char* title;      ///< Its caption.
  const char* surface;    ///< The row surface that has the keyboard first, by name,
  const char* label;      ///< and as it is read out.
  const char* new_file;   ///< The name of a file that is to be saved for the first time.
  const char* extension;  ///< What its files' names end with.
  const char* send_dialog;
  QStringList open_filters;
  QStringList save_filters;  ///< The second filter is in force, here and there.
  QStringList lists;
  QStringList tab_order;  ///< From the button New on.

  /// A file that the editor refuses, and what it says.
  struct RefusedFile {
    QByteArray content;
    const char* message;
  };
  QList<RefusedFile> refused_files;
  QByteArray start;  ///< A header, behind which a file may be refused as too long.

  std::unique_ptr<QDialog> (*make_window)(const TemporaryProgramFolder& folder);

  /// Begins new work, with the keyboard in an empty row of 16 places or more.
  void (*begin)(EditorDriver& editor);

  /// The file of work whose one row that is not empty has this line.
  QByteArray (*file_of)(const QByteArray& row);
};

inline void PrintTo(const EditorKind* kind, std::ostream* stream) { *stream << kind->window; }

class EditorDriver {
 public:
  explicit EditorDriver(const EditorKind& kind);
  ~EditorDriver();

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = window_.findChild<Widget*>(Text(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
  void Press(const char* name);
  QWidget* Surface() { return Find<QWidget>(kind_.surface); }
  QString FileName();

  /// The text that a row surface gives to a screen reader.
  static QString ReadOut(QWidget* surface) { return AccessibleText(surface); }

  void Keys(const QString& text);
  void Keys(const char* text) { Keys(Text(text)); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

  /// The window becomes the active one again, as a desktop makes it when a dialog closes.
  void Activate();

  /// Presses a button and enters a name into the file dialog that it opens; an empty one cancels.
  void Choose(const char* button, const QString& path);

  void Open(const QString& path) { Choose("butOpen", path); }

  /// Drops files on the window. Whether it takes them.
  bool Drop(const QStringList& paths) { return DropFiles(window_, paths); }

  /// The path of a file of the editor's kind in the program folder.
  QString Path(const char* name) const { return folder_.Path(Text(name) + Text(kind_.extension)); }

  /// Writes the file of work with this row, and gives its path.
  QString WriteWork(const char* name, const QByteArray& row);

  /// What Save As writes under `path`; the modified flag is clear afterwards.
  QByteArray SavedAs(const QString& path);

  /// What is saved of the work. The keyboard stays where it is.
  QByteArray Saved();

  /// Whether the editor asks about unsaved work when it is to be left. It stays open, and the
  /// keyboard where it is.
  bool Asks();

  /// Looks for the cursor behind `column` of the `length` characters of the row.
  void ExpectCursor(int column, int length);

  /// The cell in front of which a surface shows the white cursor line; -1 where it shows none.
  static int CursorCell(QWidget* surface);

  static bool IsLine(const QImage& image, int x, const QColor& colour);

 protected:
  const EditorKind& kind_;
  TemporaryProgramFolder folder_;

 private:
  std::unique_ptr<QDialog> owned_window_;

 protected:
  QDialog& window_;
  SeenFileDialog dialog_;  // the file dialog that Choose() answered last
  int dialogs_ = 0;        // and how many it has answered
};

/// Tests of every editor, each with new work begun.
class RowEditor : public testing::TestWithParam<const EditorKind*>, protected EditorDriver {
 protected:
  RowEditor() : EditorDriver(*GetParam()) { kind_.begin(*this); }

  QByteArray FileOf(const QByteArray& row) { return kind_.file_of(row); }
};

inline std::string WindowOf(const testing::TestParamInfo<const EditorKind*>& info) {
  return info.param->window;
}
