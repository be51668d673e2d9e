#include "widgets/caption_check_box.h"

#include <algorithm>

#include <QStyleOptionButton>
#include <QStylePainter>

#include "widgets/fitted_text.h"

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

/// `hint`, which the toolkit has for `button`, with the room of a last "&", which it does not draw,
/// and at most `widest`.
QSize Bounded(QSize hint, const QAbstractButton& button, int widest) {
  const QFontMetrics metrics = button.fontMetrics();
  const int drawn = metrics.size(0, WithoutShortcutMark(button.text())).width();
  const int counted = metrics.size(Qt::TextShowMnemonic, button.text()).width();
  return {std::min(hint.width() + drawn - counted, widest), hint.height()};
}

}  // namespace

QSize CaptionCheckBox::sizeHint() const { return Bounded(QCheckBox::sizeHint(), *this, kWidest); }

void CaptionCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  Paint(this, option, QStyle::CE_CheckBox, QStyle::SE_CheckBoxContents);
}

QSize CaptionRadioButton::sizeHint() const {
  return Bounded(QRadioButton::sizeHint(), *this, kWidestOption);
}

void CaptionRadioButton::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionButton option;
  initStyleOption(&option);
  Paint(this, option, QStyle::CE_RadioButton, QStyle::SE_RadioButtonContents);
}
