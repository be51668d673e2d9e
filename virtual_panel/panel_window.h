// The program's window: every panel of the engine with what it is and holds, and the traffic below.
#pragma once

#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QTableWidget>
#include <QTimer>

#include "panel_engine.h"
#include "panel_view.h"

namespace VirtualPanel {

class PanelWindow : public QMainWindow {
  Q_OBJECT

 public:
  static constexpr int kMostTrafficLines = 500;

  // The engine must outlive the window.
  explicit PanelWindow(PanelEngine* engine, QWidget* parent = nullptr);

  // The status line: where the panels are reached.
  void SetLines(const QString& text);

 Q_SIGNALS:
  // The window shows the engine's latest change.
  void Refreshed();

 private:
  struct Place {
    int id = 0;
    PanelView* view = nullptr;
    QLabel* facts = nullptr;
  };

  QWidget* MakePanels();
  QWidget* MakeTraffic();
  void Refresh();
  void Blink();
  void StartTimers();
  void AddTraffic(const FrameRecord& record);
  void CopyTraffic();

  PanelEngine* engine_;
  QList<Place> places_;
  QTableWidget* traffic_;
  QLabel* lines_;
  QTimer refresh_timer_;
  QTimer blink_timer_;
  QTimer clock_timer_;
};

// Bytes as a reader can see them: "<CR>", "<LF>", other control characters as "<07>", a long text
// cut.
QString VisibleText(const QByteArray& bytes);

}  // namespace VirtualPanel
