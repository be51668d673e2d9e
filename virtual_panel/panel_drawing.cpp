#include "panel_drawing.h"

#include <array>
#include <utility>

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QLinearGradient>
#include <QLocale>
#include <QPainterPath>
#include <QTransform>

namespace VirtualPanel {
namespace {

// All measures are in dots.
constexpr double kFrame = 2;
constexpr double kRowHeight = 8;
constexpr double kRowGap = 1;
constexpr double kNormalWidth = 6;
constexpr double kCompressedWidth = 5;
constexpr double kCapHeight = 5.6;
constexpr double kBaseline = 6.3;
constexpr double kEdgeReach = 0.5;  // how far the edge of "3D" and the shadow reach
constexpr double kRainbowPeriod = 36;

const QColor kRed(255, 0, 0);
const QColor kGreen(0, 255, 0);
const QColor kYellow(255, 255, 0);
const QColor kBackground(0, 0, 0);
const QColor kFrameColour(52, 54, 58);
const QColor kRowBand(26, 17, 15);

enum class Effect { kPlain, kEdge, kLitBackground, kShadow, kRainbow };

struct Look {
  Effect effect = Effect::kPlain;
  QColor first = kRed;
  QColor second = kBackground;
};

Look LookOf(char colour, bool tri_colour) {
  if (!tri_colour) return {};
  switch (colour) {
    case 'B':
      return {Effect::kPlain, kGreen, kBackground};
    case 'C':
      return {Effect::kPlain, kYellow, kBackground};
    case 'D':
      return {Effect::kEdge, kRed, kGreen};
    case 'E':
      return {Effect::kEdge, kRed, kYellow};
    case 'F':
      return {Effect::kEdge, kGreen, kRed};
    case 'G':
      return {Effect::kEdge, kGreen, kYellow};
    case 'H':
      return {Effect::kEdge, kYellow, kRed};
    case 'I':
      return {Effect::kEdge, kYellow, kGreen};
    case 'J':
      return {Effect::kLitBackground, kRed, kGreen};
    case 'K':
      return {Effect::kLitBackground, kGreen, kRed};
    case 'L':
      return {Effect::kShadow, kRed, kGreen};
    case 'M':
      return {Effect::kShadow, kGreen, kRed};
    case 'N':
      return {Effect::kShadow, kYellow, kRed};
    case 'O':
      return {Effect::kShadow, kYellow, kGreen};
    case 'P':
      return {Effect::kRainbow, kRed, kBackground};
    default:
      return {};
  }
}

QBrush Rainbow() {
  QLinearGradient gradient(0, 0, kRainbowPeriod, 0);
  gradient.setColorAt(0, kRed);
  gradient.setColorAt(0.25, kYellow);
  gradient.setColorAt(0.5, kGreen);
  gradient.setColorAt(0.75, kYellow);
  gradient.setColorAt(1, kRed);
  gradient.setSpread(QGradient::RepeatSpread);
  return gradient;
}

// A byte as the Western code page 1252 has it; control characters and undefined bytes are blanks.
QChar CharacterOf(char byte) {
  static constexpr std::array<char16_t, 32> kUpperControls = {
      0x20AC, u' ',   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, u' ',   0x017D, u' ',   u' ',   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, u' ',   0x017E, 0x0178};
  const auto value = static_cast<unsigned char>(byte);
  if (value < 0x20 || value == 0x7F) return QLatin1Char(' ');
  if (value >= 0x80 && value < 0xA0) return QChar(kUpperControls[value - 0x80U]);
  return QChar(ushort(value));
}

QString DateText(const QDateTime& clock) {
  return QLocale::c().toString(clock.date(), QStringLiteral("dd MMM yyyy")).toUpper();
}

QString TimeText(const QDateTime& clock) { return clock.toString(QStringLiteral("HH:mm")); }

// The outline of a character in a cell of 1 by kRowHeight.
QPainterPath MakeGlyph(QChar character, bool bold) {
  QFont font(QStringList{QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Liberation Mono"),
                         QStringLiteral("Courier New")});
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setPixelSize(100);
  font.setBold(bold);
  const QFontMetricsF metrics(font);
  const double advance = metrics.horizontalAdvance(QLatin1Char('M'));
  const double cap_height = metrics.capHeight();
  if (advance <= 0 || cap_height <= 0) return {};
  QPainterPath path;
  path.addText(0, 0, font, QString(character));
  QTransform to_cell;
  to_cell.translate(0, kBaseline);
  to_cell.scale(1 / advance, kCapHeight / cap_height);
  return to_cell.map(path);
}

// A graphic: its letter in a box, in a cell of 1 by kRowHeight.
QPainterPath MakeGraphic(QChar letter) {
  QPainterPath box;
  box.setFillRule(Qt::WindingFill);
  QPainterPath outer;
  outer.addRoundedRect(QRectF(0.04, 0.3, 0.92, kRowHeight - 0.6), 0.12, 0.7);
  QPainterPath inner;
  inner.addRoundedRect(QRectF(0.14, 0.9, 0.72, kRowHeight - 1.8), 0.08, 0.5);
  QTransform smaller;
  smaller.translate(0.5, kRowHeight / 2);
  smaller.scale(0.62, 0.68);
  smaller.translate(-0.5, -(kBaseline - kCapHeight / 2));
  return outer.subtracted(inner).united(smaller.map(MakeGlyph(letter, true)));
}

const QPainterPath& Glyph(QChar character, bool bold, bool graphic) {
  // At most one entry for each byte, weight and kind.
  static QHash<uint, QPainterPath> glyphs;
  const uint key = character.unicode() | (bold ? 0x10000U : 0U) | (graphic ? 0x20000U : 0U);
  auto found = glyphs.find(key);
  if (found == glyphs.end()) {
    found = glyphs.insert(key, graphic ? MakeGraphic(character) : MakeGlyph(character, bold));
  }
  return *found;
}

QString TextOf(const Cell& cell, const QDateTime& clock) {
  switch (cell.kind) {
    case Cell::Kind::kDate:
      return DateText(clock);
    case Cell::Kind::kTime:
      return TimeText(clock);
    case Cell::Kind::kCharacter:
    case Cell::Kind::kGraphic:
      break;
  }
  return QString(CharacterOf(cell.character));
}

// Backgrounds of neighbouring cells meet without a seam, which antialiasing would leave.
void FillCell(QPainter* painter, const QRectF& place, const QColor& colour) {
  painter->setRenderHint(QPainter::Antialiasing, false);
  painter->fillRect(place, colour);
  painter->setRenderHint(QPainter::Antialiasing, true);
}

void DrawGlyph(QPainter* painter, const QRectF& place, const QPainterPath& glyph,
               const Look& look) {
  QTransform to_place;
  to_place.translate(place.x(), place.y());
  to_place.scale(place.width(), 1);
  const QPainterPath path = to_place.map(glyph);
  switch (look.effect) {
    case Effect::kPlain:
      painter->fillPath(path, look.first);
      break;
    case Effect::kEdge:
      painter->fillPath(path.translated(kEdgeReach, kEdgeReach), look.second);
      painter->fillPath(path, look.first);
      break;
    case Effect::kLitBackground:
      FillCell(painter, place, look.second);
      painter->fillPath(path, look.first);
      break;
    case Effect::kShadow:
      FillCell(painter, place, look.second);
      painter->fillPath(path.translated(kEdgeReach, kEdgeReach), kBackground);
      painter->fillPath(path, look.first);
      break;
    case Effect::kRainbow:
      painter->fillPath(path, Rainbow());
      break;
  }
}

// Draws a row whose top left corner is at (0, 0).
void DrawRow(QPainter* painter, const StoredRow& row, const PanelPicture& picture, bool is_lit) {
  const double columns = picture.description.columns;
  double x = 0;
  for (const Cell& cell : row.cells) {
    const double width = cell.IsCompressed() ? kCompressedWidth : kNormalWidth;
    const Look look = LookOf(cell.colour, picture.description.tri_colour);
    const QString text = TextOf(cell, picture.clock);
    for (const QChar character : text) {
      if (x >= columns) return;
      if (is_lit || !cell.blinking) {
        DrawGlyph(painter, QRectF(x, 0, width, kRowHeight),
                  Glyph(character, cell.IsBold(), cell.kind == Cell::Kind::kGraphic), look);
      }
      x += width;
    }
  }
}

// How many pixels a dot has, and where the panel's top left corner is.
struct Placing {
  double dot = 1;
  QPointF corner;
};

Placing Place(const QSizeF& size, const PanelDescription& description) {
  const QSizeF dots = SizeInDots(description);
  const double dot = qMin(size.width() / dots.width(), size.height() / dots.height());
  return {dot, QPointF((size.width() - dots.width() * dot) / 2,
                       (size.height() - dots.height() * dot) / 2)};
}

double RowTop(int row) { return kFrame + (row - 1) * (kRowHeight + kRowGap); }

}  // namespace

QSizeF SizeInDots(const PanelDescription& description) {
  return {description.columns + 2 * kFrame,
          description.rows * (kRowHeight + kRowGap) - kRowGap + 2 * kFrame};
}

QRectF RowRect(const QSizeF& size, const PanelDescription& description, int row) {
  const Placing placing = Place(size, description);
  return {placing.corner.x() + kFrame * placing.dot, placing.corner.y() + RowTop(row) * placing.dot,
          description.columns * placing.dot, kRowHeight * placing.dot};
}

bool HasBlinkingCells(const PanelPicture& picture) {
  for (const StoredRow& row : picture.rows) {
    for (const Cell& cell : row.cells) {
      if (cell.blinking) return true;
    }
  }
  return false;
}

QString RowText(const StoredRow& row, const QDateTime& clock) {
  QString text;
  for (const Cell& cell : row.cells) {
    const QString part = TextOf(cell, clock);
    text += cell.kind == Cell::Kind::kGraphic ? QStringLiteral("[%1]").arg(part) : part;
  }
  return text;
}

void DrawPanel(QPainter* painter, const QSizeF& size, const PanelPicture& picture, qint64 now_ms) {
  const PanelDescription& description = picture.description;
  const Placing placing = Place(size, description);
  const QSizeF dots = SizeInDots(description);
  const bool is_lit = (now_ms / kBlinkMs) % 2 == 0;

  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(placing.corner);
  painter->scale(placing.dot, placing.dot);
  painter->setPen(Qt::NoPen);
  painter->setBrush(kFrameColour);
  painter->drawRoundedRect(QRectF(QPointF(0, 0), dots), 1.2, 1.2);
  painter->fillRect(QRectF(kFrame / 2, kFrame / 2, dots.width() - kFrame, dots.height() - kFrame),
                    kBackground);
  for (int row = 1; row <= description.rows; ++row) {
    const QRectF band(kFrame, RowTop(row), description.columns, kRowHeight);
    painter->fillRect(band, kRowBand);
    const auto stored = picture.rows.constFind(row);
    if (stored == picture.rows.constEnd()) continue;
    painter->save();
    painter->setClipRect(band);
    painter->translate(band.topLeft());
    DrawRow(painter, *stored, picture, is_lit);
    painter->restore();
  }
  painter->restore();
}

}  // namespace VirtualPanel
