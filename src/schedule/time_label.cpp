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

/// A text that is longer gives way where the window is narrow.
constexpr int kUsualCharacters = 80;

}  // namespace

QStringList TimeLabel::Pieces() const {
  static const QRegularExpression gap(u" {2,}"_s);
  return text().split(gap);
}

QStringList TimeLabel::ShownPieces() const {
  QStringList pieces = Pieces();
  const int missing = sizeHint().width() - width();
  if (missing <= 0) return pieces;
  int room = -missing;
  for (const QString& piece : pieces) room += fontMetrics().horizontalAdvance(piece);
  const int share = std::max(0, room) / static_cast<int>(pieces.size());
  for (QString& piece : pieces) piece = fontMetrics().elidedText(piece, Qt::ElideRight, share);
  return pieces;
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

QSize TimeLabel::minimumSizeHint() const {
  const QSize size = sizeHint();
  return {std::min(size.width(), kUsualCharacters * fontMetrics().averageCharWidth()),
          size.height()};
}

void TimeLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  const QStringList pieces = ShownPieces();
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
  for (qsizetype i = 0; const QString& piece : ShownPieces()) {
    const QRect area(x, 0, fontMetrics().horizontalAdvance(piece), height());
    painter.drawItemText(area, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), piece,
                         foregroundRole());
    if (i < boxes.size()) x = boxes[i]->geometry().right() + 1 + kBehindBox;
    ++i;
  }
}
