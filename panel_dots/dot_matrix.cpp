#include "panel_dots/dot_matrix.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QLocale>

#include "base/code_page.h"
#include "panel_dots/dot_glyphs.h"

using namespace Qt::StringLiterals;

namespace PanelDots {
namespace {

enum class Style { kPlain, kEdge, kLitGround, kShadow, kRainbow };

struct Colouring {
  Style style = Style::kPlain;
  Dot first = kRedDot;
  Dot second = kDarkDot;
};

constexpr std::array<Colouring, 16> kColourings = {{
    {Style::kPlain, kRedDot, kDarkDot},
    {Style::kPlain, kGreenDot, kDarkDot},
    {Style::kPlain, kYellowDot, kDarkDot},
    {Style::kEdge, kRedDot, kGreenDot},
    {Style::kEdge, kRedDot, kYellowDot},
    {Style::kEdge, kGreenDot, kRedDot},
    {Style::kEdge, kGreenDot, kYellowDot},
    {Style::kEdge, kYellowDot, kRedDot},
    {Style::kEdge, kYellowDot, kGreenDot},
    {Style::kLitGround, kRedDot, kGreenDot},
    {Style::kLitGround, kGreenDot, kRedDot},
    {Style::kShadow, kRedDot, kGreenDot},
    {Style::kShadow, kGreenDot, kRedDot},
    {Style::kShadow, kYellowDot, kRedDot},
    {Style::kShadow, kYellowDot, kGreenDot},
    {Style::kRainbow, kRedDot, kDarkDot},
}};

Colouring ColouringOf(char letter, bool tri_colour) {
  const bool is_known = letter >= 'A' && letter <= 'P';
  return tri_colour && is_known ? kColourings[static_cast<std::size_t>(letter - 'A')] : Colouring{};
}

// The rainbow runs through the colours along the row, each for some columns.
Dot RainbowDot(int x) {
  constexpr std::array<Dot, 4> kRun = {kRedDot, kYellowDot, kGreenDot, kYellowDot};
  constexpr unsigned kColumnsOfAColour = 4;
  return kRun[static_cast<unsigned>(x) / kColumnsOfAColour % kRun.size()];
}

// A byte as the code page has it; control characters and undefined bytes are blanks.
QChar CharacterOf(char byte) {
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  return code_page.IsPrintable(byte) ? code_page.ToCharacter(byte) : QChar(u' ');
}

int CharacterColumns(const Cell& cell) {
  return cell.IsCompressed() ? kCompressedColumns : kNormalColumns;
}

// As many as TextOf has, without writing it out: a row may hold thousands of dates.
int CharactersOf(const Cell& cell, const QDateTime& clock) {
  constexpr int kDateCharacters = 11;
  constexpr int kTimeCharacters = 5;
  switch (cell.kind) {
    case Cell::Kind::kDate:
      return clock.isValid() ? kDateCharacters : 0;
    case Cell::Kind::kTime:
      return clock.isValid() ? kTimeCharacters : 0;
    case Cell::Kind::kCharacter:
    case Cell::Kind::kGraphic:
      break;
  }
  return 1;
}

int ColumnsOf(const Cell& cell, const QDateTime& clock) {
  return CharactersOf(cell, clock) * CharacterColumns(cell);
}

bool HasGround(const Colouring& colouring) {
  return colouring.style == Style::kLitGround || colouring.style == Style::kShadow;
}

DotGlyph CellGlyph(const Cell& cell, QChar character) {
  return cell.kind == Cell::Kind::kGraphic
             ? SymbolOf(cell.character, cell.IsCompressed(), cell.IsBold())
             : GlyphOf(character, cell.IsCompressed(), cell.IsBold());
}

template <typename Visit>
void ForEachLitDot(const DotGlyph& glyph, const Visit& visit) {
  for (int y = 0; y < kGlyphHeight; ++y) {
    for (int x = 0; x < glyph.columns; ++x) {
      if (glyph.IsLit(x, y)) visit(x, y);
    }
  }
}

// Puts a glyph's dots, those of them that lie inside the matrix.
void PutGlyph(DotMatrix* matrix, int top, int left, const DotGlyph& glyph,
              const Colouring& colouring) {
  const int first = std::max(0, left);
  const int last = std::min(left + glyph.columns, matrix->Columns());
  if (HasGround(colouring) && first < last) {
    for (int y = top; y < top + kRowDots; ++y) {
      std::fill(matrix->Line(y) + first, matrix->Line(y) + last, colouring.second);
    }
  }
  const auto put = [&](int x, int y, Dot dot) {
    if (x >= first && x < last) matrix->Line(y)[x] = dot;
  };
  // The edge, or the dark shadow, lies one dot to the right and one below. It stays in its cell,
  // or it would run into the next character.
  if (colouring.style == Style::kEdge || colouring.style == Style::kShadow) {
    const Dot dot = colouring.style == Style::kEdge ? colouring.second : kDarkDot;
    ForEachLitDot(glyph, [&](int x, int y) {
      if (x + 1 < glyph.columns) put(left + x + 1, top + y + 1, dot);
    });
  }
  const bool is_rainbow = colouring.style == Style::kRainbow;
  ForEachLitDot(glyph, [&](int x, int y) {
    put(left + x, top + y, is_rainbow ? RainbowDot(left + x) : colouring.first);
  });
}

// ---- entry effects. `done` is how much of the columns or rows is new. ----

// Each half is squeezed towards the middle line or grows out of it.
DotMatrix Flip(const DotMatrix& before, const DotMatrix& after, double progress) {
  const DotMatrix& shown = progress < 0.5 ? before : after;
  const double height = std::abs(1 - 2 * progress);
  DotMatrix result(before.Columns(), before.Rows());
  const double middle = before.Rows() / 2.0;
  for (int y = 0; y < result.Rows() && height > 0; ++y) {
    const int from = static_cast<int>(std::floor(middle + (y + 0.5 - middle) / height));
    if (from < 0 || from >= result.Rows()) continue;
    std::copy_n(shown.Line(from), result.Columns(), result.Line(y));
  }
  return result;
}

// Columns `first` up to before `last` are those of `after`.
DotMatrix Uncover(const DotMatrix& before, const DotMatrix& after, int first, int last) {
  DotMatrix result = before;
  for (int y = 0; y < result.Rows(); ++y) {
    std::copy(after.Line(y) + first, after.Line(y) + last, result.Line(y) + first);
  }
  return result;
}

// `after` comes down from above.
DotMatrix Fall(const DotMatrix& before, const DotMatrix& after, int done) {
  DotMatrix result = before;
  for (int y = 0; y < done; ++y) {
    std::copy_n(after.Line(y + after.Rows() - done), result.Columns(), result.Line(y));
  }
  return result;
}

// `after` comes in from the right: over `before`, or pushing it out.
DotMatrix ComeIn(const DotMatrix& before, const DotMatrix& after, int done, bool pushes) {
  DotMatrix result = before;
  const int old = result.Columns() - done;
  for (int y = 0; y < result.Rows(); ++y) {
    if (pushes) std::copy_n(before.Line(y) + done, old, result.Line(y));
    std::copy_n(after.Line(y), done, result.Line(y) + old);
  }
  return result;
}

}  // namespace

QString TextOf(const Cell& cell, const QDateTime& clock) {
  switch (cell.kind) {
    case Cell::Kind::kDate:
      return QLocale::c().toString(clock.date(), u"dd MMM yyyy"_s).toUpper();
    case Cell::Kind::kTime:
      return clock.toString(u"HH:mm"_s);
    case Cell::Kind::kCharacter:
    case Cell::Kind::kGraphic:
      break;
  }
  return QString(CharacterOf(cell.character));
}

int ColumnsOf(const QList<Cell>& cells, const QDateTime& clock) {
  int columns = 0;
  for (const Cell& cell : cells) columns += ColumnsOf(cell, clock);
  return columns;
}

void PutCells(DotMatrix* matrix, int top, int left, const QList<Cell>& cells, const RowLook& look) {
  for (const Cell& cell : cells) {
    if (left >= matrix->Columns()) return;
    const int right = left + ColumnsOf(cell, look.clock);
    if (right > 0 && (look.blinking_lit || !cell.blinking)) {
      const Colouring colouring = ColouringOf(cell.colour, look.tri_colour);
      int at = left;
      for (const QChar character : TextOf(cell, look.clock)) {
        PutGlyph(matrix, top, at, CellGlyph(cell, character), colouring);
        at += CharacterColumns(cell);
      }
    }
    left = right;
  }
}

qsizetype FirstCut(const QList<Cell>& cells, int columns, const RowLook& look) {
  int left = 0;
  for (qsizetype at = 0; at < cells.size(); ++at) {
    const Cell& cell = cells[at];
    const int width = ColumnsOf(cell, look.clock);
    // What most often stands there is a long tail of blanks, no-break ones among them.
    const bool is_blank = cell.kind == Cell::Kind::kCharacter &&
                          CharacterOf(cell.character).isSpace() &&
                          !HasGround(ColouringOf(cell.colour, look.tri_colour));
    if (left + width > columns && !is_blank) {
      DotMatrix dots(width, kRowDots);
      PutCells(&dots, 0, 0, {cell}, look);
      const int first = std::max(0, columns - left);
      for (int y = 0; y < dots.Rows(); ++y) {
        const Dot* line = dots.Line(y);
        if (std::any_of(line + first, line + width, [](Dot dot) { return dot != kDarkDot; })) {
          return at;
        }
      }
    }
    left += width;
  }
  return cells.size();
}

bool HasLightBehind(const QList<Cell>& cells, int columns, const RowLook& look) {
  return FirstCut(cells, columns, look) < cells.size();
}

DotMatrix Transition(const DotMatrix& before, const DotMatrix& after, char code, double progress) {
  const bool fits = before.Columns() == after.Columns() && before.Rows() == after.Rows();
  if (progress >= 1 || !fits) return after;
  if (progress <= 0) return before;
  const int columns = after.Columns();
  const int done = static_cast<int>(progress * columns);
  switch (code) {
    case 'B':
      return Flip(before, after, progress);
    case 'C':
      return Uncover(before, after, (columns - done) / 2, (columns - done) / 2 + done);
    case 'D':
      return Uncover(before, after, 0, done);
    case 'E':
      return Uncover(before, after, columns - done, columns);
    case 'F':
      return Fall(before, after, static_cast<int>(progress * after.Rows()));
    case 'G':
      return ComeIn(before, after, done, false);
    case 'H':
      return ComeIn(before, after, done, true);
    default:
      return after;
  }
}

}  // namespace PanelDots
