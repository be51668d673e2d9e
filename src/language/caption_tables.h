// What the language file holds: for each window the keys of its captions, list entries, headings
// and dialog titles, in the order in which they are loaded; and the messages. The keys are the
// file's format: a translator's file names them letter for letter.
#pragma once

#include <span>

#include <QString>
#include <QStringList>
#include <QStringView>

namespace ModuleLanguage {

enum class CaptionKind {
  kWindow,        ///< The window's own caption.
  kControl,       ///< The caption of one control.
  kList,          ///< The entries of a list, replaced in place.
  kFeatureList,   ///< The display features, one for each code: the window lists its FeatureNames.
  kDialogTitle,   ///< The title of a file dialog, kept in a variable.
  kTableHeading,  ///< The headings of a table's columns from column 1 on.
  kToolTip,       ///< The tool tip of one control.
  kName,          ///< The accessible name of one control, which screen readers speak.
};

/// One line of a window's table.
struct CaptionRow {
  CaptionKind kind;
  const char* key;            ///< The key; of numbered ones what stands before the number.
  const char* control = "";   ///< The control's name; empty for the window and for a title.
  int count = 1;              ///< How many numbered keys there are.
  QString* title = nullptr;   ///< The variable of a dialog title.
  const char* built_in = "";  ///< The built-in text of a dialog title.
};

/// One window. Its name is also the section of the language file.
struct CaptionTable {
  const char* window;
  bool plain_buttons;  ///< Whether its command buttons lose their bold font.
  std::span<const CaptionRow> rows;
};

/// The tables of all windows.
std::span<const CaptionTable> CaptionTables();

/// The table of a window by its name; null for a window that has none.
const CaptionTable* FindCaptionTable(QStringView window);

/// Key number `n` of a row: list entries count from 0 ("ListCommand.List(0)"), headings from 1
/// ("TableTag1"); a row with one key has no number.
QString CaptionKey(const CaptionRow& row, int n);

/// Every key of a window in loading order.
QStringList CaptionKeys(const CaptionTable& table);

/// A message: where its translation stands, and the English text that is its identity.
struct Message {
  const char* section;
  const char* key;
  const char* text;
};

/// All messages. The order counts: the first one with the text decides.
std::span<const Message> Messages();

}  // namespace ModuleLanguage
