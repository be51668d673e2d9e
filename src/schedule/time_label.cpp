#include "schedule/time_label.h"

#include <algorithm>

#include <QRegularExpression>
#include <QStyle>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int kGap = 6;         // between a text and a box
constexpr int kBehindBox = 14;  // between a box and the next text
constexpr int kBoxCharacters = 4;
constexpr int kBoxMargin = 14;  // frame and margins of a box

}  // namespace

QStringList TimeLabel::Pieces() const {
  static const QRegularExpression gap(u" {2,}"_s);
  return text().split(gap);
}

QList<QWidget*> TimeLabel::Boxes() const {
  return findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

int TimeLabel::BoxWidth() const {
  return kBoxCharacters * fontMetrics().horizontalAdvance(u'0') + kBoxMargin;
}

QSize TimeLabel::sizeHint() const {
  QSize size(0, fontMetrics().height());
  for (const QString& piece : Pieces()) size.rwidth() += fontMetrics().horizontalAdvance(piece);
  for (const QWidget* box : Boxes()) {
    size.rwidth() += kGap + BoxWidth() + kBehindBox;
    size.setHeight(std::max(size.height(), box->sizeHint().height()));
  }
  return size;
}

void TimeLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  const QStringList pieces = Pieces();
  int x = 0;
  for (qsizetype i = 0; const auto& box : Boxes()) {
    x += fontMetrics().horizontalAdvance(pieces.value(i++)) + kGap;
    const int box_height = box->sizeHint().height();
    box->setGeometry(x, (height() - box_height) / 2, BoxWidth(), box_height);
    x += BoxWidth() + kBehindBox;
  }
}

void TimeLabel::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  const QList<QWidget*> boxes = Boxes();
  int x = 0;
  for (qsizetype i = 0; const QString& piece : Pieces()) {
    const QRect area(x, 0, fontMetrics().horizontalAdvance(piece), height());
    painter.drawItemText(area, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), piece,
                         foregroundRole());
    if (i < boxes.size()) x = boxes[i]->geometry().right() + 1 + kBehindBox;
    ++i;
  }
}
