// What an editor says of the row that is being typed: where the cursor stands, how much room is
// left, how the character there looks, and why a key was refused.
#pragma once

#include <optional>

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include "row/row_editing.h"

namespace Brivon1 {

struct RowStatus {
  struct Dots {
    int used = 0;
    int all = 0;
    qsizetype unseen = 0;  ///< The characters at the row's end for which no dots are left.
  };

  int row = 0;          ///< Counted from 1; 0 where there is but one.
  qsizetype place = 1;  ///< Of the character behind the cursor, counted from 1.
  qsizetype places = 0;
  std::optional<Dots> dots{};
  QStringList attributes{};  ///< The names of the character's colour, size, blinking.
};

/// The texts of it in the chosen language, which are read once.
class RowStatusWords {
 public:
  RowStatusWords();

  /// All that is to be said, in one line.
  QString Line(const RowStatus& status) const;

  /// How many characters at the row's end will not be seen; empty where all are.
  QString Unseen(const RowStatus& status) const;

  /// What was left out and why; empty where nothing was.
  QString Refusal(const LeftOut& left_out) const;

 private:
  QString row_place_;
  QString place_;
  QString dots_;
  QString last_unseen_;
  QString some_unseen_;
  QString full_;
  QString one_no_room_;
  QString no_room_;
  QString one_no_row_;
  QString no_row_;
  QString no_character_;
  QString no_characters_;
};

}  // namespace Brivon1
