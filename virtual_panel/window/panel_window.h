// The program's window: every panel of the engine in its place, the traffic below, and the faults
// to play with in a menu. It wakes only when what it shows changes; while nobody can see it,
// nothing moves.
#pragma once

#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QScrollArea>
#include <QTimer>

#include "engine/panel_engine.h"
#include "window/panel_place.h"
#include "window/traffic_table.h"

namespace VirtualPanel {

class PanelWindow : public QMainWindow {
  Q_OBJECT

 public:
  // The engine must outlive the window.
  explicit PanelWindow(PanelEngine* engine, QWidget* parent = nullptr);

  // The status line: where the panels are reached.
  void SetLines(const QString& text);
  // The status line: the files that cannot be written, and in its tool tip why, a line for each.
  void SetUnwrittenFiles(const QStringList& names, const QStringList& reasons);
  // 1 to PanelDots::kMostScrollSpeed dots a second.
  void SetScrollSpeed(int dots_per_second);

 Q_SIGNALS:
  // From the menu: the lines are to be cut, or can be reached again.
  void Plugged(bool plugged);
  // The window shows the engine's latest change; once more when a page has entered.
  void Refreshed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakePanels();
  void MakeMenus();
  void MakeStatusLine();
  void ShowFaults(const QStringList& names);
  void FollowTheEngine();
  // Makes all panels as large as fits the window.
  void Arrange();
  void Refresh();
  // Nobody looks at a window that is hidden or minimised.
  void TellWhetherSeen();

  PanelEngine* engine_;
  QList<PanelPlace*> places_;
  QScrollArea* panels_ = nullptr;
  TrafficTable* traffic_ = nullptr;
  QLabel* lines_ = nullptr;
  QLabel* unwritten_files_ = nullptr;
  QLabel* fault_names_ = nullptr;
  QTimer refresh_timer_;
};

}  // namespace VirtualPanel
