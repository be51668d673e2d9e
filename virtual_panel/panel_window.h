// The program's window: every panel of the engine with what it is and holds, and the traffic below.
#pragma once

#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QScrollArea>
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

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Place {
    int id = 0;
    PanelView* view = nullptr;
    QScrollArea* scroll = nullptr;  // around the view
    QLabel* facts = nullptr;
  };

  QWidget* MakePanels();
  QWidget* MakeTraffic();
  // Makes all panels as large as fits the window.
  void Arrange();
  void Refresh();
  void Blink();
  void StartTimers();
  void AddTraffic(const FrameRecord& record);
  void CopyTraffic();

  PanelEngine* engine_;
  QList<Place> places_;
  QScrollArea* panels_ = nullptr;
  QTableWidget* traffic_ = nullptr;
  QLabel* lines_ = nullptr;
  QTimer refresh_timer_;
  QTimer blink_timer_;
  QTimer clock_timer_;
};

// Bytes as a reader can see them: "<CR>", "<LF>", other control characters as "<07>", a long text
// cut.
QString VisibleText(const QByteArray& bytes);

}  // namespace VirtualPanel
