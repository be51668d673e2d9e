// The button of a preview that plays it and, while it plays, stops it.
#pragma once

#include <QString>

#include "widgets/caption_button.h"

class PlayButton : public CaptionButton {
  Q_OBJECT

 public:
  explicit PlayButton(QWidget* parent);

  /// Bears the caption of what it does then.
  void ShowPlaying(bool is_playing);

 private:
  bool is_playing_ = false;
  QString play_caption_;
};
