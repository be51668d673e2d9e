// The part of the page editor that shows the rows: twelve surfaces inside a clipping area, so that
// a page wider or higher than its window can be moved through, and the row numbers beside them. It
// takes the height of the page's rows where there is room, and a few rows' where there is not.
#pragma once

#include <array>
#include <optional>

#include <QWidget>

#include "page/page_message.h"
#include "page/page_preview.h"
#include "row/row_surface.h"

class QFrame;
class QLabel;
class QScrollBar;
class RowGround;

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

  /// Moves the surfaces as far as it takes to show the cursor of the current row. Below a mouse
  /// that is pressed they stay where they are, and below one that drags until it leaves the area.
  void FollowCursor();

  /// Marks behind how many characters of row `number` a panel's dots end; nothing takes the mark
  /// away.
  void MarkDotsEnd(int number, std::optional<qsizetype> characters);

  /// The part of the rows that is in sight.
  PagePreview::Sight Sight() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 Q_SIGNALS:
  /// Another part of the rows may be in sight.
  void Moved();

 private:
  /// The rows that there is to be room for: the page's, or all before there is a page.
  int RowsToShow() const;

  /// The size with `rows` rows in sight.
  QSize SizeFor(int rows) const;

  /// Asks for the height of the page's rows, and shows the vertical bar where that is not given.
  void FitHeight();

  void SetLeft(int left);
  void SetTop(int top);
  void UpdateScrollBar();
  void PlaceMarks();
  void PlaceMark(int number);

  /// Scrolls to the current row.
  void FollowRow();

  /// Where the surfaces' left edge stands when an area of `width` shows the end of the page.
  int LastLeft(int width) const;

  const Brivon1::PageMessage* page_ = nullptr;
  QScrollBar* scroll_bar_ = nullptr;
  QFrame* clip_;
  RowGround* clipped_;
  QWidget* gutter_;
  QScrollBar* vertical_bar_;
  std::array<RowSurface*, Brivon1::kMaxRows> surfaces_{};
  std::array<QLabel*, Brivon1::kMaxRows> numbers_{};
  std::array<std::optional<qsizetype>, Brivon1::kMaxRows> dots_ends_;
  int left_;
  int top_ = 0;        // of the page, what is scrolled out of sight above
  int drawn_row_ = 1;  // the current row when it was drawn last
};
