// A row of a panel below the scrolling message editor's text. While the text is edited it rests; on
// a click it runs across the row as a panel lets it run.
#pragma once

#include <functional>

#include <QDateTime>
#include <QLabel>
#include <QSpinBox>
#include <QWidget>

#include "panel_dots/live_picture.h"
#include "row/page_row.h"

class PlayButton;

class ScrollingPreview : public QWidget {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  explicit ScrollingPreview(QWidget* parent = nullptr);

  /// The message to show, which outlives this, and at rest from which character on. The panel runs
  /// by `now`, and has its date and time.
  void Build(const Brivon1::PageRow& message, std::function<qsizetype()> first, TimeSource now);

  /// To be called after every edit: the text rests.
  void Rest();

  bool IsRunning() const { return is_running_; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Run();
  void RunOrRest();
  void Arrange();
  PanelDots::PanelShape Shape() const;

  const Brivon1::PageRow* message_ = nullptr;
  std::function<qsizetype()> first_;
  TimeSource now_;
  bool is_running_ = false;
  PanelDots::LivePicture* picture_;
  PlayButton* play_;
  QLabel* columns_label_;
  QSpinBox* columns_;
};
