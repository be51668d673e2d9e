#include "row/attribute_codes.h"

namespace Brivon1 {
namespace {

constexpr qsizetype kCodeLength = 4;

/// How far the letter of a blinking size stands behind the letter of the same size, steady.
constexpr char kBlinkingDistance = 'E' - 'A';

void AppendCode(char kind, char letter, QByteArray& line) {
  line.append('<').append(kind).append(letter).append('>');
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

void AttributeWriter::Append(char character, const Attributes& attributes, QByteArray& line) {
  if (blink_ != attributes.blink || size_ != attributes.size) {
    const bool blinking = attributes.blink == kBlinking;
    AppendCode('S', static_cast<char>(attributes.size + (blinking ? kBlinkingDistance : 0)), line);
    blink_ = attributes.blink;
    size_ = attributes.size;
  }
  if (colour_ != attributes.colour) {
    AppendCode('C', attributes.colour, line);
    colour_ = attributes.colour;
  }
  line.append(character);
}

qsizetype ReadAttributeCode(QByteArrayView rest, Attributes& attributes) {
  if (rest.size() < kCodeLength || rest[0] != '<' || rest[3] != '>') return 0;
  switch (rest[1]) {
    case 'S':
      TakeSizeCode(rest[2], attributes);
      return kCodeLength;
    case 'C':
      attributes.colour = rest[2];
      return kCodeLength;
    default:
      return 0;
  }
}

}  // namespace Brivon1
