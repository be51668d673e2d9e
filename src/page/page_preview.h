// The panel under the rows of the page editor: it shows in its LEDs what a panel would show of the
// page as it is now, and moves along with the rows of a wide page. Nothing is worked out while it
// is hidden, and only what has changed is drawn again.
#pragma once

#include <array>
#include <functional>

#include <QDateTime>
#include <QWidget>

#include "page/page_message.h"
#include "panel_dots/panel_picture.h"
#include "store/configuration_store.h"

class PagePreview : public QWidget {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  explicit PagePreview(QWidget* parent = nullptr);

  /// The page to show, which outlives this. `now` is the date and time of the panel.
  void Build(const Brivon1::PageMessage& page, TimeSource now);

  /// To be called after every change of the page.
  void Refresh();

  /// Shows the page as a panel of this type does, kTri at first.
  void SetColourType(qint16 colour_type);

  /// Shows the blinking characters, or leaves their dots dark. To be called twice a second: date
  /// and time turn with it too.
  void SetBlinkingHidden(bool hidden);

  /// The part of the rows' width that is in sight.
  struct Sight {
    int left = 0;  ///< Pixels of the rows to the left of it.
    int width = 0;
    int rows_width = 0;

    bool operator==(const Sight&) const = default;
  };

  /// Moves to the part of the panel that belongs to the rows in sight; the cursor of the current
  /// row stays in sight where it is in that of the rows.
  void Follow(const Sight& sight);

  /// What was shown last.
  const PanelDots::PanelPicture& Picture() const { return picture_; }

  /// The distance of two dots.
  double Pitch() const;

  /// Where the upper left corner of the panel's frame stands.
  QPointF Corner() const { return {-left_, 0}; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  /// What a row of the picture was made of, and what the time changes of it.
  struct Shown {
    Brivon1::PageRow row;
    bool blinks = false;
    bool has_clock = false;
  };

  Brivon1::Dimension PageDimension() const { return {page_->Rows(), page_->Columns()}; }
  PanelDots::PanelShape Shape() const;
  void MakeRow(int number);
  void UpdateRows(bool Shown::*which);
  QSizeF PanelSize() const;
  QRect StripOf(int number) const;
  double CursorPlace() const;
  void SetLeft(double left);

  const Brivon1::PageMessage* page_ = nullptr;
  TimeSource now_;
  qint16 colour_type_ = Brivon1::kTri;
  PanelDots::PanelPicture picture_{{0, 0, true}};
  std::array<Shown, Brivon1::kMaxRows> shown_;
  int asked_for_rows_ = 0;  // for which a height was asked for
  bool blinking_hidden_ = false;
  Sight sight_;
  double left_ = 0;  // of the panel, to the left of the preview
};
