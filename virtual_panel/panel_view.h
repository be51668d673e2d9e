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

  // Takes over what the panel shows now.
  void Refresh();
  const PanelPicture& Picture() const { return picture_; }
  bool IsBlinking() const { return is_blinking_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PanelEngine* engine_;
  int id_;
  PanelPicture picture_;
  bool is_blinking_ = false;
};

}  // namespace VirtualPanel
