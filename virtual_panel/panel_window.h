// The program's window: every panel of the engine with what it is, holds and plays, its pages and
// schedules to be chosen, the traffic below, and the faults to play with in a menu. It wakes only
// when what it shows changes; while nobody can see it, nothing moves.
#pragma once

#include <QAction>
#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QMap>
#include <QPushButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QTimer>

#include "page_strip.h"
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
  // From the menu: the lines are to be cut, or can be reached again.
  void Plugged(bool plugged);
  // The window shows the engine's latest change; once more when a page has entered.
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
    QWidget* stored = nullptr;  // around the pages
    QLabel* pages_caption = nullptr;
    PageStrip* pages = nullptr;
    qsizetype page_count = 0;
    QWidget* schedules = nullptr;      // around the buttons
    QMap<char, QPushButton*> letters;  // one for each schedule that a panel may have
    QString shape;                     // of the buttons as they are arranged
  };

  QWidget* MakePanels();
  void MakePages(Place* place);
  void MakeSchedules(Place* place);
  // Whether its pages have become others.
  bool RefreshPages(Place* place, const QDateTime& now);
  // Whether its buttons have become others or have other captions.
  bool RefreshSchedules(Place* place, const QDateTime& now);
  // Lays the buttons out in as many columns as fit, and returns their height.
  int ArrangeSchedules(Place* place, int width);
  QWidget* MakeTraffic();
  void MakeMenus();
  void ToggleFault(const QString& name, bool is_wanted);
  void AskForFault();
  void SetPlugged(bool plugged);
  // The menu and the status line say what is wrong.
  void RefreshFaults();
  // Makes all panels as large as fits the window.
  void Arrange();
  void Refresh();
  void Blink();
  void Scroll();
  void Enter();
  void StartTimers(const QDateTime& now);
  // Of what moves without a change of the engine's.
  void StartMotionTimers(const QDateTime& now);
  void StartScrollTimer(const QDateTime& now);
  void StartEntranceTimer(const QDateTime& now);
  // Nobody looks at a window that is hidden or minimised.
  bool IsSeen() const { return isVisible() && !isMinimized(); }
  void AddTraffic(const FrameRecord& record);
  void CopyTraffic();

  PanelEngine* engine_;
  QList<Place> places_;
  QScrollArea* panels_ = nullptr;
  QTableWidget* traffic_ = nullptr;
  QLabel* lines_ = nullptr;
  QLabel* fault_names_ = nullptr;
  QMap<QString, QAction*> faults_;  // by their names
  QAction* no_fault_ = nullptr;
  QAction* unplugged_ = nullptr;
  bool is_plugged_ = true;
  QTimer refresh_timer_;
  QTimer blink_timer_;
  QTimer clock_timer_;
  QTimer play_timer_;
  QTimer scroll_timer_;
  QTimer entrance_timer_;
};

// Bytes as a reader can see them, in the code page: "<CR>", "<LF>", other control characters and
// undefined bytes as "<07>", a long text cut.
QString VisibleText(const QByteArray& bytes);

}  // namespace VirtualPanel
