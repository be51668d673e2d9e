#include "files/terminal_picture.h"

#include <algorithm>
#include <array>
#include <optional>

#include <QString>

#include "reports/terminal.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using PanelDots::Dot;
using PanelDots::DotMatrix;
using PanelDots::kRowDots;
using Colours = Screen::Colours;

constexpr int kMarkWidth = 2;  // a blank and the mark

/// How colours are chosen, by Dot; the mark's comes last.
constexpr std::array<const char*, 5> kEveryColour = {"2;38;32;31", "2;255;40;24", "2;64;232;44",
                                                     "2;255;200;20", "2;255;176;0"};
constexpr std::array<const char*, 5> k256Colours = {"5;235", "5;196", "5;46", "5;220", "5;214"};
constexpr std::size_t kMarkColour = 4;

/// One line, with a change of colour only where there is one.
class Line {
 public:
  explicit Line(Colours colours) : colours_(colours) {}

  void Add(const char* character, std::size_t foreground, std::optional<std::size_t> background) {
    if (colours_ != Colours::kNone) {
      const auto& codes = colours_ == Colours::kEvery ? kEveryColour : k256Colours;
      QByteArray colour = QByteArray("\x1B[0;38;") + codes[foreground];
      if (background) colour += QByteArray(";48;") + codes[*background];
      if (colour != colour_) text_ += colour + 'm';
      colour_ = colour;
    }
    text_ += character;
  }

  void AddMark(const char* mark) {
    text_ += colour_.isEmpty() ? " " : "\x1B[0m ";
    colour_.clear();
    Add(mark, kMarkColour, std::nullopt);
  }

  QByteArray Whole() {
    if (!colour_.isEmpty()) text_ += "\x1B[0m";
    return text_ + '\n';
  }

 private:
  Colours colours_;
  QByteArray text_;
  QByteArray colour_;
};

void AddHalves(const DotMatrix& dots, int y, int width, Colours colours, Line* line) {
  for (int x = 0; x < width; ++x) {
    const Dot upper = dots.At(x, y);
    const Dot lower = dots.At(x, y + 1);
    if (colours != Colours::kNone) {
      line->Add("▀", upper, lower);
    } else {
      constexpr std::array<const char*, 4> kHalves = {" ", "▀", "▄", "█"};
      line->Add(kHalves[(upper != PanelDots::kDarkDot ? 1U : 0U) +
                        (lower != PanelDots::kDarkDot ? 2U : 0U)],
                0, std::nullopt);
    }
  }
}

/// Two dots wide and four high, in the colour that most of the lit ones have.
void AddBraille(const DotMatrix& dots, int y, int width, Line* line) {
  constexpr std::array<std::array<unsigned, 2>, 4> kBits = {
      {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}}};
  constexpr unsigned kBraille = 0x2800;
  for (int column = 0; column < width; ++column) {
    unsigned bits = 0;
    std::array<int, 4> counts{};
    for (int down = 0; down < 4; ++down) {
      for (int right = 0; right < 2; ++right) {
        const Dot dot = dots.At(column * 2 + right, y + down);
        if (dot == PanelDots::kDarkDot) continue;
        bits |= kBits[static_cast<std::size_t>(down)][static_cast<std::size_t>(right)];
        ++counts[dot];
      }
    }
    // Of equal shares of red and green neither wins.
    if (counts[PanelDots::kRedDot] == counts[PanelDots::kGreenDot])
      counts[PanelDots::kYellowDot] += counts[PanelDots::kRedDot] + 1;
    const auto most =
        static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin());
    const QByteArray character = QString(QChar(kBraille + bits)).toUtf8();
    line->Add(bits == 0 ? " " : character.constData(), most, std::nullopt);
  }
}

void AddLetters(const DotMatrix& dots, int y, int width, Line* line) {
  constexpr std::array<const char*, 4> kLetters = {".", "r", "g", "y"};
  for (int x = 0; x < width; ++x) line->Add(kLetters[dots.At(x, y)], 0, std::nullopt);
}

}  // namespace

Screen StandardOutput() {
  const Terminal terminal = LookAt(Stream::kOutput);
  Screen screen;
  if (terminal.has_size) screen.width = terminal.columns;
  if (!terminal.is_terminal) return screen;
  screen.draws_blocks = terminal.shows_every_character;
  if (!screen.draws_blocks || !terminal.has_colours) return screen;
  screen.colours = terminal.has_every_colour ? Colours::kEvery : Colours::k256;
  return screen;
}

QByteArray TerminalPicture(const PanelDots::PanelPicture& picture, const Screen& terminal) {
  const DotMatrix dots = PanelDots::DotsOf(picture, 0);
  const int room = terminal.width == 0 ? dots.Columns() : std::max(1, terminal.width - kMarkWidth);
  const bool is_braille = terminal.draws_blocks && dots.Columns() > room;
  const int characters = is_braille ? (dots.Columns() + 1) / 2 : dots.Columns();
  const int width = std::min(characters, room);
  const int dots_a_line = !terminal.draws_blocks ? 1 : is_braille ? 4 : 2;
  const Colours colours = terminal.draws_blocks ? terminal.colours : Colours::kNone;
  QByteArray text;
  for (int y = 0; y < dots.Rows(); y += dots_a_line) {
    Line line(colours);
    if (!terminal.draws_blocks) {
      AddLetters(dots, y, width, &line);
    } else if (is_braille) {
      AddBraille(dots, y, width, &line);
    } else {
      AddHalves(dots, y, width, colours, &line);
    }
    const int row = y / kRowDots + 1;
    const bool is_middle = y % kRowDots == (kRowDots / 2 - 1) / dots_a_line * dots_a_line;
    if (is_middle && (width < characters || PanelDots::IsCut(picture, row))) {
      line.AddMark(terminal.draws_blocks ? "▸" : ">");
    }
    text += line.Whole();
  }
  return text;
}

}  // namespace BrivonCtl
