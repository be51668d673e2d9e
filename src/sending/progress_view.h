// How far a transmission has come, and the button that ends it: the part of every window that sends
// which is seen only while it does. Its room is always kept, so that nothing moves. Below it may
// stand a note on what is to be known before anything is sent.
#pragma once

#include <QWidget>

#include "panel_line/progress.h"

class ElidedLabel;
class QProgressBar;
class QPushButton;

class ProgressView : public QWidget {
  Q_OBJECT

 public:
  explicit ProgressView(QWidget* parent = nullptr);

  /// A transmission begins and ends; one that has begun is not begun again.
  void Begin();
  void End();

  /// Whether "Stop" can be pressed now.
  bool CanStop() const;

  void Show(const Brivon1::Progress& progress);

  /// Shows a step of which nobody knows how long it takes.
  void ShowText(const QString& text);

  /// Shows a note from now on.
  void SetNote(const QString& note);

  /// Shows that a stop has been asked for, which need not be asked for again.
  void ShowStopping();

 Q_SIGNALS:
  void StopPressed();

 private:
  QProgressBar* bar_;
  ElidedLabel* text_;
  ElidedLabel* note_;
  QPushButton* stop_;
  qint64 seconds_left_ = -1;  // as shown; -1 where none are
};
