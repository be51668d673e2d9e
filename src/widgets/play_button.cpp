#include "widgets/play_button.h"

#include <utility>

#include "language/further_texts.h"

using namespace Qt::StringLiterals;

namespace {

/// That of the buttons beside it.
constexpr int kHeight = 32;

}  // namespace

PlayButton::PlayButton(QWidget* parent) : CaptionButton(u"Play"_s, parent) {
  setObjectName(u"butPlay"_s);
  setAutoDefault(false);
  setMinimumHeight(kHeight);
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
}

void PlayButton::ShowPlaying(bool is_playing) {
  if (std::exchange(is_playing_, is_playing) == is_playing) return;
  if (is_playing) play_caption_ = text();
  setText(is_playing ? ModuleLanguage::TranslateText(u"Stop"_s) : play_caption_);
}
