#include "widgets/caption_check_box.h"

#include <algorithm>
#include <type_traits>

#include <QStyleOptionButton>
#include <QStylePainter>

#include "widgets/fitted_text.h"

template <typename Button>
int WrappedOption<Button>::Beside() const {
  return Button::sizeHint().width() -
         this->fontMetrics().size(Qt::TextShowMnemonic, this->text()).width();
}

template <typename Button>
QSize WrappedOption<Button>::sizeHint() const {
  const int width = Beside() + CaptionWidth(this->font(), WithoutShortcutMark(this->text()));
  return {width, heightForWidth(width)};
}

template <typename Button>
int WrappedOption<Button>::heightForWidth(int width) const {
  const QString caption = WithoutShortcutMark(this->text());
  return std::max(Button::sizeHint().height(),
                  CaptionHeight(this->font(), caption, width - Beside()));
}

template <typename Button>
void WrappedOption<Button>::paintEvent(QPaintEvent* /*event*/) {
  constexpr bool kIsCheckBox = std::is_base_of_v<QCheckBox, Button>;
  QStyleOptionButton option;
  this->initStyleOption(&option);
  const QRect place = this->style()->subElementRect(
      kIsCheckBox ? QStyle::SE_CheckBoxContents : QStyle::SE_RadioButtonContents, &option, this);
  option.text.clear();
  QStylePainter painter(this);
  painter.drawControl(kIsCheckBox ? QStyle::CE_CheckBox : QStyle::CE_RadioButton, option);
  painter.setPen(option.palette.color(QPalette::WindowText));
  const TextFit fit =
      FitText(this->font(), WithoutShortcutMark(this->text()), QRectF(place).size());
  painter.setFont(Scaled(this->font(), fit.scale));
  DrawCaption(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, this->text(), true);
}

template class WrappedOption<QCheckBox>;
template class WrappedOption<QRadioButton>;
