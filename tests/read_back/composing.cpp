#include "read_back/composing.h"

#include <string_view>

namespace {

using Kind = ShownCharacter::Kind;

constexpr std::string_view kDate = "DD MMM YYYY";
constexpr std::string_view kTime = "HH:MM";

bool LooksAlike(const TypedCharacter& one, const TypedCharacter& other, bool by_colour) {
  return one.size == other.size && one.blinking == other.blinking &&
         (!by_colour || one.colour == other.colour);
}

/// Whether `text` stands at `place`, all of one look, so that no code divides it.
bool Stands(const TypedRow& row, std::size_t place, std::string_view text) {
  if (place + text.size() > row.size()) return false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const TypedCharacter& typed = row[place + at];
    if (typed.character != text[at] || !LooksAlike(typed, row[place], true)) return false;
  }
  return true;
}

/// A place of the row and how many typed characters it is made of.
struct Part {
  Kind kind = Kind::kCharacter;
  std::size_t first = 0;
  std::size_t length = 1;
};

std::vector<Part> PartsOf(const TypedRow& row, bool is_page) {
  std::vector<Part> parts;
  for (std::size_t at = 0; at < row.size(); at += parts.back().length) {
    if (is_page && Stands(row, at, kDate)) {
      parts.push_back({Kind::kDate, at, kDate.size()});
    } else if (is_page && Stands(row, at, kTime)) {
      parts.push_back({Kind::kTime, at, kTime.size()});
    } else if (is_page && row[at].character == '~' && at + 1 < row.size()) {
      parts.push_back({Kind::kSymbol, at, 2});
    } else {
      parts.push_back({Kind::kCharacter, at, 1});
    }
  }
  return parts;
}

bool IsCode(std::string_view four) {
  if (four[0] != '<' || four[3] != '>') return false;
  const char kind = four[1];
  return kind == 'S' || kind == 'C' || kind == 'G' ||
         (kind == 'D' && (four[2] == 'D' || four[2] == 'T'));
}

}  // namespace

bool IsToldAsTyped(const TypedRow& row, bool is_page, bool tri_colour) {
  const std::vector<Part> parts = PartsOf(row, is_page);
  for (std::size_t number = 0; number < parts.size(); ++number) {
    const Part& part = parts[number];
    if (part.kind == Kind::kSymbol) {
      const std::size_t letter = part.first + 1;
      if (!LooksAlike(row[part.first], row[letter], true) || Stands(row, letter, kDate) ||
          Stands(row, letter, kTime)) {
        return false;
      }
    }
    if (part.kind != Kind::kCharacter || number + 4 > parts.size()) continue;
    char four[4];
    bool stand_together = true;
    for (std::size_t at = 0; at < 4; ++at) {
      const Part& next = parts[number + at];
      const TypedCharacter& typed = row[next.first];
      four[at] = typed.character;
      // A panel of one colour is not sent the codes for colours, which divide nothing then.
      stand_together = stand_together && next.kind == Kind::kCharacter &&
                       LooksAlike(typed, row[part.first], tri_colour);
    }
    if (stand_together && IsCode({four, 4})) return false;
  }
  return true;
}

ShownRow ShownOf(const TypedRow& row, bool is_page, bool tri_colour) {
  ShownRow shown;
  for (const Part& part : PartsOf(row, is_page)) {
    const TypedCharacter& typed = row[part.first];
    char character = ' ';
    if (part.kind == Kind::kCharacter) character = typed.character;
    if (part.kind == Kind::kSymbol) character = row[part.first + 1].character;
    shown.push_back(
        {part.kind, character, typed.size, tri_colour ? typed.colour : 'A', typed.blinking});
  }
  if (tri_colour) return shown;
  // A panel of one colour is not sent the blanks at the end, up to the last code.
  const ShownCharacter last = shown.empty() ? ShownCharacter() : shown.back();
  while (!shown.empty() &&
         shown.back() == ShownCharacter{Kind::kCharacter, ' ', last.size, 'A', last.blinking}) {
    shown.pop_back();
  }
  return shown;
}
