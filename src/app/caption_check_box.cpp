#include "app/caption_check_box.h"

#include <algorithm>

#include <QStyleOptionButton>
#include <QStylePainter>

#include "app/fitted_text.h"

namespace {

constexpr int kWidest = 160;

}  // namespace

QSize CaptionCheckBox::sizeHint() const {
  const QSize size = QCheckBox::sizeHint();
  return {std::min(size.width(), kWidest), size.height()};
}

void CaptionCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect place = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
  option.text.clear();
  painter.drawControl(QStyle::CE_CheckBox, option);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, QPalette::WindowText));
  DrawFittedText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, text(), true);
}
