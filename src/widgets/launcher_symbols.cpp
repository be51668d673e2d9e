#include "widgets/launcher_symbols.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPainterPath>

namespace {

// All symbols are drawn on a square of this many units.
constexpr qreal kUnits = 32;

const QRectF kPanel(2, 6, 28, 20);

void DrawDots(QPainter* painter, const QColor& colour, qreal y, qreal from, qreal to) {
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  for (qreal x = from; x <= to; x += 4) painter->drawEllipse(QPointF(x, y), 1.3, 1.3);
}

void DrawPanel(QPainter* painter) { painter->drawRoundedRect(kPanel, 3, 3); }

void DrawMessage(QPainter* painter, const QColor& accent) {
  DrawPanel(painter);
  DrawDots(painter, accent, 11, 8, 24);
  DrawDots(painter, accent, 16, 8, 20);
  DrawDots(painter, accent, 21, 8, 24);
}

void DrawScrolling(QPainter* painter, const QColor& accent) {
  DrawPanel(painter);
  DrawDots(painter, accent, 16, 18, 26);
  QPen pen(accent, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  painter->setPen(pen);
  painter->drawPolyline(QPolygonF({QPointF(11, 12), QPointF(7, 16), QPointF(11, 20)}));
  painter->drawLine(QPointF(7, 16), QPointF(14, 16));
}

void DrawSchedule(QPainter* painter, const QColor& accent) {
  painter->drawRoundedRect(QRectF(4, 6, 24, 22), 3, 3);
  painter->drawLine(QPointF(4, 12), QPointF(28, 12));
  painter->drawLine(QPointF(10, 3), QPointF(10, 8));
  painter->drawLine(QPointF(22, 3), QPointF(22, 8));
  painter->setPen(QPen(accent, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter->drawPolyline(QPolygonF({QPointF(16, 15), QPointF(16, 20), QPointF(20, 23)}));
}

void DrawConfig(QPainter* painter, const QColor& line, const QColor& accent) {
  const QList<QPointF> knobs = {{11, 8}, {22, 16}, {14, 24}};
  for (const QPointF& knob : knobs) painter->drawLine(QPointF(3, knob.y()), QPointF(29, knob.y()));
  painter->setPen(QPen(line, 1.5));
  painter->setBrush(accent);
  for (const QPointF& knob : knobs) painter->drawEllipse(knob, 3.4, 3.4);
}

void DrawCommand(QPainter* painter, const QColor& accent) {
  painter->drawRoundedRect(QRectF(2, 16, 20, 13), 2.5, 2.5);
  DrawDots(painter, accent, 22.5, 7, 17);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(QPen(accent, 2.2, Qt::SolidLine, Qt::RoundCap));
  const QPointF sender(20, 13);
  for (const qreal radius : {4.5, 9.0}) {
    painter->drawArc(QRectF(sender.x() - radius, sender.y() - radius, 2 * radius, 2 * radius),
                     5 * 16, 80 * 16);
  }
}

void DrawExit(QPainter* painter, const QColor& accent) {
  painter->drawArc(QRectF(5, 5, 22, 22), 125 * 16, 290 * 16);
  painter->setPen(QPen(accent, 2.6, Qt::SolidLine, Qt::RoundCap));
  painter->drawLine(QPointF(16, 3), QPointF(16, 14));
}

constexpr double kContrast = 3.05;  // 3:1, and what the rounding of colours takes

constexpr int kShades = 32;

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

double LeastContrast(const QColor& colour, const QList<QColor>& grounds) {
  double least = Contrast(Qt::black, Qt::white);
  for (const QColor& ground : grounds) least = std::min(least, Contrast(colour, ground));
  return least;
}

QColor Mixed(const QColor& from, const QColor& to, int shade) {
  const auto part = [shade](int a, int b) { return a + (b - a) * shade / kShades; };
  return QColor(part(from.red(), to.red()), part(from.green(), to.green()),
                part(from.blue(), to.blue()));
}

}  // namespace

QColor ReadableOn(const QList<QColor>& grounds, const QColor& wanted) {
  const bool is_darker = LeastContrast(Qt::black, grounds) > LeastContrast(Qt::white, grounds);
  const QColor away = is_darker ? Qt::black : Qt::white;
  int shade = 0;
  while (shade < kShades && LeastContrast(Mixed(wanted, away, shade), grounds) < kContrast) {
    ++shade;
  }
  return Mixed(wanted, away, shade);
}

void DrawLauncherSymbol(QPainter* painter, LauncherSymbol symbol, const QRectF& area,
                        const QColor& line, const QColor& accent) {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(area.topLeft());
  painter->scale(area.width() / kUnits, area.height() / kUnits);
  painter->setPen(QPen(line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter->setBrush(Qt::NoBrush);
  switch (symbol) {
    case LauncherSymbol::kNone:
      break;
    case LauncherSymbol::kMessage:
      DrawMessage(painter, accent);
      break;
    case LauncherSymbol::kScrolling:
      DrawScrolling(painter, accent);
      break;
    case LauncherSymbol::kSchedule:
      DrawSchedule(painter, accent);
      break;
    case LauncherSymbol::kConfig:
      DrawConfig(painter, line, accent);
      break;
    case LauncherSymbol::kCommand:
      DrawCommand(painter, accent);
      break;
    case LauncherSymbol::kExit:
      DrawExit(painter, accent);
      break;
  }
  painter->restore();
}
