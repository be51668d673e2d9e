// One panel of the engine as a widget that scales with its window.
#pragma once

#include <QWidget>

#include "panel_drawing.h"

namespace VirtualPanel {

class PanelView : public QWidget {
  Q_OBJECT

 public:
  // The engine must outlive the view and have a panel with this ID.
  PanelView(const PanelEngine* engine, int id, QWidget* parent = nullptr);

  // Takes over what the panel shows at `now`.
  void Refresh(const QDateTime& now);
  // Draws again only where a text scrolls.
  void Scroll();
  // How long until a scrolling text has moved; none scrolls: nothing.
  std::optional<qint64> MsToNextDot(const QDateTime& now) const;
  void SetScrollSpeed(int dots_per_second);
  const PanelPicture& Picture() const { return picture_; }
  bool IsBlinking() const { return is_blinking_; }
  bool IsScrolling() const { return !picture_.scrolling_lines.isEmpty(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PanelEngine* engine_;
  int id_;
  int scroll_speed_ = kUsualScrollSpeed;
  PanelPicture picture_;
  bool is_blinking_ = false;
};

}  // namespace VirtualPanel
