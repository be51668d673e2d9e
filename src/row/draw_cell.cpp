#include "row/draw_cell.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include <QCache>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include "base/code_page.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kCellWidth;

/// The colour letter that is no user colour and blanks a cell.
constexpr char kBlankColour = 'Q';

constexpr QColor kCursorColour{255, 255, 255};
constexpr QColor kRed{255, 0, 0};
constexpr QColor kGreen{0, 255, 0};
constexpr QColor kYellow{255, 255, 0};
constexpr QColor kBlue{0, 0, 255};
constexpr QColor kBlack{0, 0, 0};

enum class Ground { kNone, kEdge, kBox, kBoxAndShadow };

/// How a colour letter is painted: the character in `first`, what lies behind it in `second`.
struct Look {
  QColor first;
  Ground ground = Ground::kNone;
  QColor second = kBlack;
};

constexpr std::array<Look, Brivon1::kColourNames.size()> kLooks = {{
    {kRed},
    {kGreen},
    {kYellow},
    {kRed, Ground::kEdge, kGreen},
    {kRed, Ground::kEdge, kYellow},
    {kGreen, Ground::kEdge, kRed},
    {kGreen, Ground::kEdge, kYellow},
    {kYellow, Ground::kEdge, kRed},
    {kYellow, Ground::kEdge, kGreen},
    {kRed, Ground::kBox, kGreen},
    {kGreen, Ground::kBox, kRed},
    {kRed, Ground::kBoxAndShadow, kGreen},
    {kGreen, Ground::kBoxAndShadow, kRed},
    {kYellow, Ground::kBoxAndShadow, kRed},
    {kYellow, Ground::kBoxAndShadow, kGreen},
    {kBlue},
}};

std::optional<Look> LookOf(char colour) {
  if (colour < 'A' || colour >= static_cast<char>('A' + kLooks.size())) return std::nullopt;
  return kLooks[static_cast<std::size_t>(colour - 'A')];
}

/// What a cell may paint beyond its right and lower border: an edge, and the overhang of a slanted
/// letter.
constexpr int kOverhang = 3;
constexpr QRect kTile{-1, 0, 1 + kCellWidth + kOverhang, kCellHeight + 1};

/// The preview's font in the style of one size, stretched so that a letter fills a cell.
struct CellFont {
  QFont font;
  qreal baseline = 0;  // below the cell's upper border

  explicit CellFont(char size) : font(u"Courier New"_s) {
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setKerning(false);
    font.setBold(size == 'C' || size == 'D');
    font.setItalic(size == 'B' || size == 'D');
    constexpr int kProbe = 100;
    font.setPixelSize(kProbe);
    const qreal height = QFontMetricsF(font).ascent() + QFontMetricsF(font).descent();
    font.setPixelSize(std::max(1, qRound(kProbe * kCellHeight / height)));
    const qreal advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    font.setStretch(std::clamp(qRound(100 * kCellWidth / advance), 50, 200));
    const QFontMetricsF metrics(font);
    baseline = qRound((kCellHeight - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent());
  }
};

const CellFont& FontOf(char size) {
  static const std::array<CellFont, Brivon1::kSizeNames.size()> fonts = {
      CellFont('A'), CellFont('B'), CellFont('C'), CellFont('D')};
  return fonts[size >= 'A' && size <= 'D' ? static_cast<std::size_t>(size - 'A') : 0];
}

/// Draws a cell at (0, 0), letter by letter.
void DrawCellAfresh(QPainter& painter, char character, char size, const Look& look) {
  const CellFont& cell_font = FontOf(size);
  const QString text = Brivon1::CodePage::System().ToCharacter(character);
  qreal left = 0;
  if (text.front().isMark()) {
    // It has a cell of its own, but fonts draw it over the letter before or beside it.
    QPainterPath outline;
    outline.addText(0, 0, cell_font.font, text);
    left = kCellWidth / 2.0 - outline.boundingRect().center().x();
  }
  painter.setFont(cell_font.font);
  const auto print = [&](const QColor& colour, int offset) {
    painter.setPen(colour);
    painter.drawText(QPointF(left + offset, offset + cell_font.baseline), text);
  };
  if (look.ground == Ground::kBox || look.ground == Ground::kBoxAndShadow) {
    painter.fillRect(0, 0, kCellWidth - 1, kCellHeight, look.second);
  }
  if (look.ground == Ground::kEdge) print(look.second, 1);
  if (look.ground == Ground::kBoxAndShadow) print(kBlack, 1);
  print(look.first, 0);
}

/// The cells drawn so far, for the resolution that was used last.
class Tiles {
 public:
  const QImage& Tile(char character, char size, char colour, const Look& look, qreal ratio) {
    if (ratio != ratio_) {
      cache_.clear();
      ratio_ = ratio;
    }
    const int key = (static_cast<unsigned char>(character) << 16) |
                    (static_cast<unsigned char>(size) << 8) | static_cast<unsigned char>(colour);
    if (const QImage* known = cache_.object(key)) return *known;
    auto tile = std::make_unique<QImage>((QSizeF(kTile.size()) * ratio).toSize(),
                                         QImage::Format_ARGB32_Premultiplied);
    tile->setDevicePixelRatio(ratio);
    tile->fill(Qt::transparent);
    QPainter painter(tile.get());
    painter.translate(-kTile.topLeft());
    DrawCellAfresh(painter, character, size, look);
    painter.end();
    const QImage* kept = tile.get();
    cache_.insert(key, tile.release());
    return *kept;  // NOLINT(clang-analyzer-cplusplus.NewDelete): the cache takes one of cost 1
  }

 private:
  static constexpr int kMostTiles = 4096;

  QCache<int, QImage> cache_{kMostTiles};
  qreal ratio_ = 0;
};

}  // namespace

void DrawCell(QPainter& painter, char character, char size, char colour, int x, int y) {
  const std::optional<Look> look = LookOf(colour);
  if (!look) {
    painter.fillRect(x, y, kCellWidth, kCellHeight, kSurfaceBackground);
    return;
  }
  if (character == ' ' && (look->ground == Ground::kNone || look->ground == Ground::kEdge)) return;
  static Tiles tiles;
  const qreal ratio = painter.device()->devicePixelRatioF();
  painter.drawImage(QPointF(x, y) + kTile.topLeft(),
                    tiles.Tile(character, size, colour, *look, ratio));
}

void DrawRow(QPainter& painter, const Brivon1::PageRow& row, const QRect& exposed,
             bool blinking_hidden, RowSpan span) {
  // A cell to either side may reach over its border into the exposed part.
  const qsizetype first = span.first + std::max(0, exposed.left() / kCellWidth - 1);
  const qsizetype behind =
      std::min(span.Behind(row), span.first + exposed.right() / kCellWidth + 2);
  for (qsizetype at = first; at < behind; ++at) {
    const int x = static_cast<int>(at - span.first) * kCellWidth;
    if (blinking_hidden && row.Blink()[at] == Brivon1::kBlinking) {
      DrawCell(painter, ' ', 'A', kBlankColour, x, 0);
    } else {
      DrawCell(painter, row.Text()[at], row.Size()[at], row.Colour()[at], x, 0);
    }
  }
}

void DrawCursorLine(QPainter& painter, int column, bool shown) {
  painter.fillRect(column * kCellWidth, 0, 1, kCellHeight,
                   shown ? kCursorColour : kSurfaceBackground);
}
