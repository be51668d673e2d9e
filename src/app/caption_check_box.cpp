#include "app/caption_check_box.h"

#include <algorithm>

#include <QStyleOptionButton>
#include <QStylePainter>

#include "app/fitted_text.h"

namespace {

constexpr int kWidest = 160;
constexpr int kWidestOption = 240;

void Paint(QWidget* button, QStyleOptionButton option, QStyle::ControlElement element,
           QStyle::SubElement contents) {
  QStylePainter painter(button);
  const QString caption = option.text;
  const QRect place = button->style()->subElementRect(contents, &option, button);
  option.text.clear();
  painter.drawControl(element, option);
  painter.setPen(button->palette().color(
      button->isEnabled() ? QPalette::Normal : QPalette::Disabled, QPalette::WindowText));
  DrawFittedText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, caption, true);
}

}  // namespace

QSize CaptionCheckBox::sizeHint() const {
  const QSize size = QCheckBox::sizeHint();
  return {std::min(size.width(), kWidest), size.height()};
}

void CaptionCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  Paint(this, option, QStyle::CE_CheckBox, QStyle::SE_CheckBoxContents);
}

QSize CaptionRadioButton::sizeHint() const {
  const QSize size = QRadioButton::sizeHint();
  return {std::min(size.width(), kWidestOption), size.height()};
}

void CaptionRadioButton::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  Paint(this, option, QStyle::CE_RadioButton, QStyle::SE_RadioButtonContents);
}
