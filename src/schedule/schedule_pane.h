// The place of the preview beside the table: the panel, a note in the panel's place, the button
// that plays, and the choice of a panel of one colour. It is there as long as the splitter that it
// stands in has room for it.
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QString>
#include <QWidget>

#include "panel_dots/live_picture.h"
#include "widgets/caption_check_box.h"
#include "widgets/play_button.h"

class QSplitter;
class QVBoxLayout;

class SchedulePane : public QWidget {
  Q_OBJECT

 public:
  /// Stands in `splitter`, behind the table.
  explicit SchedulePane(QSplitter* splitter);

  PanelDots::LivePicture* Picture() const { return picture_; }
  PlayButton* Button() const { return play_; }

  /// Whether the panel is one of a single colour.
  QCheckBox* OneColour() const { return one_colour_; }

  /// A panel of this shape is to have room; one of no dots is not shown.
  void SetShape(const PanelDots::PanelShape& shape);

  /// Says to a screen reader what is shown, the panel or the note in its place.
  void SetName(const QString& name);

  /// Shows `note` in the panel's place; an empty one gives it back.
  void ShowNote(const QString& note);
  bool HasNote() const { return !note_->text().isEmpty(); }

  bool eventFilter(QObject* object, QEvent* event) override;

 Q_SIGNALS:
  /// Whether the pane can be seen, from now on.
  void Seen(bool is_seen);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QSplitter* Splitter() const;
  /// Takes its share of the splitter, or none where there is no room.
  void TakeRoom();
  void OnMoved();
  void ShowScroll();
  void Arrange();

  QScrollArea* scroll_;
  PanelDots::LivePicture* picture_;
  QLabel* note_;
  PlayButton* play_;
  CaptionCheckBox* one_colour_;
  QVBoxLayout* controls_;
  PanelDots::PanelShape shape_{0, 0};
  bool was_moved_ = false;     // the splitter, by hand
  bool is_collapsed_ = false;  // and to its end
};
