#include "page/path_label.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int kFewestCharacters = 10;
constexpr int kUsualCharacters = 40;

}  // namespace

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void PathLabel::SetPath(const QString& path) {
  setText(path);
  setToolTip(path);
}

QSize PathLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kUsualCharacters, QLabel::sizeHint().height()};
}

QSize PathLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kFewestCharacters, QLabel::sizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  drawFrame(&painter);
  painter.setClipRect(event->rect());
  const QRect place = contentsRect();
  style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width()),
                        foregroundRole());
}
