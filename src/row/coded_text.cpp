#include "row/coded_text.h"

#include <optional>

#include "base/text.h"

namespace Brivon1 {
namespace {

/// How far the letter of a blinking size stands behind the letter of the same size, steady.
constexpr char kBlinkingDistance = 'E' - 'A';

void AppendCode(char kind, char letter, QByteArray& text) {
  text.append('<').append(kind).append(letter).append('>');
}

char SizeLetter(const Attributes& attributes) {
  const bool blinking = attributes.blink == kBlinking;
  return static_cast<char>(attributes.size + (blinking ? kBlinkingDistance : 0));
}

void TakeSizeCode(char letter, Attributes& attributes) {
  if (letter >= 'A' && letter <= 'D') {
    attributes.size = letter;
    attributes.blink = kSteady;
  } else if (letter >= 'E' && letter <= 'H') {
    attributes.size = static_cast<char>(letter - kBlinkingDistance);
    attributes.blink = kBlinking;
  }
}

}  // namespace

QByteArray CodedText(const PageRow& row) {
  QByteArray text;
  std::optional<Attributes> last;
  for (qsizetype at = 0; at < row.Length(); ++at) {
    const Attributes attributes = row.AttributesAt(at);
    if (!last || last->size != attributes.size || last->blink != attributes.blink) {
      AppendCode('S', SizeLetter(attributes), text);
    }
    if (!last || last->colour != attributes.colour) AppendCode('C', attributes.colour, text);
    text.append(row.Text()[at]);
    last = attributes;
  }
  return text;
}

qsizetype ReadCodedText(QByteArrayView text, Attributes& attributes, PageRow& row) {
  if (text.size() >= kAttributeCodeLength && text[0] == '<' && text[3] == '>') {
    if (text[1] == 'S') TakeSizeCode(text[2], attributes);
    if (text[1] == 'C') attributes.colour = text[2];
    if (text[1] == 'S' || text[1] == 'C') return kAttributeCodeLength;
  }
  row.Append(text.front(), attributes);
  return 1;
}

}  // namespace Brivon1
