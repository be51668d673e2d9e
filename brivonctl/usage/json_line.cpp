#include "usage/json_line.h"

namespace BrivonCtl {

JsonLine& JsonLine::Add(const char* key, const QString& text) {
  return AddJson(key, JsonText(text));
}

JsonLine& JsonLine::Add(const char* key, int number) {
  return AddJson(key, QByteArray::number(number));
}

JsonLine& JsonLine::Add(const char* key, const QList<int>& numbers) {
  QByteArrayList values;
  for (const int number : numbers) values.append(QByteArray::number(number));
  return AddJson(key, JsonArray(values));
}

JsonLine& JsonLine::AddFlag(const char* key, bool value) {
  return AddJson(key, value ? "true" : "false");
}

JsonLine& JsonLine::AddSeconds(const char* key, qint64 milliseconds) {
  return AddJson(key, QByteArray::number(milliseconds / 1000) + '.' +
                          QByteArray::number(milliseconds % 1000).rightJustified(3, '0'));
}

JsonLine& JsonLine::AddJson(const char* key, const QByteArray& json) {
  members_.append('"' + QByteArray(key) + "\":" + json);
  return *this;
}

QByteArray JsonArray(const QByteArrayList& values) { return '[' + values.join(',') + ']'; }

QByteArray JsonText(const QString& text) {
  QByteArray result = "\"";
  for (const char character : text.toUtf8()) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      result.append('\\').append(character);
    } else if (character == '\n') {
      result += "\\n";
    } else if (code < 0x20 || code == 0x7f) {
      result += "\\u00" + QByteArray::number(code, 16).rightJustified(2, '0');
    } else {
      result += character;
    }
  }
  return result + '"';
}

}  // namespace BrivonCtl
