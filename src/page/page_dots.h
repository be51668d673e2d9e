// How the rows of the page that is being edited use up the dots of a panel. What was found out of a
// row is kept until the row changes.
#pragma once

#include <array>
#include <optional>

#include "page/page_message.h"
#include "page/row_dots.h"

namespace Brivon1 {

class PageDots {
 public:
  /// What a row needs of a panel.
  struct Use {
    int dots = 0;        ///< The dot columns that its characters take.
    qsizetype seen = 0;  ///< Its characters in front of the first one that is cut.
  };

  /// To be called after every change of the page.
  void Refresh(const PageMessage& page, const RowPanel& panel);

  /// Row `number`, counted from 1.
  const Use& Of(int number) const { return Known(number).use; }

  /// The place, in characters from the row's beginning, where the panel's dots end, if the row is
  /// typed on in `size`. Nothing where they reach as far as the row does.
  std::optional<qsizetype> EndOf(int number, char size) const;

 private:
  struct KnownRow {
    PageRow row;
    Use use;
  };

  const KnownRow& Known(int number) const { return rows_[static_cast<std::size_t>(number - 1)]; }

  RowPanel panel_;
  qsizetype places_ = 0;
  std::array<KnownRow, kMaxRows> rows_;
};

}  // namespace Brivon1
