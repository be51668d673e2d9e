// Random edits of any message that is being edited: typing, selecting, pasting, choosing, undo.
#pragma once

#include <array>
#include <random>

#include <QString>

#include "row/edited_message.h"
#include "row/row_clip.h"

class RandomEdits {
 public:
  explicit RandomEdits(unsigned start) : random_(start) {}

  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

  Brivon1::MoveKey Key() {
    using Brivon1::MoveKey;
    constexpr std::array kKeys = {
        MoveKey::kEnd,      MoveKey::kHome,      MoveKey::kLeft,          MoveKey::kUp,
        MoveKey::kRight,    MoveKey::kDown,      MoveKey::kDelete,        MoveKey::kDeleteWord,
        MoveKey::kWordLeft, MoveKey::kWordRight, MoveKey::kBackspaceWord,
    };
    return kKeys[static_cast<std::size_t>(Below(static_cast<int>(kKeys.size())))];
  }

  /// Up to three lines, some of whose characters have no byte or are keys.
  QString Text() {
    constexpr QStringView kCharacters = u"abc d-~A\u00E4\u9053\t\b\n\n";
    QString text;
    for (int left = Below(30); left > 0; --left) {
      text += kCharacters[Below(static_cast<int>(kCharacters.size()))];
    }
    return text;
  }

  /// One edit or selection in one of the rows up to `rows`, all but those of the message's own
  /// kind.
  void Edit(Brivon1::EditedMessage& message, int rows) {
    const int number = 1 + Below(rows);
    const Brivon1::PageRow& row = message.EditedRow();
    switch (Below(15)) {
      case 0:
      case 1:
        return message.SelectByKey(number, Key());
      case 2:
        return message.Select(number, Below(40) - 5, Below(40) - 5);
      case 3:
        return message.SelectTo(number, Below(500) - 50);
      case 4:
        return message.SelectWord(number, Below(500) - 50);
      case 5:
        message.ChooseColour(Below(16));
        return;
      case 6:
        message.ChooseSize(Below(4));
        return;
      case 7:
        message.ChooseBlink(Below(2) == 0);
        return;
      case 8:
        message.RemoveSelected();
        return;
      case 9:
        if (Below(4) == 0) message.ClearRow();
        return;
      case 10:
        message.CentreRow();
        return;
      case 11:
        message.Paste(Text());
        return;
      case 12:
        copied_ = Brivon1::RowClip(row.Part(row.SelectionBegin(), row.SelectionEnd()));
        return;
      case 13:
        if (const auto clip = Brivon1::ReadRowClip(copied_)) message.Paste(*clip);
        return;
      default:
        Below(3) == 0 ? message.Redo() : message.Undo();
    }
  }

 private:
  std::mt19937 random_;
  QByteArray copied_;
};
