// The part of the page editor that shows the rows: twelve surfaces inside a clipping area, so that
// a page wider than the screen can be moved through, and the row numbers beside them.
#pragma once

#include <array>

#include <QWidget>

#include "page/page_message.h"
#include "row/row_surface.h"

class QFrame;
class QLabel;
class QScrollBar;

class RowArea : public QWidget {
  Q_OBJECT

 public:
  explicit RowArea(QWidget* parent = nullptr);

  /// Makes the surfaces of the page's rows, hidden at first. `page` and `scroll_bar`, which shows
  /// and sets the place, outlive this.
  void Build(const Brivon1::PageMessage& page, QScrollBar& scroll_bar);

  /// Names the rows for screen readers as the window's captions do: `row_caption` stands in front
  /// of the number, `symbol_caption` in front of a symbol's letter, `words` are the other names.
  void NameRows(const QString& row_caption, const QString& symbol_caption, RowWords words);

  /// The surface of row `number`, counted from 1.
  RowSurface& Surface(int number) const { return *surfaces_[static_cast<std::size_t>(number - 1)]; }

  /// Shows as many surfaces as the page has rows, in the page's width, at their first place.
  void LayOutRows();

  /// Draws the current row anew, and the one that was it before; or all rows of the page.
  void RedrawCurrentRow();
  void RedrawRows();

  /// Moves all surfaces to the right, or to the left where `pixels` is negative, without bound.
  void MoveRows(int pixels);

  /// Marks the current row; of all rows, Tab stops at this one alone.
  void MarkCurrentRow();

  /// Moves the surfaces as far as it takes to show the cursor of the current row.
  void FollowCursor();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void SetLeft(int left);
  void UpdateScrollBar();

  /// Where the surfaces' left edge stands when an area of `width` shows the end of the page.
  int LastLeft(int width) const;

  const Brivon1::PageMessage* page_ = nullptr;
  QScrollBar* scroll_bar_ = nullptr;
  QFrame* clip_;
  QWidget* clipped_;
  std::array<RowSurface*, Brivon1::kMaxRows> surfaces_{};
  std::array<QLabel*, Brivon1::kMaxRows> numbers_{};
  int left_;
  int drawn_row_ = 1;  // the current row when it was drawn last
};
