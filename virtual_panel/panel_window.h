// The program's window: every panel of the engine with what it is, holds and plays, its schedules
// as buttons that play them, and the traffic below. It wakes only when what it shows changes.
#pragma once

#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QMap>
#include <QPushButton>
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
  // 1 to kMostScrollSpeed dots a second.
  void SetScrollSpeed(int dots_per_second);

 Q_SIGNALS:
  // The window shows the engine's latest change.
  void Refreshed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct Place {
    int id = 0;
    PanelView* view = nullptr;
    QScrollArea* scroll = nullptr;  // around the view
    QLabel* facts = nullptr;
    QLabel* playing = nullptr;
    QWidget* schedules = nullptr;      // around the buttons
    QMap<char, QPushButton*> letters;  // one for each schedule that a panel may have
    QString shape;                     // of the buttons as they are arranged
  };

  QWidget* MakePanels();
  void MakeSchedules(Place* place);
  // Whether its buttons have become others or have other captions.
  bool RefreshSchedules(Place* place, const QDateTime& now);
  // Lays the buttons out in as many columns as fit, and returns their height.
  int ArrangeSchedules(Place* place, int width);
  QWidget* MakeTraffic();
  // Makes all panels as large as fits the window.
  void Arrange();
  void Refresh();
  void Blink();
  void Scroll();
  void StartTimers(const QDateTime& now);
  void StartScrollTimer(const QDateTime& now);
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
  QTimer play_timer_;
  QTimer scroll_timer_;
};

// Bytes as a reader can see them: "<CR>", "<LF>", other control characters as "<07>", a long text
// cut.
QString VisibleText(const QByteArray& bytes);

}  // namespace VirtualPanel
