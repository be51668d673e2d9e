#include "panel_drawing.h"

#include <algorithm>
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
constexpr int kDateCharacters = 11;
constexpr int kTimeCharacters = 5;
constexpr qint64 kSecondMs = 1000;

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

double CharacterWidth(const Cell& cell) {
  return cell.IsCompressed() ? kCompressedWidth : kNormalWidth;
}

// How many characters a cell shows.
int CharacterCount(const Cell& cell) {
  if (cell.kind == Cell::Kind::kDate) return kDateCharacters;
  return cell.kind == Cell::Kind::kTime ? kTimeCharacters : 1;
}

// Draws a row at height 0, from `x` on: what of it lies between `left` and `right`.
void DrawRow(QPainter* painter, const StoredRow& row, const PanelPicture& picture, bool is_lit,
             double x, double left, double right) {
  for (const Cell& cell : row.cells) {
    const double width = CharacterWidth(cell);
    const double whole_width = width * CharacterCount(cell);
    if (x >= right) return;
    if (x + whole_width <= left) {
      x += whole_width;
      continue;
    }
    const Look look = LookOf(cell.colour, picture.description.tri_colour);
    const QString text = TextOf(cell, picture.clock);
    for (const QChar character : text) {
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

// How much of a scrolling line's current second has gone.
qint64 MsIntoSecond(const ScrollingLine& line, qint64 now_ms) {
  return ((now_ms - line.began_ms) % kSecondMs + kSecondMs) % kSecondMs;
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
  const auto blinks = [](const StoredRow& row) {
    return std::any_of(row.cells.cbegin(), row.cells.cend(),
                       [](const Cell& cell) { return cell.blinking; });
  };
  for (auto row = picture.rows.cbegin(); row != picture.rows.cend(); ++row) {
    if (!picture.scrolling_lines.contains(row.key()) && blinks(*row)) return true;
  }
  return std::any_of(picture.scrolling_lines.cbegin(), picture.scrolling_lines.cend(),
                     [&](const ScrollingLine& line) { return blinks(line.row); });
}

QString RowText(const StoredRow& row, const QDateTime& clock) {
  QString text;
  for (const Cell& cell : row.cells) {
    const QString part = TextOf(cell, clock);
    text += cell.kind == Cell::Kind::kGraphic ? QStringLiteral("[%1]").arg(part) : part;
  }
  return text;
}

qint64 ScrolledDots(const ScrollingLine& line, const PanelPicture& picture, qint64 now_ms) {
  double width = 0;
  for (const Cell& cell : line.row.cells) width += CharacterWidth(cell) * CharacterCount(cell);
  const qint64 way = picture.description.columns + qRound64(width);
  // Whole seconds and the rest apart: a whole number of dots is gone after every second. The
  // machine's clock may have been set back to before the beginning.
  const qint64 into_second = MsIntoSecond(line, now_ms);
  const qint64 seconds = (now_ms - line.began_ms - into_second) / kSecondMs;
  const qint64 dots =
      seconds * picture.scroll_speed + into_second * picture.scroll_speed / kSecondMs;
  return (dots % way + way) % way;
}

qint64 MsToNextDot(const ScrollingLine& line, const PanelPicture& picture, qint64 now_ms) {
  const qint64 into_second = MsIntoSecond(line, now_ms);
  const qint64 next_dot = into_second * picture.scroll_speed / kSecondMs + 1;
  const qint64 due = (next_dot * kSecondMs + picture.scroll_speed - 1) / picture.scroll_speed;
  return qMax(due - into_second, qint64{1});
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
  const QRectF visible =
      painter->hasClipping() ? painter->clipBoundingRect() : QRectF(QPointF(0, 0), dots);
  painter->setPen(Qt::NoPen);
  painter->setBrush(kFrameColour);
  painter->drawRoundedRect(QRectF(QPointF(0, 0), dots), 1.2, 1.2);
  painter->fillRect(QRectF(kFrame / 2, kFrame / 2, dots.width() - kFrame, dots.height() - kFrame),
                    kBackground);
  for (int row = 1; row <= description.rows; ++row) {
    const QRectF band(kFrame, RowTop(row), description.columns, kRowHeight);
    painter->fillRect(band, kRowBand);
    const QRectF to_draw = band.intersected(visible);
    if (to_draw.isEmpty()) continue;
    const auto scrolling = picture.scrolling_lines.constFind(row);
    const bool is_scrolling = scrolling != picture.scrolling_lines.constEnd();
    const auto stored = picture.rows.constFind(row);
    if (!is_scrolling && stored == picture.rows.constEnd()) continue;
    painter->save();
    painter->setClipRect(band, Qt::IntersectClip);
    painter->translate(band.topLeft());
    const double left = to_draw.left() - band.left() - kEdgeReach;
    const double right = to_draw.right() - band.left();
    if (is_scrolling) {
      const auto dots_gone = static_cast<double>(ScrolledDots(*scrolling, picture, now_ms));
      DrawRow(painter, scrolling->row, picture, is_lit, description.columns - dots_gone, left,
              right);
    } else {
      DrawRow(painter, *stored, picture, is_lit, 0, left, right);
    }
    painter->restore();
  }
  painter->restore();
}

}  // namespace VirtualPanel
