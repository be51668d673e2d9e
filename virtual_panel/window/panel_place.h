// A panel's place in the window: the panel itself, what it is and holds in words, its pages and
// its schedules to be chosen. It knows when the panel next changes by itself.
#pragma once

#include <QLabel>
#include <QObject>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include "engine/panel_engine.h"
#include "window/page_strip.h"
#include "window/panel_view.h"
#include "window/schedule_buttons.h"

namespace VirtualPanel {

class PanelPlace : public QObject {
  Q_OBJECT

 public:
  // The engine must outlive the place and have a panel with this ID.
  PanelPlace(PanelEngine* engine, int id, QObject* parent = nullptr);

  // Puts its widgets into the window, one below the other; from then on they are the window's.
  void AddTo(QVBoxLayout* layout);
  // Shows what the panel holds and shows at `now`. Whether something has come or gone that takes
  // room: the window must be arranged anew.
  bool Refresh(const QDateTime& now);
  // Nothing moves in a window that nobody sees.
  void SetSeen(bool is_seen) { view_->SetSeen(is_seen); }
  void SetScrollSpeed(int dots_per_second) { view_->SetScrollSpeed(dots_per_second); }

  // The height that the place needs below the panel in this width: with all that it may ever hold,
  // and with nothing but the line that says what the panel is.
  struct Below {
    int most = 0;
    int least = 0;
  };
  Below HeightBelow(int width, int spacing) const;
  // Lays out what stands below the panel in this width, with room for all that it may ever hold or
  // for what there is.
  void ArrangeBelow(int width, bool keeps_room);
  QSizeF SizeInDots() const { return PanelDots::SizeInDots(view_->Picture().shape); }
  // A panel that is wider than the room is scrolled, by a bar of this height.
  void SetDotDistance(double distance, double room, int bar);

 Q_SIGNALS:
  // The panel may have changed by the time that has passed.
  void Due();
  // A page that was on its way in has come.
  void Entered();

 private:
  void MakeLabels();
  void MakeLists();
  void ArrangeTexts(int width, bool keeps_room);
  void ArrangeLists(int width, bool keeps_room);
  bool TextsFitOneLine(int width) const;
  int HeightOfLists() const;
  void StartTimers(const QDateTime& now);
  const Panel& ShownPanel() const { return *engine_->FindPanel(id_); }

  PanelEngine* engine_;
  int id_;
  PanelView* view_;
  QScrollArea* scroll_;       // around the view
  QWidget* texts_ = nullptr;  // around the two texts
  QLabel* facts_ = nullptr;
  QLabel* playing_ = nullptr;
  QWidget* lists_ = nullptr;  // around the pages and the schedules
  QLabel* pages_caption_ = nullptr;
  PageStrip* pages_ = nullptr;
  qsizetype page_count_ = 0;
  ScheduleButtons* schedules_;
  QTimer clock_timer_;
  QTimer play_timer_;
};

}  // namespace VirtualPanel
