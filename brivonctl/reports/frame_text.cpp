#include "reports/frame_text.h"

namespace BrivonCtl {

QByteArray FrameText(QByteArrayView frame) {
  QByteArray text;
  for (const char character : frame) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '\\') {
      text += "\\\\";
    } else if (character == '\r') {
      text += "\\r";
    } else if (character == '\n') {
      text += "\\n";
    } else if (code < 0x20 || code > 0x7e) {
      text += "\\x" + QByteArray::number(code, 16).rightJustified(2, '0');
    } else {
      text += character;
    }
  }
  return text;
}

}  // namespace BrivonCtl
